// Addition of doubles that stand for decimal numbers.

#pragma once

namespace ruvex {

/// The sum as in decimal arithmetic with 15 digits: 0.1 + 0.2 is 0.3, and 100.1 - 100 is 0.1. Not
/// finite if the sum of the doubles is not.
double decimalSum(double value, double added);

}  // namespace ruvex
