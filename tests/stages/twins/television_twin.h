// The whole television, put together from the twins of its stages.

#pragma once

#include "tests/stages/twins/border_twin.h"
#include "tests/stages/twins/dot_twin.h"
#include "tests/stages/twins/ghost_twin.h"
#include "tests/stages/twins/lines_twin.h"
#include "tests/stages/twins/shash_twin.h"
#include "tests/stages/twins/signal_pass_twin.h"
#include "tests/stages/twins/snow_twin.h"
#include "tests/stages/twins/transport_twin.h"

namespace ruvex::test {

// At a full shash nothing of the picture is worked out.
template <class P>
TwinPicture<P> receivedTwin(TwinPicture<P>& source, const SignalParameters& signal, float scaleY,
                            int workers, bool blind) {
    TwinPicture<P> padded = paddedTwin(source, signal, scaleY, workers);
    if (blind) {
        for (P& pixel : padded.pixels) pixel = P{};
        TwinPicture<P> nothing(0, 0, source.width, source.height);
        return nothing;
    }
    TwinPicture<P> passed = signalTwin(padded, signal);
    TwinPicture<P> work = ghostsTwin(passed, signal, source.width, source.height);
    LinesTwin<P>(work, signal).draw(workers);
    return work;
}

template <class P>
TwinPicture<P> televisionTwin(TwinPicture<P>& source, const SignalParameters& signal, float aspect,
                              int workers) {
    const float scaleY = 1.0f / aspect;
    const bool blind =
        rampTwin(signal.breakup, signal.shashAmountMax, signal.shashThreshold) == 1.0f;
    TwinPicture<P> work = receivedTwin(source, signal, scaleY, workers, blind);
    snowTwin(work, signal, scaleY);
    TwinPicture<P> shown = work;
    if (!blind) TransportTwin<P>(work, shown, signal, scaleY).run(workers);
    shashTwin(shown, work, signal, scaleY, workers);
    if (!(signal.whiteDot > 0.0f)) return shown;
    DotTwin<P> dot(shown, signal);
    TwinPicture<P> result = dot.shrunk(workers);
    dot.glow(result, scaleY);
    return result;
}

}  // namespace ruvex::test
