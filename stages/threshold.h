// The amount of a fault from the signal level and the fault's threshold.

#pragma once

namespace ruvex {

/// Level, threshold and their difference are floats in every form. Comparisons with NaN are false.

/// Whether a level is above a threshold. A level equal to the threshold is not.
constexpr bool aboveThreshold(float level, float threshold) {
    return level > threshold;
}

/// The same, but false for a threshold of 1 or more, which switches the fault off at any level.
constexpr bool actsAt(float level, float threshold) {
    return aboveThreshold(level, threshold) && threshold < 1.0f;
}

/// The linear function with 0 at the threshold and `max` at a level of 1, for any level. The
/// threshold must not be 1.
constexpr float thresholdLine(float level, float max, float threshold) {
    return (level - threshold) * max / (1.0f - threshold);
}

/// The same in double precision. A level of 1 gives exactly `max`.
constexpr double thresholdLineDouble(float level, double max, float threshold) {
    return (double{level} - threshold) * max / (1.0 - threshold);
}

/// The amount of a fault at a level: 0 up to its threshold, then linear to `max` at a level of 1.
/// The stages use this form.
constexpr float stageAmount(float level, float max, float threshold) {
    return actsAt(level, threshold) ? thresholdLine(level, max, threshold) : 0.0f;
}

/// The same in double precision, for sums over time. At a level of 1 it is exactly `max`.
constexpr double stageAmountDouble(float level, double max, float threshold) {
    return actsAt(level, threshold) ? thresholdLineDouble(level, max, threshold) : 0.0;
}

}  // namespace ruvex
