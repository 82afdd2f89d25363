// Where the marks and the words of a plot go.

#pragma once

#include <vector>

namespace ruvex::cli {

/// The smallest of 1, 2 and 5 times a power of ten that cuts `length` into at most `most` parts and
/// is not below `least`, itself such a number. `length` is at least 0, `most` at least 1.
double niceStep(double length, int most, double least);

/// The multiples of `step` from `low` to `high`, both included as far as rounding can tell.
std::vector<double> multiplesWithin(double low, double high, double step);

/// Places as near as can be to the wanted ones, in any order, at least `gap` apart and from `low`
/// to `high`: the sum of the squares of the moves is the least, before the ends are kept. Equal
/// wishes keep their order. There is room for all of them.
std::vector<double> spread(const std::vector<double>& wanted, double gap, double low, double high);

}  // namespace ruvex::cli
