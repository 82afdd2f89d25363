#include "effect/frame_values.h"

#include "effect/percent.h"
#include "effect/player.h"
#include "effect/signal_moment.h"
#include "imaging/pixel_convert.h"

namespace ruvex {
namespace {

// The amounts of the stages at one level and moment.
class Amounts {
public:
    Amounts(const ParameterReader& reader, double seconds, float level)
        : reader_(reader), seconds_(seconds), level_(level) {}

    double of(ParameterId max, ParameterId threshold) const {
        return ramp(level_, reader_.clampedReal(max, seconds_),
                    fractionOf(reader_.clampedReal(threshold, seconds_)));
    }
    double fraction(ParameterId max, ParameterId threshold) const {
        return of(max, threshold) * kPercent;
    }

private:
    const ParameterReader& reader_;
    double seconds_;
    float level_;
};

void fillAmounts(FrameValues& values, const Amounts& amounts) {
    using enum ParameterId;
    values.colourDegrade = amounts.fraction(ColourDegradeMax, ColourThreshold);
    values.ghostDistance = amounts.of(GhostingDistanceMax, GhostingThreshold);
    values.edgeDistortion = amounts.of(EdgeDistortionMax, EdgeThreshold);
    values.snow = amounts.fraction(SnowMax, SnowThreshold);
    values.shash = amounts.fraction(ShashAmountMax, ShashThreshold);
    values.lineSpeed = amounts.of(LineSpeedMax, LineThreshold);
    values.verticalOffset = amounts.of(VertOffsetMax, VertOffsetThreshold);
    values.rollSpeed = amounts.of(VertRollSpeedMax, VertRollThreshold);
}

}  // namespace

FrameValues valuesOfFrame(const ParameterReader& reader, double seconds, double framesPerSecond) {
    const auto frameRate = static_cast<float>(framesPerSecond);
    const auto frameNow = static_cast<float>(frameRate * seconds);
    const TapePosition tape = tapePosition(reader, framesPerSecond, seconds);
    const auto [breakup, walks] = signalAt(reader, tape,
                                           {.time = seconds,
                                            .frameRate = frameRate,
                                            .frameNow = frameNow,
                                            .sampleRate = framesPerSecond});
    FrameValues values{};
    values.seconds = seconds;
    values.playTime = tape.playTime;
    values.frame = truncateToInt(frameNow);
    values.source = tape.sourceFrame;
    values.shown = truncateToInt(tape.shownFrame);
    values.level = breakup;
    values.lineTravel = walks.lineSum;
    values.verticalSum = walks.verticalSum;
    values.shashFramesOn = walks.shashFramesOn;
    fillAmounts(values, Amounts(reader, seconds, breakup));
    return values;
}

}  // namespace ruvex
