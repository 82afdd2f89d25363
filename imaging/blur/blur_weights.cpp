#include "imaging/blur/blur_weights.h"

#include "imaging/pixel_convert.h"

namespace ruvex {
namespace {
constexpr float kFixedOne = 16384.0f;  // 1.0 in 14-bit fixed point
}

BoxWeights::BoxWeights(float size) : radius(truncateToInt(size)) {
    edgeFactor = size - static_cast<float>(radius);
    fraction = edgeFactor != 0.0f;
    identity = size == 0.0f;
    reach = radius + (fraction ? 1 : 0);
    span = radius + 1 + reach;
    // The division must be in single precision: its rounding decides the weight's last bit.
    boxFactor = 1.0f / (static_cast<float>(2 * radius + 1) + 2.0f * edgeFactor);
    boxWeight = truncateToInt(boxFactor * kFixedOne);
    edgeWeight = truncateToInt(edgeFactor * kFixedOne);
}

}  // namespace ruvex
