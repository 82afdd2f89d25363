#include "sdk/registry/registry_key.h"

#include <utility>

namespace ruvex {
namespace {

const HKEY kRoot = HKEY_LOCAL_MACHINE;

/// Whether the key may be deleted. Checked before anything is deleted, since not every system
/// checks the permissions of a key when it deletes it.
bool isRemovable(const std::wstring& path) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(kRoot, path.c_str(), 0, KEY_READ | KEY_SET_VALUE | DELETE, &key) !=
        ERROR_SUCCESS) {
        return false;
    }
    RegCloseKey(key);
    return true;
}

}  // namespace

RegistryKey RegistryKey::open(const std::wstring& path) {
    HKEY key = nullptr;
    const LSTATUS status = RegOpenKeyExW(kRoot, path.c_str(), 0, KEY_READ, &key);
    if (status == ERROR_FILE_NOT_FOUND || status == ERROR_PATH_NOT_FOUND)
        return RegistryKey(nullptr);
    if (status != ERROR_SUCCESS) throw RegistryUnreadable();
    return RegistryKey(key);
}

RegistryKey RegistryKey::create(const std::wstring& path) {
    HKEY key = nullptr;
    const LSTATUS status = RegCreateKeyExW(kRoot, path.c_str(), 0, nullptr, 0, KEY_READ | KEY_WRITE,
                                           nullptr, &key, nullptr);
    return RegistryKey(status == ERROR_SUCCESS ? key : nullptr);
}

RegistryKey::~RegistryKey() {
    if (key_) RegCloseKey(key_);
}

RegistryKey::RegistryKey(RegistryKey&& other) noexcept : key_(std::exchange(other.key_, nullptr)) {}

bool RegistryKey::set(const wchar_t* name, const std::wstring& text) const {
    const auto bytes = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
    return RegSetValueExW(key_, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                          bytes) == ERROR_SUCCESS;
}

bool RegistryKey::set(const wchar_t* name, DWORD number) const {
    return RegSetValueExW(key_, name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&number),
                          sizeof number) == ERROR_SUCCESS;
}

bool RegistryKey::set(const RegistryValue& value) const {
    return RegSetValueExW(key_, value.name.c_str(), 0, value.type, value.data.data(),
                          static_cast<DWORD>(value.data.size())) == ERROR_SUCCESS;
}

bool RegistryKey::remove(const std::wstring& name) const {
    return RegDeleteValueW(key_, name.c_str()) == ERROR_SUCCESS;
}

std::optional<std::wstring> RegistryKey::text(const wchar_t* name) const {
    DWORD bytes = 0;
    if (RegGetValueW(key_, nullptr, name, RRF_RT_REG_SZ, nullptr, nullptr, &bytes) !=
        ERROR_SUCCESS) {
        return std::nullopt;
    }
    std::wstring text(bytes / sizeof(wchar_t), L'\0');
    if (RegGetValueW(key_, nullptr, name, RRF_RT_REG_SZ, nullptr, text.data(), &bytes) !=
        ERROR_SUCCESS) {
        return std::nullopt;
    }
    text.resize(text.find_last_not_of(L'\0') + 1);
    return text;
}

std::optional<DWORD> RegistryKey::number(const wchar_t* name) const {
    DWORD number = 0;
    DWORD bytes = sizeof number;
    const LSTATUS status =
        RegGetValueW(key_, nullptr, name, RRF_RT_REG_DWORD, nullptr, &number, &bytes);
    if (status != ERROR_SUCCESS) return std::nullopt;
    return number;
}

std::vector<RegistryValue> RegistryKey::values() const {
    DWORD longestName = 0;
    DWORD longestData = 0;
    if (RegQueryInfoKeyW(key_, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                         &longestName, &longestData, nullptr, nullptr) != ERROR_SUCCESS) {
        throw RegistryUnreadable();
    }
    std::vector<RegistryValue> values;
    for (DWORD index = 0;; ++index) {
        // The length that the system gives does not include the terminating zero.
        DWORD length = longestName + 1;
        DWORD bytes = longestData;
        RegistryValue value{std::wstring(length, L'\0'), 0, std::vector<BYTE>(bytes + 1)};
        const LSTATUS status = RegEnumValueW(key_, index, value.name.data(), &length, nullptr,
                                             &value.type, value.data.data(), &bytes);
        if (status == ERROR_NO_MORE_ITEMS) return values;
        if (status != ERROR_SUCCESS) throw RegistryUnreadable();
        value.name.resize(length);
        value.data.resize(bytes);
        values.push_back(std::move(value));
    }
}

std::vector<std::wstring> RegistryKey::names() const {
    constexpr DWORD kLongest = 256;
    std::vector<std::wstring> names;
    for (DWORD index = 0;; ++index) {
        wchar_t name[kLongest];
        DWORD length = kLongest;
        const LSTATUS status =
            RegEnumKeyExW(key_, index, name, &length, nullptr, nullptr, nullptr, nullptr);
        if (status == ERROR_NO_MORE_ITEMS) return names;
        if (status != ERROR_SUCCESS) throw RegistryUnreadable();
        names.emplace_back(name, length);
    }
}

bool registryKeyExists(const std::wstring& path) {
    return static_cast<bool>(RegistryKey::open(path));
}

bool removeRegistryTree(const std::wstring& path) {
    if (!registryKeyExists(path)) return true;
    if (!isRemovable(path)) return false;
    if (RegDeleteTreeW(kRoot, path.c_str()) != ERROR_SUCCESS) return false;
    // On some systems this deletes the key itself too, on others it remains, empty.
    RegDeleteKeyW(kRoot, path.c_str());
    return !registryKeyExists(path);
}

void removeRegistryKeyIfEmpty(const std::wstring& path) {
    const RegistryKey key = RegistryKey::open(path);
    if (key && key.empty()) RegDeleteKeyW(kRoot, path.c_str());
}

}  // namespace ruvex
