// What one step of a walk back over earlier frames adds to the creeping lines and to the roll.

#pragma once

#include <cstdint>

#include "effect/percent.h"
#include "host/base/parameter_reader.h"
#include "imaging/pixel_convert.h"
#include "stages/threshold.h"

namespace ruvex {

/// Distances are in pixels of the project frame, moments in seconds, rates in frames per second.
class LineSteps {
public:
    LineSteps(const ParameterReader& reader, float frameRate)
        : speedMax_(reader.curve(ParameterId::LineSpeedMax)),
          threshold_(reader.curve(ParameterId::LineThreshold)),
          frameRate_(frameRate) {}

    /// The distance that the lines move in the frame at `moment`, at a level of 0 to 1.
    double distance(float level, double moment) const {
        const double speed = speedMax_.rawAt(moment) / frameRate_;
        return stageAmountDouble(level, speed, fractionOf(threshold_.rawAt(moment)));
    }

private:
    ParameterCurve speedMax_;
    ParameterCurve threshold_;
    float frameRate_;
};

/// The same for the roll.
class RollSteps {
public:
    RollSteps(const ParameterReader& reader, float frameRate)
        : speedMax_(reader.curve(ParameterId::VertRollSpeedMax)),
          threshold_(reader.curve(ParameterId::VertRollThreshold)),
          frameRate_(frameRate) {}

    float threshold(double moment) const { return fractionOf(threshold_.rawAt(moment)); }

    /// Whether the picture can roll at this threshold; if not, a walk ends.
    static bool rolls(float threshold) { return threshold < 1.0f; }

    /// The distance of the frame at `moment`, whose threshold must be below 1.
    double distance(float level, double moment, float threshold) const {
        const double speed = speedMax_.rawAt(moment) / frameRate_;
        return thresholdLineDouble(level, speed, threshold);
    }

    /// The sum after a step of this distance. It is truncated at every step.
    static std::int32_t added(std::int32_t sum, double distance) {
        return truncateToInt(distance + static_cast<float>(sum));
    }

private:
    ParameterCurve speedMax_;
    ParameterCurve threshold_;
    float frameRate_;
};

}  // namespace ruvex
