#include "effect/frame_values.h"

#include "effect/percent.h"
#include "effect/player.h"
#include "effect/signal_series.h"
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

FrameValues valuesFrom(const ParameterReader& reader, const FrameTime& time,
                       const TapePosition& tape, const SignalState& signal) {
    const auto& [breakup, walks] = signal;
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

// The tape's positions at times in rising order, in one walk over time.
std::vector<TapePosition> tapePositions(const ParameterReader& reader,
                                        const std::vector<FrameTime>& times) {
    PlayedTime played(reader.curve(ParameterId::PlaySpeed), times.front().hostRate);
    std::vector<TapePosition> tapes;
    tapes.reserve(times.size());
    for (const FrameTime& time : times) {
        tapes.push_back(tapePositionAt(reader, time, played.upTo(time.seconds)));
    }
    return tapes;
}

}  // namespace

FrameValues valuesOfFrame(const ParameterReader& reader, const FrameTime& time) {
    const TapePosition tape = tapePosition(reader, time);
    return valuesFrom(reader, time, tape, signalAt(reader, time, tape));
}

void valuesOfFrames(const ParameterReader& reader, const std::vector<FrameTime>& times,
                    FrameValues* values) {
    if (times.empty()) return;
    const std::vector<TapePosition> tapes = tapePositions(reader, times);
    const std::vector<SignalState> signals = signalsAt(reader, times, tapes);
    for (std::size_t i = 0; i < times.size(); ++i) {
        values[i] = valuesFrom(reader, times[i], tapes[i], signals[i]);
    }
}

}  // namespace ruvex
