#include "sdk/properties/property_def.h"

#include <algorithm>

const CDSPropertiesMapEntry* CDSPropertiesMap::find(const GUID& id) const {
    const auto found = std::ranges::find_if(
        entries_, [&](const CDSPropertiesMapEntry& entry) { return entry.definition.id == id; });
    return found == entries_.end() ? nullptr : &*found;
}
