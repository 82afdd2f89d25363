#include "tests/windows/registry_snapshot.h"

#include <algorithm>
#include <functional>

namespace ruvex::test {
namespace {

using NameReader = std::function<LSTATUS(DWORD index, wchar_t* name, DWORD* length)>;

/// What `read` gives for 0, 1, ... until there are no more, sorted.
std::vector<std::wstring> allNames(const NameReader& read) {
    // The longest name of a value, with its zero.
    static wchar_t name[16384];
    std::vector<std::wstring> names;
    for (DWORD index = 0;; ++index) {
        DWORD length = static_cast<DWORD>(std::size(name));
        const LSTATUS status = read(index, name, &length);
        if (status == ERROR_NO_MORE_ITEMS) break;
        if (status != ERROR_SUCCESS) throw RegistryUnreadable();
        names.emplace_back(name, length);
    }
    std::ranges::sort(names);
    return names;
}

std::vector<RegistryValue> valuesOf(HKEY key) {
    std::vector<RegistryValue> values;
    const auto names = allNames([key](DWORD index, wchar_t* name, DWORD* length) {
        return RegEnumValueW(key, index, name, length, nullptr, nullptr, nullptr, nullptr);
    });
    for (const std::wstring& name : names) {
        RegistryValue value{name, 0, {}};
        DWORD bytes = 0;
        RegQueryValueExW(key, name.c_str(), nullptr, nullptr, nullptr, &bytes);
        value.data.resize(bytes + 1);  // never null, which would ask for the size alone
        if (RegQueryValueExW(key, name.c_str(), nullptr, &value.type, value.data.data(), &bytes) !=
            ERROR_SUCCESS) {
            throw RegistryUnreadable();
        }
        value.data.resize(bytes);
        values.push_back(std::move(value));
    }
    return values;
}

/// The system's own keys, some of which change by themselves, and a second view of the other keys,
/// for programs of 32 bits.
bool isLeftOut(const std::wstring& name) {
    return name == L"Microsoft" || name == L"Wow6432Node";
}

void addTree(RegistrySnapshot& snapshot, HKEY parent, const std::wstring& path,
             const std::wstring& name) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(parent, name.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS)
        throw RegistryUnreadable();
    const std::wstring full = path + L"\\" + name;
    snapshot.emplace(full, valuesOf(key));
    const auto names = allNames([key](DWORD index, wchar_t* child, DWORD* length) {
        return RegEnumKeyExW(key, index, child, length, nullptr, nullptr, nullptr, nullptr);
    });
    for (const std::wstring& child : names) {
        if (!isLeftOut(child)) addTree(snapshot, key, full, child);
    }
    RegCloseKey(key);
}

/// The paths of those entries of `a` that `b` does not have.
void addMissing(std::vector<std::wstring>& paths, const RegistrySnapshot& a,
                const RegistrySnapshot& b) {
    for (const auto& [path, values] : a) {
        const auto found = b.find(path);
        if (found == b.end() || found->second != values) paths.push_back(path);
    }
}

}  // namespace

RegistrySnapshot readSoftwareKeys() {
    RegistrySnapshot snapshot;
    addTree(snapshot, HKEY_LOCAL_MACHINE, L"HKLM", L"Software");
    addTree(snapshot, HKEY_CURRENT_USER, L"HKCU", L"Software");
    return snapshot;
}

std::vector<std::wstring> differences(const RegistrySnapshot& a, const RegistrySnapshot& b) {
    std::vector<std::wstring> paths;
    addMissing(paths, a, b);
    addMissing(paths, b, a);
    std::ranges::sort(paths);
    const auto repeated = std::ranges::unique(paths);
    paths.erase(repeated.begin(), repeated.end());
    return paths;
}

}  // namespace ruvex::test
