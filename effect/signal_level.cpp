#include "effect/signal_level.h"

#include <algorithm>

#include "effect/frame_integral.h"
#include "effect/percent.h"
#include "imaging/maths/random.h"
#include "imaging/noise/gradient_noise.h"

namespace ruvex {
namespace {

constexpr std::int32_t kLevelOctaves = 8;
constexpr float kSeedSpread = 100.0f;

// Not a number counts as no signal trouble at all.
float holdToUnit(float value) {
    return value > 0.0f ? std::min(value, 1.0f) : 0.0f;
}

float seedOffsetOf(std::int32_t seed) {
    auto state = static_cast<std::uint32_t>(seed);
    return uniform(state) * kSeedSpread;
}

// Percent to fraction, in single precision throughout.
float levelOf(double percent) {
    return static_cast<float>(percent) * 0.01f;
}

}  // namespace

SignalLevel::SignalLevel(const ParameterReader& reader, double sampleRate, std::int32_t seed)
    : master_(reader.curve(ParameterId::MasterBreakup)),
      variation_(reader.curve(ParameterId::BreakupVariation)),
      speed_(reader.curve(ParameterId::BreakupSpeed)),
      sampleRate_(sampleRate),
      seedOffset_(seedOffsetOf(seed)) {}

float SignalLevel::wobbled(float level, double variation, double phase) const {
    const float place = static_cast<float>(phase * kPercent) + seedOffset_;
    const double wobble =
        static_cast<float>(variation) * kPercent * noiseTable().fractalNoise(place, kLevelOctaves);
    return holdToUnit(static_cast<float>(level + wobble));
}

float SignalLevel::at(double time, double playTime) const {
    const float level = levelOf(renderClamp(ParameterId::MasterBreakup, master_.at(time)));
    const double variation = renderClamp(ParameterId::BreakupVariation, variation_.at(time));
    if (variation == 0.0) return level;
    return wobbled(level, variation, integrateParameter(speed_, sampleRate_, 0.0, playTime));
}

std::vector<float> SignalLevel::atEarlier(const std::vector<float>& moments) const {
    std::vector<float> levels(moments.size());
    FrameIntegral phase(speed_, sampleRate_, 0.0);
    for (std::size_t i = moments.size(); i-- > 0;) {
        const double moment = moments[i];
        // Master Breakup is taken as it stands here, whatever its range.
        levels[i] = levelOf(master_.at(moment));
        const double variation = variation_.at(moment);
        if (variation == 0.0) continue;
        levels[i] = wobbled(levels[i], renderClamp(ParameterId::BreakupVariation, variation),
                            phase.upTo(moment));
    }
    return levels;
}

}  // namespace ruvex
