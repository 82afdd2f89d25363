// ShellExecuteW for systems without it: passes files to the host.

#include <memory>

#include "sdk/window/window_table.h"

namespace {

/// Shared, so that a receiver stays alive while it replaces itself.
thread_local std::shared_ptr<const DSShell> shellReceiver;

/// Results of ShellExecuteW: the smallest that means success, and two errors of the system.
constexpr std::uintptr_t kOpened = 33;
constexpr std::uintptr_t kFileNotFound = 2;
constexpr std::uintptr_t kNoAssociation = 31;

bool opens(const std::wstring& file) {
    const auto receiver = shellReceiver;
    return receiver && *receiver && (*receiver)(file);
}

}  // namespace

HINSTANCE ShellExecuteW(HWND, const wchar_t*, const wchar_t* file, const wchar_t*, const wchar_t*,
                        int) {
    const auto result = [&] {
        if (!file) return kFileNotFound;
        return opens(file) ? kOpened : kNoAssociation;
    };
    return reinterpret_cast<HINSTANCE>(ruvex::windows::unlessOutOfMemory(kNoAssociation, result));
}

DSShell DSUseShell(DSShell shell) {
    const auto previous = shellReceiver;
    shellReceiver = std::make_shared<const DSShell>(std::move(shell));
    return previous ? *previous : nullptr;
}
