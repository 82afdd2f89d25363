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

/// The row whose label `label` is, without regard to case and spaces; null where there is none.
const ParameterRow* findParameter(std::string_view label);

/// The row with this identifier; null where there is none.
const ParameterRow* findParameter(const GUID& identifier);

/// The row whose label takes the fewest single changes of a character to come from `label`, again
/// without regard to case and spaces; the first in the table where several are as near. For
/// telling a user what was perhaps meant.
const ParameterRow& nearestParameter(std::string_view label);

/// The value that the render uses for `value`: clamped as the row says, or unchanged where the row
/// has no clamp. NaN counts as below every range and gives the low end of the clamp;
/// without a clamp it stays NaN.
double renderClamp(ParameterId id, double value);

/// "%", "px" and so on, for words and tables; empty for a plain number.
std::string_view unitText(Unit unit);

}  // namespace ruvex
