// The static property map of the effect, made from the parameter table.

#pragma once

#include <span>

#include "sdk/properties/property_def.h"

namespace ruvex {

/// One entry for each row, in the table's order, tied to the members of a Ruvex. The module handle
/// must be known at the first call, which makes them; they live as long as the module.
std::span<const CDSPropertiesMapEntry> propertyMapEntries();

}  // namespace ruvex
