// The animation of a real: key frames over time.

#pragma once

#include <optional>
#include <vector>

#include "sdk/com/com.h"

/// A key frame: at `time`, in seconds, the property has `value`.
struct DSKey {
    double time;
    double value;

    friend bool operator==(const DSKey&, const DSKey&) = default;
};

/// At least one key frame, sorted by time, without two at the same time. The value is interpolated
/// linearly between keys, and constant before the first and after the last.
class DSSDK_API DSAnimation {
public:
    /// Sorts the keys; of several with the same time, the one given last counts. No value if the
    /// list is empty or a time or value is not finite.
    static std::optional<DSAnimation> fromKeys(std::vector<DSKey> keys);

    /// The value at `time` in seconds, by binary search. For NaN the value of the last key.
    double valueAt(double time) const;

    const std::vector<DSKey>& keys() const { return keys_; }

private:
    explicit DSAnimation(std::vector<DSKey> keys) : keys_(std::move(keys)) {}

    std::vector<DSKey> keys_;
};
