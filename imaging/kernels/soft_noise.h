// What the loop of soft noise reads and keeps: hash noise through three boxes along X.

#pragma once

#include <cstdint>

namespace ruvex {

/// Values at one position along X that are computed at once: one for each component of some pixels
/// below each other.
inline constexpr int kNoiseLanes = 16;

/// The hash noise of each lane: hash(number) * factor, truncated. From a position to the next, the
/// numbers grow by `step`.
struct NoiseLanes {
    std::uint32_t numbers[kNoiseLanes];
    float factors[kNoiseLanes];
    std::uint32_t step;
};

/// The inputs of three box filters, each of which reads the outputs of the one before; the first
/// reads the noise. Not owned.
struct BoxChain {
    static constexpr int kBoxes = 3;

    /// For each box the inputs that are in its sum, from the oldest on, kNoiseLanes values each;
    /// after these, there is space for the next ones.
    std::int32_t* inputs[kBoxes];
    /// The sums of BoxWeights::span inputs, modulo 2^32.
    std::uint32_t sums[kBoxes][kNoiseLanes];
};

}  // namespace ruvex
