#include "tests/windows/recorded_shell.h"

#include <string_view>

namespace ruvex::test {
namespace {

/// What the shell says when it has opened a file: a number above 32.
constexpr std::intptr_t kOpened = 42;

RecordedShell* current = nullptr;

HINSTANCE WINAPI recordFile(HWND, const wchar_t*, const wchar_t* file, const wchar_t*,
                            const wchar_t*, int) {
    if (current) current->files.emplace_back(file);
    return reinterpret_cast<HINSTANCE>(kOpened);
}

template <class T>
T* at(char* base, std::uint64_t offset) {
    return reinterpret_cast<T*>(base + offset);
}

/// The place in a loaded module's import table that holds the address of a function.
void** importOf(HMODULE module, std::string_view function) {
    char* const base = reinterpret_cast<char*>(module);
    const auto* const headers = at<IMAGE_NT_HEADERS>(base, at<IMAGE_DOS_HEADER>(base, 0)->e_lfanew);
    const auto& imports = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    if (imports.VirtualAddress == 0) return nullptr;
    const auto* library = at<IMAGE_IMPORT_DESCRIPTOR>(base, imports.VirtualAddress);
    for (; library->Name != 0; ++library) {
        const auto* name = at<IMAGE_THUNK_DATA>(base, library->OriginalFirstThunk);
        auto* address = at<void*>(base, library->FirstThunk);
        for (; name->u1.AddressOfData != 0; ++name, ++address) {
            if (IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal)) continue;
            const auto* const byName = at<IMAGE_IMPORT_BY_NAME>(base, name->u1.AddressOfData);
            if (function == reinterpret_cast<const char*>(byName->Name)) return address;
        }
    }
    return nullptr;
}

}  // namespace

RecordedShell::RecordedShell(const wchar_t* module) {
    const HMODULE loaded = GetModuleHandleW(module);
    import_ = loaded ? importOf(loaded, "ShellExecuteW") : nullptr;
    if (!import_) return;
    before_ = *import_;
    current = this;
    replace(reinterpret_cast<void*>(&recordFile));
}

RecordedShell::~RecordedShell() {
    if (!import_) return;
    replace(before_);
    current = nullptr;
}

void RecordedShell::replace(void* function) {
    DWORD protection = 0;
    VirtualProtect(import_, sizeof *import_, PAGE_READWRITE, &protection);
    *import_ = function;
    VirtualProtect(import_, sizeof *import_, protection, &protection);
}

}  // namespace ruvex::test
