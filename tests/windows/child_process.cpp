#include "tests/windows/child_process.h"

namespace ruvex::test {
namespace {

constexpr DWORD kMostMilliseconds = 20'000;

const SharedEvent* crashEvent = nullptr;

bool isCrash(DWORD code) {
    return code == EXCEPTION_ACCESS_VIOLATION || code == EXCEPTION_ILLEGAL_INSTRUCTION ||
           code == EXCEPTION_PRIV_INSTRUCTION || code == EXCEPTION_STACK_OVERFLOW ||
           code == EXCEPTION_INT_DIVIDE_BY_ZERO;
}

LONG CALLBACK reportCrash(EXCEPTION_POINTERS* exception) {
    if (isCrash(exception->ExceptionRecord->ExceptionCode)) crashEvent->set();
    return EXCEPTION_CONTINUE_SEARCH;
}

std::wstring thisProgram() {
    wchar_t file[MAX_PATH] = L"";
    GetModuleFileNameW(nullptr, file, MAX_PATH);
    return file;
}

}  // namespace

SharedEvent::SharedEvent(const std::wstring& name)
    : event_(CreateEventW(nullptr, TRUE, FALSE, (L"ruvex-check-" + name).c_str())) {}

SharedEvent::~SharedEvent() {
    CloseHandle(event_);
}

bool SharedEvent::waits(DWORD milliseconds) const {
    return WaitForSingleObject(event_, milliseconds) == WAIT_OBJECT_0;
}

ChildProcess::ChildProcess(const std::wstring& arguments) {
    const std::wstring program = thisProgram();
    std::wstring line = L"\"" + program + L"\" " + arguments;
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION made{};
    if (!CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                        &startup, &made)) {
        return;
    }
    CloseHandle(made.hThread);
    process_ = made.hProcess;
}

ChildProcess::~ChildProcess() {
    if (!process_) return;
    if (WaitForSingleObject(process_, 0) != WAIT_OBJECT_0) terminate(1);
    CloseHandle(process_);
}

bool ChildProcess::endsWith(DWORD status) const {
    DWORD found = 0;
    return process_ && WaitForSingleObject(process_, kMostMilliseconds) == WAIT_OBJECT_0 &&
           GetExitCodeProcess(process_, &found) && found == status;
}

void reportCrashes(const SharedEvent& crashed) {
    crashEvent = &crashed;
    constexpr ULONG kFirst = 1;
    AddVectoredExceptionHandler(kFirst, reportCrash);
}

}  // namespace ruvex::test
