// Values of properties as doubles.

#pragma once

#include "sdk/properties/property_def.h"

namespace ruvex::runtime {

/// The value as the property stores it. Throws Error for a value that does not fit its type: reals
/// are finite, integers have 32 bits, booleans are 0 or 1.
VARIANT toVariant(const CDSParamDef& definition, double value);

/// The value of a real, an integer or a boolean.
double fromVariant(const VARIANT& value);

}  // namespace ruvex::runtime
