#include "sdk/properties/animation.h"

#include <algorithm>
#include <cmath>

namespace {

bool isFinite(const DSKey& key) {
    return std::isfinite(key.time) && std::isfinite(key.value);
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
    if (keys.empty() || !std::all_of(keys.begin(), keys.end(), isFinite)) return std::nullopt;
    // Stable: of keys with the same time, the one given last must stay last.
    std::stable_sort(keys.begin(), keys.end(),
                     [](const DSKey& a, const DSKey& b) { return a.time < b.time; });
    dropRepeatedTimes(keys);
    return DSAnimation(std::move(keys));
}

double DSAnimation::valueAt(double time) const {
    const auto after =
        std::upper_bound(keys_.begin(), keys_.end(), time,
                         [](double seconds, const DSKey& key) { return seconds < key.time; });
    if (after == keys_.begin()) return keys_.front().value;
    if (after == keys_.end()) return keys_.back().value;
    const DSKey& from = *(after - 1);
    const double fraction = (time - from.time) / (after->time - from.time);
    return from.value + (after->value - from.value) * fraction;
}
