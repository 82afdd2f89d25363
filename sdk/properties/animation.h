// The course of a real over time.

#pragma once

#include <optional>
#include <vector>

#include "sdk/com/com.h"

/// At `time`, in seconds, the property has `value`.
struct DSKey {
    double time;
    double value;

    friend bool operator==(const DSKey&, const DSKey&) = default;
};

/// At least one key, sorted by time, each time once. Linear between keys, held outside them.
class DSSDK_API DSAnimation {
public:
    /// Sorts the keys; of several with one time the last given wins. No value for an empty list or
    /// when a time or value is not finite.
    static std::optional<DSAnimation> fromKeys(std::vector<DSKey> keys);

    /// The value at a time: a binary search and one interpolation. A time that is NaN reads the
    /// last key.
    double valueAt(double time) const;

    const std::vector<DSKey>& keys() const { return keys_; }

private:
    explicit DSAnimation(std::vector<DSKey> keys) : keys_(std::move(keys)) {}

    std::vector<DSKey> keys_;
};
