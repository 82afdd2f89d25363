// The whole television, put together from the twins of its stages.

#pragma once

#include <algorithm>

#include "tests/stages/twins/border_twin.h"
#include "tests/stages/twins/dot_twin.h"
#include "tests/stages/twins/ghost_twin.h"
#include "tests/stages/twins/lines_twin.h"
#include "tests/stages/twins/shash_twin.h"
#include "tests/stages/twins/signal_pass_twin.h"
#include "tests/stages/twins/snow_twin.h"
#include "tests/stages/twins/transport_twin.h"

namespace ruvex::test {

/// How a frame is made, besides its parameters.
struct TwinRun {
    float aspect = 1.0f;
    int workers = 1;
    TwinArea area{};  ///< what is made of the target
};

/// What is worked out of a signal with its margins: as much more than the window as the margins
/// are wide, as far as there is a picture. A window beside it holds to its edge.
inline TwinArea grownTwin(const TwinArea& window, const MarginsTwin& margins,
                          const TwinArea& limits) {
    const auto column = [&](int x) { return std::clamp(x, limits.left, limits.right - 1); };
    const auto row = [&](int y) { return std::clamp(y, limits.top, limits.bottom - 1); };
    return {column(window.left - margins.x), row(window.top - margins.y),
            column(window.right - 1 + margins.x) + 1, row(window.bottom - 1 + margins.y) + 1};
}

/// The picture as it is received, into an area of `to`, which is black.
template <class P>
void receivedTwin(TwinPicture<P>& source, const SignalParameters& signal, const TwinRun& run,
                  TwinPicture<P>& to) {
    const float scaleY = 1.0f / run.aspect;
    TwinPicture<P> padded = paddedTwin(source, signal, scaleY, run.workers);
    const MarginsTwin margins = marginsTwin(signal, scaleY);
    TwinPicture<P> passed = signalTwin(padded, signal, grownTwin(run.area, margins, padded.area()));
    ghostsTwin(passed, signal, run.area, to);
    LinesTwin<P>(to, signal).draw(run.area, run.workers);
}

/// The target after a frame; `before` is the target as it was, where it lies. At a full shash
/// nothing of the picture is worked out.
template <class P>
TwinPicture<P> televisionTwin(TwinPicture<P>& source, const TwinPicture<P>& before,
                              const SignalParameters& signal, const TwinRun& run) {
    const float scaleY = 1.0f / run.aspect;
    const bool blind =
        rampTwin(signal.breakup, signal.shashAmountMax, signal.shashThreshold) == 1.0f;
    const bool dotted = signal.whiteDot > 0.0f;
    auto work = TwinPicture<P>::blankLike(before);
    if (!blind) receivedTwin(source, signal, run, work);
    snowTwin(work, signal, scaleY, run.area);

    TwinPicture<P> shown = dotted ? TwinPicture<P>::blankLike(before) : before;
    run.area.forEach([&](int x, int y) { shown.at(x, y) = work.at(x, y); });
    if (!blind) TransportTwin<P>(work, shown, signal, scaleY, run.area).run(run.workers);
    shashTwin(shown, work, signal, scaleY, run.workers, run.area);
    if (!dotted) return shown;

    TwinPicture<P> result = before;
    run.area.forEach([&](int x, int y) { result.at(x, y) = P{}; });
    DotTwin<P> dot(shown, signal);
    dot.shrink(result, run.area, run.workers);
    dot.glow(result, scaleY);
    return result;
}

}  // namespace ruvex::test
