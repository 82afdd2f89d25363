// Keys of the system's registry. Windows only.

#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>
#include <windows.h>

namespace ruvex {

/// A registry key or value exists but can't be read.
class RegistryUnreadable : public std::runtime_error {
public:
    RegistryUnreadable() : std::runtime_error("the registry can't be read") {}
};

/// A registry value of any type, as raw bytes. A key's default value has an empty name.
struct RegistryValue {
    std::wstring name;
    DWORD type;
    std::vector<BYTE> data;

    friend bool operator==(const RegistryValue&, const RegistryValue&) = default;
};

/// An open registry key; the destructor closes it. Paths are relative to HKEY_LOCAL_MACHINE.
class RegistryKey {
public:
    /// Opens a key for reading. If it does not exist, `operator bool` of the result is false.
    /// Throws RegistryUnreadable.
    static RegistryKey open(const std::wstring& path);
    /// Opens a key for writing; creates it and its parents if missing. If it can't be written,
    /// `operator bool` of the result is false.
    static RegistryKey create(const std::wstring& path);

    ~RegistryKey();
    RegistryKey(RegistryKey&& other) noexcept;
    RegistryKey& operator=(RegistryKey&&) = delete;

    explicit operator bool() const { return key_ != nullptr; }

    /// Sets a text value; an empty name is the key's default value. False on failure.
    bool set(const wchar_t* name, const std::wstring& text) const;
    bool set(const wchar_t* name, DWORD number) const;
    bool set(const RegistryValue& value) const;
    bool remove(const std::wstring& name) const;
    std::optional<std::wstring> text(const wchar_t* name) const;
    std::optional<DWORD> number(const wchar_t* name) const;

    /// All values of the key. Throws RegistryUnreadable.
    std::vector<RegistryValue> values() const;

    /// The names of the direct subkeys. Throws RegistryUnreadable.
    std::vector<std::wstring> names() const;

    /// Whether the key has neither subkeys nor values. Throws RegistryUnreadable.
    bool empty() const { return names().empty() && values().empty(); }

private:
    explicit RegistryKey(HKEY key) : key_(key) {}

    HKEY key_;
};

/// Throws RegistryUnreadable.
bool registryKeyExists(const std::wstring& path);

/// Deletes a key with all subkeys. True if it is deleted or did not exist.
bool removeRegistryTree(const std::wstring& path);

/// Deletes a key that has neither subkeys nor values; does nothing for another one and for a
/// missing one. Throws RegistryUnreadable.
void removeRegistryKeyIfEmpty(const std::wstring& path);

}  // namespace ruvex
