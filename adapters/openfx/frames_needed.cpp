#include "adapters/openfx/frames_needed.h"

#include <algorithm>
#include <cmath>
#include <exception>

#include "adapters/openfx/effect_pool.h"
#include "adapters/openfx/instance.h"
#include "adapters/openfx/message.h"
#include "adapters/openfx/tape_frames.h"
#include "looks/play_speed.h"

namespace ruvex::openfx {
namespace {

constexpr char kSourceRange[] = "OfxImageClipPropFrameRange_Source";
constexpr double kEveryFrame = 1.0;

/// Whether every frame shows itself: no look at the tape is needed.
bool playsAsItIs(std::span<const looks::ParameterChange> changes) {
    constexpr looks::Setting kNormal{ParameterId::PlaySpeed, looks::kNormalPlaySpeed};
    constexpr looks::Setting kOnce{ParameterId::RepeatFrames, kEveryFrame};
    return std::ranges::find(changes, looks::ParameterChange(kNormal)) != changes.end() &&
           std::ranges::find(changes, looks::ParameterChange(kOnce)) != changes.end();
}

/// The host's time of the frame that is shown; `time` itself if that cannot be known.
double shownAt(const Instance& instance, double time) {
    const EffectClock clock = instance.clockAt(time);
    adapters::FrameTask task{.seconds = clock.secondsAt(time),
                             .changes = instance.values().changesAt(time, clock)};
    if (playsAsItIs(task.changes)) return time;
    // What the tape shows does not depend on the frame's size.
    constexpr int kAnySide = 64;
    task.project = instance.projectAt(time, kAnySide, kAnySide);
    double shown = time;
    effectPool().withEffect([&](adapters::PictureEffect& effect) {
        shown = shownTime(instance.source(), clock, effect.valuesOf(task).shown / clock.rate);
    });
    return shown;
}

void setRange(const Properties& out, int range, double time) {
    out.setDouble(kSourceRange, time, 2 * range);
    out.setDouble(kSourceRange, time, 2 * range + 1);
}

}  // namespace

OfxStatus framesNeeded(const Action& action) {
    const Instance instance(action);
    const auto time = action.in.findDouble(kOfxPropTime);
    if (!time || !std::isfinite(*time)) return kOfxStatErrValue;
    if (!instance.hasTemporalAccess()) return kOfxStatReplyDefault;
    double shown = *time;
    try {
        shown = shownAt(instance, *time);
    } catch (const std::exception& error) {
        warn(action.host, action.effect, error.what());
    }
    setRange(action.out, 0, *time);
    if (shown != *time) setRange(action.out, 1, shown);
    return kOfxStatOK;
}

}  // namespace ruvex::openfx
