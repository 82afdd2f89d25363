#include "sdk/registry/registry_change.h"

#include <algorithm>
#include <ranges>

namespace ruvex {
namespace {

/// Appends a registry key and all its subkeys, parents first; nothing if the key does not exist.
void append(const std::wstring& path, std::vector<RegistrySnapshot>& keys) {
    const RegistryKey key = RegistryKey::open(path);
    if (!key) return;
    keys.push_back({path, key.values()});
    for (const std::wstring& name : key.names()) append(path + L"\\" + name, keys);
}

std::vector<RegistrySnapshot> snapshotsOf(const std::vector<std::wstring>& places) {
    std::vector<RegistrySnapshot> keys;
    for (const std::wstring& place : places) append(place, keys);
    return keys;
}

bool holds(const std::vector<RegistryValue>& values, const std::wstring& name) {
    return std::ranges::find(values, name, &RegistryValue::name) != values.end();
}

/// Writes a key's values as they were before the change, and removes all others.
void restore(const RegistrySnapshot& before) {
    const RegistryKey key = RegistryKey::create(before.path);
    if (!key) return;
    const std::vector<RegistryValue> now = key.values();
    for (const RegistryValue& value : now) {
        if (!holds(before.values, value.name)) key.remove(value.name);
    }
    for (const RegistryValue& value : before.values) {
        if (std::ranges::find(now, value) == now.end()) key.set(value);
    }
}

}  // namespace

RegistryChange::RegistryChange(std::initializer_list<std::wstring> places)
    : places_(places), before_(snapshotsOf(places_)) {}

RegistryChange::~RegistryChange() {
    if (kept_) return;
    try {
        putBack();
    } catch (const std::exception&) {
        // Out of memory, or no permission to read a key: the rest is not restored.
    }
}

void RegistryChange::putBack() const {
    const std::vector<RegistrySnapshot> now = snapshotsOf(places_);
    for (const RegistrySnapshot& key : now | std::views::reverse) {
        const auto known = std::ranges::find(before_, key.path, &RegistrySnapshot::path);
        if (known != before_.end()) continue;
        // Subkeys come first. A new key in which another program has made a subkey stays.
        restore({key.path, {}});
        removeRegistryKeyIfEmpty(key.path);
    }
    for (const RegistrySnapshot& key : before_) restore(key);
}

}  // namespace ruvex
