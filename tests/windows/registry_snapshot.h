// A copy of parts of the system's registry, for comparison.

#pragma once

#include <map>
#include <string>
#include <vector>

#include "sdk/registry/registry_key.h"

namespace ruvex::test {

/// Keys, by their paths from the root, with their values in the order of their names.
using RegistrySnapshot = std::map<std::wstring, std::vector<RegistryValue>>;

/// Everything below Software of HKEY_LOCAL_MACHINE and of HKEY_CURRENT_USER, classes included
/// and without the system's own keys (Microsoft). Throws RegistryUnreadable.
RegistrySnapshot readSoftwareKeys();

/// The paths of keys that only one of the two has, or that have other values there.
std::vector<std::wstring> differences(const RegistrySnapshot& a, const RegistrySnapshot& b);

}  // namespace ruvex::test
