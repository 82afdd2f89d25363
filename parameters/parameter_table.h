// Access to the table of parameters, from which the property map, the pages, the command line and
// the documents are made.

#pragma once

#include <span>
#include <string_view>

#include "parameters/parameter_row.h"

namespace ruvex {

/// Every row, in the order of ParameterId.
std::span<const ParameterRow> parameterTable();

/// The row of one parameter; `id` is never Count.
const ParameterRow& row(ParameterId id);

/// The row with this label, ignoring case and spaces; null if there is none.
const ParameterRow* findParameter(std::string_view label);

/// The row with this identifier; null if there is none.
const ParameterRow* findParameter(const GUID& identifier);

/// The row whose label has the smallest labelDistance from `label`, the first of several. For
/// suggestions in error messages.
const ParameterRow& nearestParameter(std::string_view label);

/// The value that the render uses for `value`: clamped as the row says, or unchanged if the row has
/// no clamp. A clamp turns NaN into its low end.
double renderClamp(ParameterId id, double value);

/// "%", "px" and so on, for words and tables; empty for a plain number.
std::string_view unitText(Unit unit);

}  // namespace ruvex
