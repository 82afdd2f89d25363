// Keys of the system's registry. Windows alone.

#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>
#include <windows.h>

namespace ruvex {

/// There is something at a place of the registry that is not to be read.
class RegistryUnreadable : public std::runtime_error {
public:
    RegistryUnreadable() : std::runtime_error("the registry is not to be read") {}
};

/// A value of any type, as it is stored. The key's own has an empty name.
struct RegistryValue {
    std::wstring name;
    DWORD type;
    std::vector<BYTE> data;

    friend bool operator==(const RegistryValue&, const RegistryValue&) = default;
};

/// An open key; closed at its end. Paths are below HKEY_LOCAL_MACHINE.
class RegistryKey {
public:
    /// For reading. Null inside, which `operator bool` tells, when the key is not there. Throws
    /// RegistryUnreadable.
    static RegistryKey open(const std::wstring& path);
    /// Makes it and those above it where they are missing; null when it is not to be written.
    static RegistryKey create(const std::wstring& path);

    ~RegistryKey();
    RegistryKey(RegistryKey&& other) noexcept;
    RegistryKey& operator=(RegistryKey&&) = delete;

    explicit operator bool() const { return key_ != nullptr; }

    /// An empty name is the key's own value.
    bool set(const wchar_t* name, const std::wstring& text) const;
    bool set(const wchar_t* name, DWORD number) const;
    bool set(const RegistryValue& value) const;
    bool remove(const std::wstring& name) const;
    std::optional<std::wstring> text(const wchar_t* name) const;
    std::optional<DWORD> number(const wchar_t* name) const;

    /// All of them. Throws RegistryUnreadable.
    std::vector<RegistryValue> values() const;

    /// The names of the keys directly below. Throws RegistryUnreadable.
    std::vector<std::wstring> names() const;

private:
    explicit RegistryKey(HKEY key) : key_(key) {}

    HKEY key_;
};

/// Throws RegistryUnreadable.
bool registryKeyExists(const std::wstring& path);

/// Removes a key with all below it; one that is not there counts as removed.
bool removeRegistryTree(const std::wstring& path);

/// Removes a key that has none below it; others stay.
void removeRegistryKeyIfEmpty(const std::wstring& path);

}  // namespace ruvex
