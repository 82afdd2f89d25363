#include "imaging/blur/blur_weights.h"

#include "imaging/pixel_convert.h"

namespace ruvex {
namespace {
constexpr float kFixedOne = 16384.0f;
}

BoxWeights::BoxWeights(float size) : radius(truncateToInt(size)) {
    edgeFactor = size - static_cast<float>(radius);
    fraction = edgeFactor != 0.0f;
    identity = size == 0.0f;
    reach = radius + (fraction ? 1 : 0);
    span = radius + 1 + reach;
    // The reciprocal is single precision: its rounding shows in the last bit of the weight.
    boxFactor = 1.0f / (static_cast<float>(2 * radius + 1) + 2.0f * edgeFactor);
    boxWeight = truncateToInt(boxFactor * kFixedOne);
    edgeWeight = truncateToInt(edgeFactor * kFixedOne);
}

}  // namespace ruvex
