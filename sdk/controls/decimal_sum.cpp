#include "sdk/controls/decimal_sum.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace ruvex {
namespace {

/// So many significant digits of a decimal number survive the way through a double.
constexpr int kExactDigits = 15;

/// The value with so many decimals that is nearest to `value`.
double roundedToDecimals(double value, int decimals) {
    std::array<char, 400> text;  // more than the digits of the largest double
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value,
                                   std::chars_format::fixed, decimals)
                         .ptr;
    double rounded = value;
    std::from_chars(text.data(), end, rounded);
    return rounded;
}

}  // namespace

double decimalSum(double value, double added) {
    if (!std::isfinite(value + added)) return value + added;
    constexpr double kTiny = 1e-300;  // zero has no logarithm
    const double largest = std::max({std::abs(value), std::abs(added), kTiny});
    const int digitsBeforePoint = static_cast<int>(std::floor(std::log10(largest))) + 1;
    const int decimals = std::clamp(kExactDigits - digitsBeforePoint, 0, kExactDigits);
    return roundedToDecimals(value + added, decimals);
}

}  // namespace ruvex
