// The values that the Reset button of each page sets.

#pragma once

#include <span>

#include "parameters/parameter_id.h"
#include "parameters/parameter_row.h"

namespace ruvex {

struct ParameterValue {
    ParameterId id;
    double value;  ///< a whole number for every kind but Real
};

/// What Reset sets on a page, in the order in which it is set; empty for a page without the button
/// (Help, Host). A colour is a row for each of its channels, one after the other; the tint has no
/// alpha. Parameters of other pages are not changed.
std::span<const ParameterValue> resetValues(ParameterPage page);

}  // namespace ruvex
