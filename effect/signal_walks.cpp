#include "effect/signal_walks.h"

#include "effect/percent.h"
#include "effect/walk_check.h"
#include "effect/walk_steps.h"
#include "imaging/pixel_convert.h"
#include "stages/threshold.h"

namespace ruvex {
namespace {

// The times of a walk back and the levels at these times, latest first.
struct Past {
    std::vector<float> moments;
    std::vector<float> levels;
};

Past pastOf(const SignalLevel& levels, float frame, float frameRate) {
    Past past;
    past.moments = momentsBack(frame, frameRate);
    past.levels = levels.atEarlier(past.moments);
    return past;
}

// The start of a walk: a frame and its level.
struct Start {
    const ParameterReader& reader;
    const FrameTime& time;
    float breakup;

    float threshold(ParameterId id) const { return thresholdAt(reader, id, time.seconds); }
};

double creepingLines(const Start& start, const Past& past) {
    const LineSteps steps(start.reader, start.time.singleRate);
    WalkCheck check(start.reader.interruption());
    double sum = 0.0;
    float level = start.breakup;
    for (std::size_t i = 0; i < past.moments.size() && !check.stops(); ++i) {
        sum += steps.distance(level, past.moments[i]);
        level = past.levels[i];
    }
    return sum;
}

// Adds the roll speed for every frame since the level was last at or below the roll threshold: the
// roll restarts when the signal has recovered. The sum begins with `sum` and is truncated to an
// integer at every step.
std::int32_t verticalRoll(const Start& start, const Past& past, std::int32_t sum) {
    const RollSteps steps(start.reader, start.time.singleRate);
    WalkCheck check(start.reader.interruption());
    float level = start.breakup;
    for (std::size_t i = 0; i < past.moments.size() && !check.stops(); ++i) {
        const double moment = past.moments[i];
        const float threshold = steps.threshold(moment);
        if (!steps.rolls(threshold)) break;
        sum = RollSteps::added(sum, steps.distance(level, moment, threshold));
        if (i + 1 == past.moments.size()) break;
        level = past.levels[i + 1];
        if (!aboveThreshold(level, threshold)) break;
    }
    return sum;
}

std::int32_t shashFrames(const Start& start, const Past& past) {
    const float threshold = start.threshold(ParameterId::ShashThreshold);
    std::int32_t count = 0;
    float level = start.breakup;
    for (const float earlier : past.levels) {
        count += actsAt(level, threshold);
        level = earlier;
    }
    return count;
}

}  // namespace

float thresholdAt(const ParameterReader& reader, ParameterId id, double seconds) {
    return fractionOf(reader.real(id, seconds));
}

std::int32_t verticalOffset(const ParameterReader& reader, double seconds, float breakup) {
    const double max = reader.real(ParameterId::VertOffsetMax, seconds);
    const float threshold = thresholdAt(reader, ParameterId::VertOffsetThreshold, seconds);
    return truncateToInt(stageAmountDouble(breakup, max, threshold));
}

SignalWalks walkBack(const ParameterReader& reader, const SignalLevel& levels,
                     const FrameTime& time, float sourcePosition, float breakup) {
    const Start start{reader, time, breakup};
    const Past tape = pastOf(levels, sourcePosition, time.singleRate);
    SignalWalks walks;
    walks.lineSum = creepingLines(start, tape);
    walks.verticalSum = verticalOffset(reader, time.seconds, breakup);
    if (actsAt(breakup, start.threshold(ParameterId::VertRollThreshold))) {
        walks.verticalSum = verticalRoll(start, tape, walks.verticalSum);
    }
    // At normal speed the tape and the output have the same frames, and one walk is enough.
    const bool sameFrames = time.frame == sourcePosition;
    const Past output = sameFrames ? Past{} : pastOf(levels, time.frame, time.singleRate);
    walks.shashFramesOn = shashFrames(start, sameFrames ? tape : output);
    return walks;
}

SignalState signalAt(const ParameterReader& reader, const FrameTime& time,
                     const TapePosition& tape) {
    const SignalLevel levels(reader, time.hostRate);
    const float breakup = levels.at(time.seconds, tape.playTime);
    return {breakup, walkBack(reader, levels, time, tape.sourcePosition, breakup)};
}

}  // namespace ruvex
