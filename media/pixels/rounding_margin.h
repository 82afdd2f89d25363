// How wrong sums of products in floating point can be.

#pragma once

#include <cmath>
#include <limits>

namespace ruvex::media {

/// The most by which a sum of up to four terms is wrong if it is computed in `Real` and truncated.
/// `size` is the largest sum of the terms' absolute values. A term is the product of a rounded
/// factor and a rounded value; its three roundings and those of the three additions are each wrong
/// by at most half an epsilon of what they round.
template <class Real>
int roundingMargin(double size) {
    constexpr int kRoundingsOfTerm = 3;
    constexpr int kAdditions = 3;
    constexpr double kRounding = std::numeric_limits<Real>::epsilon() / 2;
    const double error = size * kRounding * (kRoundingsOfTerm + kAdditions);
    constexpr int kTruncation = 1;
    return static_cast<int>(std::ceil(error)) + kTruncation;
}

}  // namespace ruvex::media
