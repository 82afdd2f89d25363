// Keys of the system's registry. Windows alone.

#pragma once

#include <optional>
#include <string>
#include <vector>
#include <windows.h>

namespace ruvex {

/// An open key; closed at its end. Paths are below HKEY_LOCAL_MACHINE.
class RegistryKey {
public:
    /// Null inside, which `operator bool` tells, when the key is not there or not to be read.
    static RegistryKey open(const std::wstring& path);
    /// Makes it and those above it where they are missing.
    static RegistryKey create(const std::wstring& path);

    ~RegistryKey();
    RegistryKey(RegistryKey&& other) noexcept;
    RegistryKey& operator=(RegistryKey&&) = delete;

    explicit operator bool() const { return key_ != nullptr; }

    /// An empty name is the key's own value.
    bool set(const wchar_t* name, const std::wstring& text) const;
    bool set(const wchar_t* name, DWORD number) const;
    std::optional<std::wstring> text(const wchar_t* name) const;
    std::optional<DWORD> number(const wchar_t* name) const;

    /// The names of the keys directly below.
    std::vector<std::wstring> names() const;

private:
    explicit RegistryKey(HKEY key) : key_(key) {}

    HKEY key_;
};

bool registryKeyExists(const std::wstring& path);

/// Removes a key with all below it; one that is not there counts as removed.
bool removeRegistryTree(const std::wstring& path);

/// Removes a key that has none below it; others stay.
void removeRegistryKeyIfEmpty(const std::wstring& path);

}  // namespace ruvex
