// A transaction over keys of the system's registry. Windows only.

#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "sdk/registry/registry_key.h"

namespace ruvex {

/// The full path and the values of a registry key.
struct RegistrySnapshot {
    std::wstring path;
    std::vector<RegistryValue> values;
};

/// Saves some registry keys with their subkeys; the destructor restores them unless the change was
/// committed with `keep`. A key that can't be written can't be restored, but then it can't have
/// been changed either.
class RegistryChange {
public:
    /// Throws RegistryUnreadable.
    explicit RegistryChange(std::initializer_list<std::wstring> places);
    ~RegistryChange();
    RegistryChange(const RegistryChange&) = delete;
    RegistryChange& operator=(const RegistryChange&) = delete;

    void keep() { kept_ = true; }

private:
    void putBack() const;

    std::vector<std::wstring> places_;
    /// Parents before their subkeys.
    std::vector<RegistrySnapshot> before_;
    bool kept_ = false;
};

}  // namespace ruvex
