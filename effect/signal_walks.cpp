#include "effect/signal_walks.h"

#include "effect/frame_walk.h"
#include "effect/percent.h"
#include "imaging/pixel_convert.h"
#include "stages/threshold.h"

namespace ruvex {
namespace {

// The moments of one walk and the levels at them, latest first.
struct Past {
    std::vector<float> moments;
    std::vector<float> levels;
};

Past pastOf(const SignalLevel& level, float frame, float frameRate) {
    Past past;
    past.moments = momentsBack(frame, frameRate);
    past.levels = level.atEarlier(past.moments);
    return past;
}

double creepingLines(const ParameterReader& reader, const WalkStart& start, const Past& past) {
    const ParameterCurve speedMax = reader.curve(ParameterId::LineSpeedMax);
    const ParameterCurve threshold = reader.curve(ParameterId::LineThreshold);
    double sum = 0.0;
    float level = start.breakup;
    for (std::size_t i = 0; i < past.moments.size(); ++i) {
        const double moment = past.moments[i];
        const double speed = speedMax.at(moment) / start.frameRate;
        sum += stageAmountDouble(level, speed, fractionOf(threshold.at(moment)));
        level = past.levels[i];
    }
    return sum;
}

std::int32_t verticalOffset(const ParameterReader& reader, const WalkStart& start) {
    const double max = reader.clampedReal(ParameterId::VertOffsetMax, start.time);
    const float threshold =
        fractionOf(reader.clampedReal(ParameterId::VertOffsetThreshold, start.time));
    return truncateToInt(stageAmountDouble(start.breakup, max, threshold));
}

// Goes back to the latest time at which the level lay under the roll threshold: the roll starts
// anew after every recovery. The sum is cut to a whole number at every step.
std::int32_t verticalRoll(const ParameterReader& reader, const WalkStart& start, const Past& past,
                          std::int32_t sum) {
    const ParameterCurve speedMax = reader.curve(ParameterId::VertRollSpeedMax);
    const ParameterCurve thresholds = reader.curve(ParameterId::VertRollThreshold);
    float level = start.breakup;
    for (std::size_t i = 0; i < past.moments.size(); ++i) {
        const double moment = past.moments[i];
        const float threshold = fractionOf(thresholds.at(moment));
        if (!(threshold < 1.0f)) break;
        const double speed = speedMax.at(moment) / start.frameRate;
        sum = truncateToInt(thresholdLineDouble(level, speed, threshold) + static_cast<float>(sum));
        if (i + 1 == past.moments.size()) break;
        level = past.levels[i + 1];
        if (!aboveThreshold(level, threshold)) break;
    }
    return sum;
}

bool rolls(const ParameterReader& reader, const WalkStart& start) {
    const float threshold =
        fractionOf(reader.clampedReal(ParameterId::VertRollThreshold, start.time));
    return actsAt(start.breakup, threshold);
}

std::int32_t shashFrames(const ParameterReader& reader, const WalkStart& start, const Past& past) {
    const float threshold = fractionOf(reader.clampedReal(ParameterId::ShashThreshold, start.time));
    std::int32_t count = 0;
    float level = start.breakup;
    for (const float earlier : past.levels) {
        count += actsAt(level, threshold);
        level = earlier;
    }
    return count;
}

}  // namespace

SignalWalks walkBack(const ParameterReader& reader, const SignalLevel& level,
                     const WalkStart& start) {
    const Past tape = pastOf(level, start.sourcePosition, start.frameRate);
    SignalWalks walks;
    walks.lineSum = creepingLines(reader, start, tape);
    walks.verticalSum = verticalOffset(reader, start);
    if (rolls(reader, start)) {
        walks.verticalSum = verticalRoll(reader, start, tape, walks.verticalSum);
    }
    // The tape's clock and the output's are one as long as it plays at its normal speed.
    const bool oneClock = start.frameNow == start.sourcePosition;
    const Past output = oneClock ? Past{} : pastOf(level, start.frameNow, start.frameRate);
    walks.shashFramesOn = shashFrames(reader, start, oneClock ? tape : output);
    return walks;
}

}  // namespace ruvex
