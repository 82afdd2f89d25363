#include "effect/frame_values.h"

#include "effect/percent.h"
#include "effect/player.h"
#include "effect/signal_walks.h"
#include "imaging/pixel_convert.h"
#include "parameters/artefacts.h"
#include "stages/threshold.h"

namespace ruvex {
namespace {

// The amount of an artefact at a level, in the artefact's unit.
double amountOf(const Artefact& artefact, const ParameterReader& reader, double seconds,
                float level) {
    const double amount = stageAmountDouble(level, reader.real(artefact.maximum, seconds),
                                            fractionOf(reader.real(artefact.threshold, seconds)));
    return artefact.isFraction() ? amount * kPercent : amount;
}

}  // namespace

FrameValues valuesOfFrame(const ParameterReader& reader, const FrameTime& time) {
    const TapePosition tape = tapePosition(reader, time);
    const auto [breakup, walks] = signalAt(reader, time, tape);
    FrameValues values{};
    values.seconds = time.seconds;
    values.playTime = tape.playTime;
    values.frame = truncateToInt(time.frame);
    values.source = tape.sourceFrame;
    values.shown = truncateToInt(tape.shownFrame);
    values.level = breakup;
    values.lineTravel = walks.lineSum;
    values.verticalSum = walks.verticalSum;
    values.shashFramesOn = walks.shashFramesOn;
    for (const Artefact& artefact : artefacts()) {
        values.*artefact.amount = amountOf(artefact, reader, time.seconds, breakup);
    }
    return values;
}

}  // namespace ruvex
