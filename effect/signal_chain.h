// Frame positions a whole number of frames apart, and the sums of the walks that begin at them.

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "effect/signal_walks.h"
#include "effect/walk_steps.h"

namespace ruvex {

/// A walk back from a frame position.
struct ChainStart {
    float position;      ///< in frames
    double seconds;      ///< time of the frame in the output
    SignalState* state;  ///< the frame's; its walks are stored here
    bool ofTape;         ///< sums the lines and the roll
    bool ofOutput;       ///< counts the frames with shash
};

/// The moments of the positions `latest`, `latest` - 1, ... down to the first, and the level at
/// each. A walk from one of these positions reads those from its own on, so that all walks of a
/// chain share them.
class SignalChain {
public:
    /// `frameRate` in frames per second. Positions up to kLastExact only.
    SignalChain(const ParameterReader& reader, const SignalLevel& levels, float latest,
                float frameRate);

    /// Up to this position (2^24) a float minus 1 is exact.
    static constexpr float kLastExact = 16777216.0f;

    /// Stores the walks of these starts in their states, equal bit for bit to those of walkBack.
    /// Sorted by position, latest first; each a whole number of frames before `latest`. The
    /// vertical offset must be in the state's sum already.
    void walk(std::span<const ChainStart> starts) const;

private:
    using Block = std::span<const ChainStart>;  // a few starts that are summed side by side

    void makeLines();
    void makeRolls();
    void countShash(std::span<const ChainStart> starts) const;
    void sumLines(Block starts) const;
    void sumRolls(Block starts) const;
    std::size_t rollToCommon(const ChainStart& start, std::size_t common, std::int32_t& sum) const;
    std::int32_t framesWithShash(const ChainStart& start) const;
    std::size_t indexOf(const ChainStart& start) const;

    // A step of the roll.
    struct Roll {
        double distance = 0.0;  // at the level of its own moment, project pixels
        float threshold;        // fraction
        std::uint32_t last;     // the last step of a roll that comes to this one
    };

    const ParameterReader& reader_;
    float latest_;
    LineSteps lineSteps_;
    RollSteps rollSteps_;
    // Entry i belongs to position `latest` - i.
    std::vector<float> moments_;  // seconds
    std::vector<float> levels_;
    std::vector<double> lines_;  // distance of the lines at the level of the step before
    std::vector<Roll> rolls_;
};

}  // namespace ruvex
