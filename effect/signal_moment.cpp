#include "effect/signal_moment.h"

namespace ruvex {

SignalMoment signalAt(const ParameterReader& reader, const TapePosition& tape,
                      const FrameMoment& moment) {
    const SignalLevel level(reader, moment.sampleRate, reader.integer(ParameterId::Seed));
    const float breakup = level.at(moment.time, tape.playTime);
    return {breakup, walkBack(reader, level,
                              {.time = moment.time,
                               .frameRate = moment.frameRate,
                               .frameNow = moment.frameNow,
                               .sourcePosition = tape.sourcePosition,
                               .breakup = breakup})};
}

}  // namespace ruvex
