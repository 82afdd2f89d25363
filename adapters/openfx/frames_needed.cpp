#include "adapters/openfx/frames_needed.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <set>
#include <span>

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

/// The host's time of the frame that is shown.
double shownAt(const Instance& instance, double time) {
    const EffectClock clock = instance.clockAt(time);
    adapters::FrameTask task{.seconds = clock.secondsAt(time),
                             .changes = instance.changesAt(time, clock)};
    if (playsAsItIs(task.changes)) return std::floor(time);
    // What the tape shows does not depend on the frame's size.
    constexpr int kAnySide = 64;
    task.project = instance.projectAt(time, kAnySide, kAnySide);
    double shown = 0.0;
    effectPool().withEffect([&](adapters::PictureEffect& effect) {
        shown = shownTime(instance.source(), clock, effect.valuesOf(task).shown / clock.rate);
    });
    return shown;
}

/// The time at hand, and those of other frames that are shown then, or half a frame later in the
/// second field.
std::set<double> timesNeeded(const Instance& instance, double time) {
    constexpr double kHalfFrame = 0.5;
    std::set<double> times{shownAt(instance, time)};
    const bool interlaced = instance.firstField().has_value();
    if (interlaced) times.insert(shownAt(instance, time + kHalfFrame));
    // Between two frames the picture at hand is taken for the one before.
    times.erase(std::floor(time));
    times.insert(time);
    return times;
}

}  // namespace

OfxStatus framesNeeded(const Action& action) {
    const Instance instance(action);
    const auto time = action.in.findDouble(kOfxPropTime);
    if (!time || !std::isfinite(*time)) return kOfxStatErrValue;
    if (!instance.hasTemporalAccess()) return kOfxStatReplyDefault;
    std::set<double> times{*time};
    try {
        times = timesNeeded(instance, *time);
    } catch (const std::exception& error) {
        warn(action.host, action.effect, error.what());
    }
    // Ranges of one frame each: the first and the last of it are the same.
    int index = 0;
    for (const double needed : times) {
        action.out.setDouble(kSourceRange, needed, index++);
        action.out.setDouble(kSourceRange, needed, index++);
    }
    return kOfxStatOK;
}

}  // namespace ruvex::openfx
