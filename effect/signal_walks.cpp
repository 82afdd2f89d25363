#include "effect/signal_walks.h"

#include "effect/percent.h"
#include "effect/walk_check.h"
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

    float threshold(ParameterId id) const { return fractionOf(reader.real(id, time.seconds)); }
};

double creepingLines(const Start& start, const Past& past) {
    const ParameterCurve speedMax = start.reader.curve(ParameterId::LineSpeedMax);
    const ParameterCurve threshold = start.reader.curve(ParameterId::LineThreshold);
    WalkCheck check(start.reader.interruption());
    double sum = 0.0;
    float level = start.breakup;
    for (std::size_t i = 0; i < past.moments.size() && !check.stops(); ++i) {
        const double moment = past.moments[i];
        const double speed = speedMax.rawAt(moment) / start.time.singleRate;
        sum += stageAmountDouble(level, speed, fractionOf(threshold.rawAt(moment)));
        level = past.levels[i];
    }
    return sum;
}

std::int32_t verticalOffset(const Start& start) {
    const double max = start.reader.real(ParameterId::VertOffsetMax, start.time.seconds);
    return truncateToInt(
        stageAmountDouble(start.breakup, max, start.threshold(ParameterId::VertOffsetThreshold)));
}

// Adds the roll speed for every frame since the level was last at or below the roll threshold: the
// roll restarts when the signal has recovered. The sum begins with `sum` and is truncated to an
// integer at every step.
std::int32_t verticalRoll(const Start& start, const Past& past, std::int32_t sum) {
    const ParameterCurve speedMax = start.reader.curve(ParameterId::VertRollSpeedMax);
    const ParameterCurve thresholds = start.reader.curve(ParameterId::VertRollThreshold);
    WalkCheck check(start.reader.interruption());
    float level = start.breakup;
    for (std::size_t i = 0; i < past.moments.size() && !check.stops(); ++i) {
        const double moment = past.moments[i];
        const float threshold = fractionOf(thresholds.rawAt(moment));
        if (!(threshold < 1.0f)) break;
        const double speed = speedMax.rawAt(moment) / start.time.singleRate;
        sum = truncateToInt(thresholdLineDouble(level, speed, threshold) + static_cast<float>(sum));
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

SignalWalks walkBack(const ParameterReader& reader, const SignalLevel& levels,
                     const FrameTime& time, float sourcePosition, float breakup) {
    const Start start{reader, time, breakup};
    const Past tape = pastOf(levels, sourcePosition, time.singleRate);
    SignalWalks walks;
    walks.lineSum = creepingLines(start, tape);
    walks.verticalSum = verticalOffset(start);
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
