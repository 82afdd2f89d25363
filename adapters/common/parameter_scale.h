// Values of parameters from 0 to 1, as some hosts want them, over the range of the page's control.

#pragma once

#include "parameters/parameter_row.h"

namespace ruvex::adapters {

/// The value for a position on the control: its low end at 0, its high end at 1. A position beyond
/// these counts as the nearer one; it must not be NaN. Reals are rounded to a billionth, so that
/// 0.575 of -200..200 is exactly 30, as a user who types 30 gets it; other kinds to whole numbers.
/// The row must have a control range.
double valueAt(const ParameterRow& row, double position);

/// The position of a value, from 0 to 1.
double positionOf(const ParameterRow& row, double value);

/// The percentage for a colour channel from 0 to 1, rounded to a ten-thousandth: hosts store
/// channels as floats, and 0.65f is to be 65 %.
double channelPercent(double channel);

}  // namespace ruvex::adapters
