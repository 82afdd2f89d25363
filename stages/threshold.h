// When a fault of the signal shows and how much of it: the level against a threshold.

#pragma once

namespace ruvex {

/// Level, threshold and their difference are single precision in every form. A level or a threshold
/// that is not a number is never above, nor below.

/// Whether a level lies above a threshold: at exactly the threshold nothing shows yet.
constexpr bool aboveThreshold(float level, float threshold) {
    return level > threshold;
}

/// The same for a fault that a threshold of 1 or more switches off, whatever the level.
constexpr bool actsAt(float level, float threshold) {
    return aboveThreshold(level, threshold) && threshold < 1.0f;
}

/// The line through 0 at the threshold and `max` at a level of 1, below and beyond both too. Good
/// for a threshold other than 1.
constexpr float thresholdLine(float level, float max, float threshold) {
    return (level - threshold) * max / (1.0f - threshold);
}

/// The same in double precision. A level of 1 gives all of `max`.
constexpr double thresholdLineDouble(float level, double max, float threshold) {
    return (double{level} - threshold) * max / (1.0 - threshold);
}

/// What a fault does at a level: 0 up to its threshold, `max` at a level of 1. The stages work with
/// this form.
constexpr float stageAmount(float level, float max, float threshold) {
    return actsAt(level, threshold) ? thresholdLine(level, max, threshold) : 0.0f;
}

/// The same in double precision, for sums over time: whole numbers stay whole at a level of 1.
constexpr double stageAmountDouble(float level, double max, float threshold) {
    return actsAt(level, threshold) ? thresholdLineDouble(level, max, threshold) : 0.0;
}

}  // namespace ruvex
