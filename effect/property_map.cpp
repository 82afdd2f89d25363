#include "effect/property_map.h"

#include <algorithm>
#include <array>

#include "effect/ruvex.h"
#include "host/base/variant_type.h"

namespace ruvex {
namespace {

ULONG capabilitiesOf(ParameterKind kind) {
    switch (kind) {
        case ParameterKind::Real:
            return DSCAPS_ANIMATABLE;
        case ParameterKind::UiInt:
        case ParameterKind::UiBool:
            return DSCAPS_USER_INTERFACE;
        default:
            return DSCAPS_PLAIN;
    }
}

void* memberOf(CDSBasePropertyContainer& container, std::uint32_t index) {
    return static_cast<Ruvex&>(container).parameters.member(static_cast<ParameterId>(index));
}

CDSPropertiesMapEntry entryOf(const ParameterRow& row) {
    const auto name = static_cast<UINT>(row.nameString);
    return {.definition = {.id = row.identifier,
                           .module = moduleInstance,
                           .classification = DSCLASS_EFFECT_PARAMETER,
                           .capabilities = capabilitiesOf(row.kind),
                           .type = variantTypeOf(row.kind),
                           .nameId = name,
                           .shortNameId = name,
                           .descriptionId = static_cast<UINT>(row.hintString)},
            .member = memberOf,
            .index = static_cast<std::uint32_t>(row.id)};
}

std::array<CDSPropertiesMapEntry, kParameterCount> makeEntries() {
    std::array<CDSPropertiesMapEntry, kParameterCount> entries{};
    std::ranges::transform(parameterTable(), entries.begin(), entryOf);
    return entries;
}

}  // namespace

std::span<const CDSPropertiesMapEntry> propertyMapEntries() {
    static const auto entries = makeEntries();
    return entries;
}

}  // namespace ruvex
