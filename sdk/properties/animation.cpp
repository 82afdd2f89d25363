#include "sdk/properties/animation.h"

#include <algorithm>
#include <cmath>

namespace {

bool isValid(const DSKey& key) {
    return std::isfinite(key.time) && std::isfinite(key.value) && key.mode <= DSKeyMode::Smooth;
}

/// The value at `fraction`, 0 to 1, of the segment between two key frames.
double interpolate(const DSKey& from, const DSKey& to, double fraction) {
    switch (from.mode) {
        case DSKeyMode::Hold:
            return from.value;
        case DSKeyMode::Smooth:
            // The cubic u u (3 - 2 u): from 0 to 1, with slope 0 at both ends.
            return from.value +
                   (to.value - from.value) * fraction * fraction * (3.0 - 2.0 * fraction);
        default:
            return from.value + (to.value - from.value) * fraction;
    }
}

/// Of consecutive keys with the same time, keeps only the last.
void dropRepeatedTimes(std::vector<DSKey>& keys) {
    std::size_t kept = 0;
    for (const DSKey& key : keys) {
        if (kept > 0 && keys[kept - 1].time == key.time) --kept;
        keys[kept++] = key;
    }
    keys.resize(kept);
}

}  // namespace

std::optional<DSAnimation> DSAnimation::fromKeys(std::vector<DSKey> keys) {
    if (keys.empty() || !std::all_of(keys.begin(), keys.end(), isValid)) return std::nullopt;
    // Stable: of keys with the same time, the one given last must stay last.
    std::stable_sort(keys.begin(), keys.end(),
                     [](const DSKey& a, const DSKey& b) { return a.time < b.time; });
    dropRepeatedTimes(keys);
    return DSAnimation(std::move(keys));
}

std::vector<DSKey>::const_iterator DSAnimation::firstAfter(double time) const {
    return std::upper_bound(keys_.begin(), keys_.end(), time,
                            [](double seconds, const DSKey& key) { return seconds < key.time; });
}

double DSAnimation::valueAt(double time) const {
    const auto after = firstAfter(time);
    if (after == keys_.begin()) return keys_.front().value;
    if (after == keys_.end()) return keys_.back().value;
    const DSKey& from = *(after - 1);
    const double fraction = (time - from.time) / (after->time - from.time);
    return interpolate(from, *after, fraction);
}

DSKeyMode DSAnimation::modeAt(double time) const {
    const auto after = firstAfter(time);
    return after == keys_.begin() ? DSKeyMode::Linear : (after - 1)->mode;
}
