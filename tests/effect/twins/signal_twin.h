// The signal level and its walks as they are told: every value worked out from the start, however
// often the same one is needed.

#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "host/base/parameter_reader.h"
#include "imaging/noise/gradient_noise.h"

namespace ruvex::twin {

/// A double as a 32-bit integer; what doesn't fit is the lowest integer.
inline std::int32_t whole(double value) {
    const double cut = std::trunc(value);
    return cut >= -2147483648.0 && cut <= 2147483647.0 ? static_cast<std::int32_t>(cut) : INT32_MIN;
}

/// The percent factor: the single-precision 0.01 as a double.
inline constexpr double kHundredth = static_cast<double>(0.01f);

/// The time line of one effect. Times in seconds.
struct SignalTwin {
    const ParameterReader& parameters;
    double sampleRate;
    std::int32_t seed;

    double value(ParameterId id, double t) const { return parameters.rawReal(id, t); }
    float frameRate() const { return static_cast<float>(sampleRate); }
    float fraction(double percent) const { return static_cast<float>(percent * kHundredth); }

    double integral(ParameterId id, double start, double end) const {
        const double dt = 1.0 / sampleRate;
        double acc = 0.0;
        float t = static_cast<float>(start);
        double next = t + dt;
        while (end >= next) {
            acc += value(id, t) * dt;
            t = static_cast<float>(next);
            next = t + dt;
        }
        const double rest = end - t;
        if (rest > 0.0) acc += value(id, end) * rest;
        return acc;
    }

    float seedOffset() const {
        const std::uint32_t s1 = static_cast<std::uint32_t>(seed) * 1103515245u + 12345u;
        const std::uint32_t s2 = s1 * 1103515245u + 12345u;
        const auto random =
            static_cast<std::int32_t>(((s2 >> 16) & 255u) ^ (((s1 >> 16) & 255u) << 7));
        return static_cast<float>(random) * 3.0518509e-05f * 100.0f;
    }

    float wobbled(float level, double variation, double playTime) const {
        const double phase = integral(ParameterId::BreakupSpeed, 0.0, playTime);
        const float noise =
            noiseTable().fractalNoise(static_cast<float>(phase * kHundredth) + seedOffset(), 8);
        level = static_cast<float>(level + static_cast<float>(variation) * kHundredth * noise);
        return level < 0.0f ? 0.0f : level > 1.0f ? 1.0f : level;
    }

    /// The level of the frame itself.
    float level(double t, double playTime) const {
        const double master = std::clamp(value(ParameterId::MasterBreakup, t), 0.0, 100.0);
        const double variation = std::max(value(ParameterId::BreakupVariation, t), 0.0);
        const float level = static_cast<float>(master) * 0.01f;
        return variation == 0.0 ? level : wobbled(level, variation, playTime);
    }

    /// The level of an earlier moment.
    float levelBefore(float moment) const {
        const double asItStands = value(ParameterId::BreakupVariation, moment);
        const float level = static_cast<float>(value(ParameterId::MasterBreakup, moment)) * 0.01f;
        return asItStands == 0.0 ? level : wobbled(level, std::max(asItStands, 0.0), moment);
    }

    double lineSum(float sourcePosition, float breakup) const {
        double sum = 0.0;
        float b = breakup;
        float frame = sourcePosition;
        while (frame > 0.01) {
            const float moment = frame / frameRate();
            const double speed = value(ParameterId::LineSpeedMax, moment) / frameRate();
            const float th = fraction(value(ParameterId::LineThreshold, moment));
            if (th < 1.0f && th < b) sum += (double{b} - th) * speed / (1.0 - th);
            frame -= 1.0f;
            b = levelBefore(moment);
        }
        return sum;
    }

    std::int32_t verticalSum(double time, float sourcePosition, float breakup) const {
        const auto held = [&](ParameterId id) {
            return fraction(std::clamp(value(id, time), 0.0, 100.0));
        };
        const float offsetThreshold = held(ParameterId::VertOffsetThreshold);
        std::int32_t sum = 0;
        if (offsetThreshold < 1.0f && offsetThreshold < breakup) {
            sum = whole((double{breakup} - offsetThreshold) *
                        value(ParameterId::VertOffsetMax, time) / (1.0 - offsetThreshold));
        }
        const float rollThreshold = held(ParameterId::VertRollThreshold);
        if (!(rollThreshold < 1.0f) || !(rollThreshold < breakup)) return sum;
        float b = breakup;
        float frame = sourcePosition;
        for (;;) {
            if (frame <= 0.01) break;
            const float moment = frame / frameRate();
            const float th = fraction(value(ParameterId::VertRollThreshold, moment));
            const double speed = value(ParameterId::VertRollSpeedMax, moment) / frameRate();
            if (!(th < 1.0f)) break;
            sum = whole((double{b} - th) * speed / (1.0 - th) + static_cast<float>(sum));
            frame -= 1.0f;
            b = levelBefore(frame / frameRate());
            if (!(th < b)) break;
        }
        return sum;
    }

    std::int32_t shashFramesOn(double time, float frameNow, float breakup) const {
        const float th = fraction(std::clamp(value(ParameterId::ShashThreshold, time), 0.0, 100.0));
        std::int32_t count = 0;
        float b = breakup;
        float frame = frameNow;
        while (frame > 0.01) {
            if (th < 1.0f && th < b) count += 1;
            const float moment = frame / frameRate();
            frame -= 1.0f;
            b = levelBefore(moment);
        }
        return count;
    }
};

}  // namespace ruvex::twin
