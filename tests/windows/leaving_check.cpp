// Hosts that end while the module is in use: by themselves, killed, and after they have unloaded
// it.

#include <cstdlib>
#include <string_view>

#include "host/base/class_ids.h"
#include "tests/windows/checks.h"
#include "tests/windows/child_process.h"
#include "tests/windows/opened_pages.h"

namespace ruvex::test {
namespace {

/// A status that no crash has.
constexpr UINT kLeft = 77;

/// An effect with all its pages, which nothing will close.
void openForGood() {
    auto* const host = new PageHost;
    for (const PageKind& kind : kPages) host->open(kind.classId).release();
}

void unloadModule() {
    CoUninitialize();
    while (const HMODULE module = GetModuleHandleW(L"V_Ruvex.dll")) {
        if (!FreeLibrary(module)) return;
    }
}

void checkLeaving(Checks& checks, const wchar_t* way, const char* what) {
    const SharedEvent opened(std::wstring(L"opened-") + way);
    const SharedEvent crashed(std::wstring(L"crashed-") + way);
    const ChildProcess host(std::wstring(L"leave ") + way);
    checks.expect(opened.wait(), "a host opens its pages");
    if (way == std::wstring_view(L"killed")) host.terminate(kLeft);
    checks.expect(host.endsWith(kLeft) && !crashed.isSet(), what);
}

}  // namespace

void leaveHost(const char* way) {
    const std::wstring name(way, way + std::string_view(way).size());
    const SharedEvent opened(L"opened-" + name);
    const SharedEvent crashed(L"crashed-" + name);
    reportCrashes(crashed);
    openForGood();
    opened.set();
    if (name == L"killed") Sleep(INFINITE);
    if (name == L"terminated") TerminateProcess(GetCurrentProcess(), kLeft);
    if (name == L"exited") ExitProcess(kLeft);
    if (name == L"unloaded") unloadModule();
    std::exit(kLeft);
}

void checkLeavingHosts(Checks& checks) {
    checkLeaving(checks, L"exited", "a host may exit with its pages open");
    checkLeaving(checks, L"returned", "or leave its main function");
    checkLeaving(checks, L"terminated", "or terminate itself");
    checkLeaving(checks, L"killed", "or be killed");
    checkLeaving(checks, L"unloaded", "or unload the module and then leave");
}

}  // namespace ruvex::test
