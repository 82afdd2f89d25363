// Whole numbers of what plug-ins and tests pass as reals.

#pragma once

#include <algorithm>
#include <cmath>
#include <limits>

namespace ruvex::ofxhost {

/// The number rounded down, held to what an int has; 0 for NaN.
inline int wholeNumber(double number) {
    if (std::isnan(number)) return 0;
    return static_cast<int>(std::clamp<double>(std::floor(number), std::numeric_limits<int>::min(),
                                               std::numeric_limits<int>::max()));
}

}  // namespace ruvex::ofxhost
