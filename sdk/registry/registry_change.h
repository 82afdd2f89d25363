// Changes of the system's registry that happen as a whole or not at all. Windows alone.

#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "sdk/registry/registry_key.h"

namespace ruvex {

/// A key with its values, by its whole path.
struct RegistrySnapshot {
    std::wstring path;
    std::vector<RegistryValue> values;
};

/// Keeps what lies at some places of the registry, each with all below it, and puts it back at its
/// end unless the change was kept. What cannot be put back, since it cannot be written, could not
/// be changed before either.
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
    /// Keys before those below them.
    std::vector<RegistrySnapshot> before_;
    bool kept_ = false;
};

}  // namespace ruvex
