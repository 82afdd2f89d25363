#include "pages/manual.h"
#include "sdk/com/guarded.h"
#include "sdk/window/window.h"

namespace ruvex {
namespace {

constexpr const wchar_t* kKey = L"Software\\Microsoft\\Windows\\CurrentVersion";
/// All rights but that of a symbolic link. An ordinary user does not have them and gets the
/// fall-back folder.
constexpr REGSAM kAccess = 0xF003F;

class SystemRegistryText final : public RegistryText {
public:
    bool open() override {
        return RegOpenKeyExW(HKEY_LOCAL_MACHINE, kKey, 0, kAccess, &key_) == ERROR_SUCCESS;
    }
    bool read(wchar_t* buffer, std::size_t bytes) override {
        DWORD type = 0;
        auto size = static_cast<DWORD>(bytes);
        const LONG status = RegQueryValueExW(key_, L"ProgramFilesDir", nullptr, &type,
                                             reinterpret_cast<BYTE*>(buffer), &size);
        if (status != ERROR_SUCCESS) return false;
        // A value may be stored without its zero, which then needs room of its own.
        const std::size_t length = size / sizeof(wchar_t);
        const bool ended = length > 0 && buffer[length - 1] == L'\0';
        if (!ended && length == bytes / sizeof(wchar_t)) return false;
        if (!ended) buffer[length] = L'\0';
        return true;
    }
    void close() override { RegCloseKey(key_); }

private:
    HKEY key_ = nullptr;
};

}  // namespace

void OpenManual() {
    guarded([] {
        SystemRegistryText registry;
        const std::wstring file = installedManual(programFilesFolder(registry));
        ShellExecuteW(nullptr, L"open", file.c_str(), nullptr, nullptr, SW_SHOWDEFAULT);
        return S_OK;
    });
}

}  // namespace ruvex
