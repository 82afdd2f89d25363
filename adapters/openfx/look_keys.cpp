#include "adapters/openfx/look_keys.h"

#include <algorithm>
#include <iterator>
#include <set>

#include "adapters/openfx/parameter_list.h"

namespace ruvex::openfx {
namespace {

constexpr double kOneFrame = 1.0;

/// The value of a channel, in percent, at a moment in seconds.
double percentAt(const looks::ParameterChange& channel, double seconds) {
    if (const auto* setting = std::get_if<looks::Setting>(&channel)) return setting->value;
    std::vector<DSKey> keys;
    for (const looks::Key& key : std::get<looks::Animation>(channel).keys) {
        keys.push_back({key.seconds, key.value, key.mode});
    }
    const auto animation = DSAnimation::fromKeys(std::move(keys));
    return animation ? animation->valueAt(seconds) : 0.0;
}

/// The host's times at which a channel has keys.
std::set<double> keyTimesOf(std::span<const looks::ParameterChange> channels,
                            const EffectClock& clock) {
    std::set<double> times;
    for (const looks::ParameterChange& channel : channels) {
        const auto* animation = std::get_if<looks::Animation>(&channel);
        if (!animation) continue;
        for (const FrameKey& key : hostKeys(*animation, clock)) times.insert(key.frame);
    }
    if (times.empty()) times.insert(clock.hostTimeAt(0.0));
    return times;
}

}  // namespace

std::vector<FrameKey> hostKeys(const looks::Animation& animation, const EffectClock& clock) {
    std::vector<FrameKey> keys;
    for (auto key = animation.keys.begin(); key != animation.keys.end(); ++key) {
        keys.push_back({clock.hostTimeAt(key->seconds), key->value});
        const auto next = std::next(key);
        if (key->mode != looks::KeyMode::Hold || next == animation.keys.end()) continue;
        const double held = clock.hostTimeAt(next->seconds) - kOneFrame;
        if (held > keys.back().frame) keys.push_back({held, key->value});
    }
    return keys;
}

std::vector<ColourKey> hostColours(std::span<const looks::ParameterChange> channels,
                                   const EffectClock& clock) {
    std::vector<ColourKey> keys;
    for (const double time : keyTimesOf(channels, clock)) {
        ColourKey key{time, {}};
        const double seconds = (time - clock.firstFrame) / clock.rate;
        for (std::size_t i = 0; i < channels.size(); ++i) {
            key.colour[i] = percentAt(channels[i], seconds) / kPercentOfWhite;
        }
        keys.push_back(key);
    }
    return keys;
}

}  // namespace ruvex::openfx
