// One pixel of a moved picture.

#pragma once

#include <cmath>
#include <cstdint>

#include "imaging/move_sampler.h"
#include "tests/imaging/twins/sample_twin.h"

namespace ruvex::twin {

/// A source position with its divisor.
struct Place {
    float x, y, w;
};

inline Place carried(const Matrix3& m, float x, float y) {
    return {x * m[0] + y * m[3] + 1.0f * m[6], x * m[1] + y * m[4] + 1.0f * m[7],
            x * m[2] + y * m[5] + 1.0f * m[8]};
}

/// The running position of Map pixel (x, y) in a row that begins at column `x0`.
inline Place runningPlace(const Matrix3& m, std::int32_t x0, std::int32_t x, std::int32_t y) {
    Place place = carried(m, static_cast<float>(x0) + 0.5f, static_cast<float>(y) + 0.5f);
    for (std::int32_t i = x0; i < x; ++i) {
        place.x += m[0];
        place.y += m[1];
        place.w += m[2];
    }
    return place;
}

inline bool nearWholeTwin(float position) {
    const float part = std::fabs(fmodf(position, 1.0f));
    return part <= 0.01f || part >= 0.99f;
}

inline float tapTwin(float position, std::int32_t c) {
    const float d = position - 0.5f - static_cast<float>(c);
    if (d == 0.0f) return 1.0f;
    const float t = d * 3.1415927f;
    const auto cosine = static_cast<float>(std::cos(static_cast<double>(t / 5.0f)));
    const auto sine = static_cast<float>(std::sin(static_cast<double>(t)));
    return (cosine + 1.0f) * 0.5f * sine / d;
}

/// The taps of floor(position) - 5 to + 5, divided by their sum.
inline void tapsTwin(float position, std::int32_t first, float (&taps)[11]) {
    float sum = 0.0f;
    for (int i = 0; i < 11; ++i) sum += taps[i] = tapTwin(position, minus(first, -i));
    for (float& tap : taps) tap /= sum;
}

template <class P>
RgbaFloat sincTwin(const VxTexture<P>& source, float x, float y) {
    if (nearWholeTwin(x) && nearWholeTwin(y)) return sampleTwin(source, x, y);
    const std::int32_t column = minus(floorInt(x), 5), row = minus(floorInt(y), 5);
    float across[11], down[11];
    tapsTwin(x, column, across);
    tapsTwin(y, row, down);
    RgbaFloat sum{};
    for (int k = 0; k < 4; ++k) {
        for (int j = 0; j < 11; ++j) {
            float line = 0.0f;
            for (int i = 0; i < 11; ++i) {
                const P pixel = wholePixelTwin(source, minus(column, -i), minus(row, -j));
                line += static_cast<float>(pixel.c[k]) * across[i];
            }
            sum.c[k] += line * down[j];
        }
    }
    return sum;
}

/// The sample that a filter takes for Map pixel (x, y).
template <class P>
RgbaFloat movedSampleTwin(const VxDualMoveSampler<P>& sampler, const VxTexture<P>& source,
                          std::int32_t x0, std::int32_t x, std::int32_t y) {
    const Matrix3& m = sampler.matrix;
    if (sampler.filter == MoveFilter::Footprint && sampler.perspective) {
        const Place a = carried(m, static_cast<float>(x), static_cast<float>(y));
        const Place b = carried(m, static_cast<float>(x) + 1.0f, static_cast<float>(y) + 1.0f);
        return sampleTwin(source, (a.x / a.w + b.x / b.w) * 0.5f, (a.y / a.w + b.y / b.w) * 0.5f);
    }
    Place place = runningPlace(m, x0, x, y);
    if (sampler.perspective) {
        place.x /= place.w;
        place.y /= place.w;
    }
    if (sampler.filter == MoveFilter::Nearest) {
        const P pixel = wholePixelTwin(source, floorInt(place.x), floorInt(place.y));
        RgbaFloat result;
        for (int k = 0; k < 4; ++k) result.c[k] = static_cast<float>(pixel.c[k]);
        return result;
    }
    if (sampler.filter == MoveFilter::Sinc) return sincTwin(source, place.x, place.y);
    return sampleTwin(source, place.x, place.y);
}

/// What Map pixel (x, y) becomes, having been `before`.
template <class P>
P movedPixelTwin(const VxDualMoveSampler<P>& sampler, const VxTexture<P>& source, std::int32_t x0,
                 std::int32_t x, std::int32_t y, const P& before) {
    using T = typename P::Component;
    if (static_cast<std::uint32_t>(sampler.filter) > 3) return before;
    if (sampler.filter == MoveFilter::Sinc && sampler.accumulate) return before;
    const RgbaFloat sample = movedSampleTwin(sampler, source, x0, x, y);
    P result;
    for (int k = 0; k < 4; ++k) {
        const auto stored = static_cast<T>(toInt(sample.c[k]));
        if (sampler.accumulate) {
            const bool weighted = sampler.filter != MoveFilter::Bilinear || !sampler.perspective;
            const std::int32_t amount =
                weighted ? toInt(static_cast<float>(stored) * sampler.weight) : stored;
            result.c[k] = static_cast<T>(static_cast<std::int64_t>(before.c[k]) + amount);
        } else if (sampler.filter == MoveFilter::Sinc) {
            const float low = sizeof(T) == 1 ? 0.0f : -32768.0f;
            const float high = sizeof(T) == 1 ? 255.0f : 32767.0f;
            const float v = sample.c[k];
            result.c[k] = v < low    ? static_cast<T>(low)
                          : v > high ? static_cast<T>(high)
                                     : static_cast<T>(toInt(v));
        } else {
            result.c[k] = stored;
        }
    }
    return result;
}

}  // namespace ruvex::twin
