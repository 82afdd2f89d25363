// The type with which the host stores a parameter.

#pragma once

#include "parameters/parameter_row.h"
#include "sdk/com/variant.h"

namespace ruvex {

/// VT_R8 for reals, VT_BOOL for check boxes, otherwise VT_I4.
constexpr VARTYPE variantTypeOf(ParameterKind kind) {
    if (isReal(kind)) return VT_R8;
    return isCheckBox(kind) ? VT_BOOL : VT_I4;
}

}  // namespace ruvex
