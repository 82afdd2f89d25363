#include "sdk/registry/registry_contents.h"

#include <algorithm>
#include <utility>

namespace ruvex {
namespace {

void removeMatching(DSRegistryContents& contents, const DSRegisteredFamily& entry) {
    std::erase_if(contents.families, [&](const DSRegisteredFamily& known) {
        return known.classId == entry.classId && known.family == entry.family;
    });
}

}  // namespace

HRESULT addClass(DSRegistryContents& contents, const DSRegisteredClass& entry) {
    const auto known =
        std::ranges::find(contents.classes, entry.classId, &DSRegisteredClass::classId);
    if (known != contents.classes.end()) {
        *known = DSRegisteredClass(entry);
    } else {
        contents.classes.push_back(entry);
    }
    return S_OK;
}

HRESULT removeClass(DSRegistryContents& contents, const GUID& classId) {
    const auto removed = std::erase_if(
        contents.classes, [&](const DSRegisteredClass& known) { return known.classId == classId; });
    return removed > 0 ? S_OK : REGDB_E_CLASSNOTREG;
}

HRESULT addFamilies(DSRegistryContents& contents, std::span<const DSRegisteredFamily> entries) {
    // On a copy, so that the table is unchanged if memory runs out.
    DSRegistryContents changed = contents;
    for (const DSRegisteredFamily& entry : entries) removeMatching(changed, entry);
    changed.families.insert(changed.families.end(), entries.begin(), entries.end());
    contents = std::move(changed);
    return S_OK;
}

HRESULT removeFamilies(DSRegistryContents& contents, const GUID& classId,
                       std::span<const GUID> families) {
    const auto removed = std::erase_if(contents.families, [&](const DSRegisteredFamily& known) {
        return known.classId == classId &&
               std::ranges::find(families, known.family) != families.end();
    });
    return removed > 0 ? S_OK : REGDB_E_CLASSNOTREG;
}

}  // namespace ruvex
