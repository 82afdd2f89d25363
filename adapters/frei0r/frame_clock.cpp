#include "adapters/frei0r/frame_clock.h"

#include <algorithm>
#include <cmath>

namespace ruvex::frei0r {
namespace {

constexpr double kMillisecondsPerSecond = 1000.0;
/// Files store times in whole milliseconds at worst, so a step is off by less than this.
constexpr double kStepTolerance = 1.0;
/// One frame in milliseconds, for rates from 250 down to 1.
constexpr double kLeastFrameStep = 4.0;
constexpr double kGreatestFrameStep = 1000.0;
/// A step below this is one in seconds: milliseconds would mean more than 1000 frames per second.
constexpr double kLeastMillisecondStep = 1.0;
/// The first time of an instance that is taken for milliseconds.
constexpr double kLateFirstTime = 1000.0;

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

bool isLikelyMilliseconds(double firstTime, double framesPerSecond) {
    if (firstTime >= kLateFirstTime) return true;
    return firstTime >= kLeastMillisecondStep && isOnMillisecondGrid(firstTime, framesPerSecond);
}

bool isFrameStep(double step) {
    return step >= kLeastFrameStep && step <= kGreatestFrameStep;
}

bool nearlyEqual(double a, double b) {
    return std::abs(a - b) <= kStepTolerance;
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
    if (lastTime_) {
        learnFromStep(time - *lastTime_, framesPerSecond);
    } else {
        looksLikeMilliseconds_ = isLikelyMilliseconds(time, framesPerSecond);
    }
    lastTime_ = time;
}

// A frame that comes again is no step.
void FrameClock::learnFromStep(double step, double framesPerSecond) {
    if (step == 0.0) return;
    if (std::abs(step) < kLeastMillisecondStep) surelySeconds_ = true;
    const bool oneFrame = nearlyEqual(step, kMillisecondsPerSecond / framesPerSecond);
    const bool again = isFrameStep(step) && nearlyEqual(step, lastStep_);
    if ((oneFrame && isFrameStep(step)) || again) looksLikeMilliseconds_ = true;
    lastStep_ = step;
}

bool FrameClock::isMilliseconds(TimeUnit unit) const {
    if (unit != TimeUnit::Auto) return unit == TimeUnit::Milliseconds;
    return looksLikeMilliseconds_ && !surelySeconds_;
}

}  // namespace ruvex::frei0r
