#include "adapters/frei0r/frame_clock.h"

#include <algorithm>
#include <cmath>

namespace ruvex::frei0r {
namespace {

constexpr double kMillisecondsPerSecond = 1000.0;
/// The usable times of an instance that tell the unit.
constexpr int kTellingTimes = 3;
/// A step below this is one in seconds: milliseconds would mean more than 1000 frames per second.
constexpr double kLeastMillisecondStep = 1.0;
/// Rates at which a clip may be while the user has set another one.
constexpr double kNtsc = 1000.0 / 1001.0;
constexpr double kUsualRates[] = {24 * kNtsc, 24, 25, 30 * kNtsc, 30, 48, 50, 60 * kNtsc, 60, 120};

/// Whether the time can be one in either unit.
bool isTime(double time, double framesPerSecond) {
    const double latest = kLastFrame / framesPerSecond * kMillisecondsPerSecond;
    return std::isfinite(time) && time >= 0.0 && time <= latest;
}

/// Whether this is the time of a frame in milliseconds, but for rounding of the time itself.
bool isOnMillisecondGrid(double time, double framesPerSecond) {
    constexpr double kFrameTolerance = 1e-6;
    const double frame = time / kMillisecondsPerSecond * framesPerSecond;
    return std::abs(frame - std::round(frame)) < kFrameTolerance;
}

/// Whether a step is one frame in milliseconds.
bool isOneFrame(double step, double framesPerSecond) {
    // Files store times in whole milliseconds at worst, so a step is off by less than 1.
    constexpr double kTolerance = 1.0, kTightTolerance = 1e-3;
    const auto isFrameOf = [&](double rate, double tolerance) {
        return std::abs(step - kMillisecondsPerSecond / rate) <= tolerance;
    };
    const bool usual = std::ranges::any_of(
        kUsualRates, [&](double rate) { return isFrameOf(rate, kTightTolerance); });
    return step >= kLeastMillisecondStep && (usual || isFrameOf(framesPerSecond, kTolerance));
}

}  // namespace

std::int64_t FrameClock::frameAt(double time, double framesPerSecond, TimeUnit unit) {
    std::int64_t frame = std::min(nextFrame_, kLastFrame);
    if (isTime(time, framesPerSecond)) {
        learn(time, framesPerSecond);
        const double seconds = isMilliseconds(unit) ? time / kMillisecondsPerSecond : time;
        const double number = std::round(seconds * framesPerSecond);
        if (number <= static_cast<double>(kLastFrame)) frame = static_cast<std::int64_t>(number);
    }
    nextFrame_ = frame + 1;
    return frame;
}

void FrameClock::learn(double time, double framesPerSecond) {
    const double step = lastTime_ ? time - *lastTime_ : 0.0;
    // A frame that comes again is no step.
    if (step != 0.0 && std::abs(step) < kLeastMillisecondStep) surelySeconds_ = true;
    if (usableTimes_ < kTellingTimes) {
        ++usableTimes_;
        const bool first = !lastTime_ && time >= kLeastMillisecondStep;
        if (first && isOnMillisecondGrid(time, framesPerSecond)) looksLikeMilliseconds_ = true;
        if (isOneFrame(step, framesPerSecond)) looksLikeMilliseconds_ = true;
    }
    lastTime_ = time;
}

bool FrameClock::isMilliseconds(TimeUnit unit) const {
    if (unit != TimeUnit::Auto) return unit == TimeUnit::Milliseconds;
    return looksLikeMilliseconds_ && !surelySeconds_;
}

}  // namespace ruvex::frei0r
