#include "effect/signal_level.h"

#include <algorithm>

#include "effect/frame_integral.h"
#include "effect/percent.h"
#include "effect/walk_check.h"
#include "imaging/maths/random.h"
#include "imaging/noise/gradient_noise.h"

namespace ruvex {
namespace {

constexpr std::int32_t kLevelOctaves = 8;
constexpr float kSeedSpread = 100.0f;

// NaN becomes 0, an undisturbed signal.
float clampToUnit(float value) {
    return value > 0.0f ? std::min(value, 1.0f) : 0.0f;
}

float seedOffsetOf(std::int32_t seed) {
    auto state = static_cast<std::uint32_t>(seed);
    return uniform(state) * kSeedSpread;
}

// A percentage as a level, computed in float.
float levelOf(double percent) {
    return static_cast<float>(percent) * 0.01f;
}

}  // namespace

SignalLevel::SignalLevel(const ParameterReader& reader, double hostRate)
    : master_(reader.curve(ParameterId::MasterBreakup)),
      variation_(reader.curve(ParameterId::BreakupVariation)),
      speed_(reader.curve(ParameterId::BreakupSpeed)),
      hostRate_(hostRate),
      seedOffset_(seedOffsetOf(reader.integer(ParameterId::Seed))) {}

float SignalLevel::varied(float level, double variation, double phase) const {
    const float place = static_cast<float>(phase * kPercent) + seedOffset_;
    const double change =
        static_cast<float>(variation) * kPercent * noiseTable().fractalNoise(place, kLevelOctaves);
    return clampToUnit(static_cast<float>(level + change));
}

template <class Phase>
float SignalLevel::levelAt(double seconds, Phase phase) const {
    const float level = levelOf(master_.at(seconds));
    const double variation = variation_.at(seconds);
    return variation == 0.0 ? level : varied(level, variation, phase());
}

float SignalLevel::at(double seconds, double playTime) const {
    return levelAt(seconds, [&] { return integrateParameter(speed_, hostRate_, 0.0, playTime); });
}

std::vector<float> SignalLevel::atAll(const std::vector<double>& seconds,
                                      const std::vector<double>& playTimes) const {
    std::vector<float> levels(seconds.size());
    std::vector<std::size_t> rising;
    for (std::size_t i = 0; i < levels.size(); ++i) {
        // Also for NaN, which has no place in an order.
        if (!(playTimes[i] > 0.0)) {
            levels[i] = at(seconds[i], playTimes[i]);
        } else {
            rising.push_back(i);
        }
    }
    std::ranges::sort(rising, {}, [&](std::size_t i) { return playTimes[i]; });
    FrameIntegral phase(speed_, hostRate_, 0.0);
    for (const std::size_t i : rising) {
        levels[i] = levelAt(seconds[i], [&] { return phase.upTo(playTimes[i]); });
    }
    return levels;
}

std::vector<float> SignalLevel::atEarlier(const std::vector<float>& moments) const {
    std::vector<float> levels(moments.size());
    FrameIntegral phase(speed_, hostRate_, 0.0);
    WalkCheck check(master_.interruption());
    for (std::size_t i = moments.size(); i-- > 0;) {
        if (check.stops()) break;
        const double moment = moments[i];
        // Raw values: Master Breakup is not clamped here, and a negative Breakup Variation counts
        // as 0. The resulting level is clamped to 0..1.
        levels[i] = levelOf(master_.rawAt(moment));
        if (variation_.rawAt(moment) == 0.0) continue;
        levels[i] = varied(levels[i], variation_.at(moment), phase.upTo(moment));
    }
    return levels;
}

}  // namespace ruvex
