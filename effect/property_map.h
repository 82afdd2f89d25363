// The static property map of the effect, made from the parameter table.

#pragma once

#include <span>

#include "sdk/properties/property_def.h"

namespace ruvex {

/// One entry for each row of the table, in its order, with the member of Ruvex that holds the
/// value. The first call builds the entries and needs the module handle; they are valid as long as
/// the module.
std::span<const CDSPropertiesMapEntry> propertyMapEntries();

}  // namespace ruvex
