#include "imaging/maths/sinc.h"

#include <cmath>

#include "imaging/maths/maths.h"
#include "imaging/maths/wrap.h"
#include "imaging/pixel_convert.h"

namespace ruvex {
namespace {

constexpr float kPi = 3.1415927f;
// A position is near a whole number if its fraction is at most 0.01 or at least 0.99.
constexpr float kNearWhole = 0.01f;
constexpr float kNearNextWhole = 0.99f;

// sin(pi d) / d times the Hann window (cos(pi d / radius) + 1) / 2, for a distance d in pixels.
// That is pi times the sinc; dividing by the sum of the taps removes the factor. At d = 0 the tap
// is 1 and not pi: pictures depend on it.
float sincTap(float d) {
    if (d == 0.0f) return 1.0f;
    constexpr auto kRadius = static_cast<float>(kSincRadius);
    const float t = d * kPi;
    const auto cosine = static_cast<float>(maths::cos(t / kRadius));
    const auto sine = static_cast<float>(maths::sin(t));
    return (cosine + 1.0f) * 0.5f * sine / d;
}

}  // namespace

SincAxis sincAxis(const TexAxis& axis, float position) {
    SincAxis result;
    result.position = position;
    const float fraction = std::fabs(std::fmod(position, 1.0f));
    result.nearWhole = fraction <= kNearWhole || fraction >= kNearNextWhole;

    const std::int32_t start = wrapSubtract(floorToInt(position), kSincRadius);
    float sum = 0.0f;
    for (int i = 0; i < kSincTaps; ++i) {
        const std::int32_t at = wrapAdd(start, i);
        result.index[i] = axis.mapIndex(wrapSubtract(at, axis.origin));
        result.tap[i] = sincTap(position - 0.5f - static_cast<float>(at));
        sum += result.tap[i];
    }
    for (float& tap : result.tap) tap /= sum;
    return result;
}

}  // namespace ruvex
