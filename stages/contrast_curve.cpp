#include "stages/contrast_curve.h"

#include "imaging/maths/maths.h"

namespace ruvex {
namespace {

// The lower half of the curve for a contrast below 0; m is 0 to a half.
float softened(float m, float contrast) {
    constexpr double kLeast = 1.5259021896696422e-05;  // 1 / 65535
    if (m < kLeast) m = 1.5259022e-05f;
    return static_cast<float>(maths::pow(m * 2.0, (contrast + 0.5) * 2.0) * 0.5);
}

float hardened(float m, float contrast) {
    constexpr double kStep = 3.4028234663852886e+38;
    const auto e = static_cast<float>(contrast >= 0.5 ? kStep : 0.5 / (0.5 - contrast));
    const auto base = static_cast<float>(m * 2.0);
    if (e == 1.0f) return static_cast<float>(base * 0.5);  // as the power gives it, in no time
    return static_cast<float>(static_cast<float>(maths::pow(base, e)) * 0.5);
}

}  // namespace

float contrastCurve(float x, float contrast) {
    if (contrast >= 0.0f && x > 1.0f) return x;
    const bool upper = x > 0.5f;
    const float m = upper ? static_cast<float>(1.0 - x) : x;
    float r = contrast < 0.0f ? softened(m, contrast) : hardened(m, contrast);
    if (!(r > 0.0f)) r = 0.0f;
    const float result = upper ? 1.0f - r : r;
    return result > 0.0f ? result : 0.0f;
}

}  // namespace ruvex
