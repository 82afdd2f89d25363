#include "sdk/property_def.h"

#include <algorithm>
#include <numeric>

CDSPropertiesMap::CDSPropertiesMap(const CDSPropertiesMapEntry* entries, std::size_t count)
    : entries_(entries, entries + count), byId_(count) {
    std::iota(byId_.begin(), byId_.end(), 0u);
    std::stable_sort(byId_.begin(), byId_.end(), [this](std::uint32_t a, std::uint32_t b) {
        return ruvex::GuidLess{}(entries_[a].definition.id, entries_[b].definition.id);
    });
}

const CDSPropertiesMapEntry* CDSPropertiesMap::find(const GUID& id) const {
    const auto found = std::lower_bound(
        byId_.begin(), byId_.end(), id, [this](std::uint32_t index, const GUID& wanted) {
            return ruvex::GuidLess{}(entries_[index].definition.id, wanted);
        });
    if (found == byId_.end() || !(entries_[*found].definition.id == id)) return nullptr;
    return &entries_[*found];
}
