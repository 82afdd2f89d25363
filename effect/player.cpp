#include "effect/player.h"

#include <cmath>

#include "effect/percent.h"
#include "effect/walk_check.h"
#include "imaging/maths/wrap.h"
#include "imaging/pixel_convert.h"

namespace ruvex {
namespace {

constexpr double kNormalSpeed = 100.0;
// A position less than this below a whole frame counts as that frame.
constexpr double kRoundingMargin = 0.01;

bool slow(double speed) {
    return std::fabs(speed) < kNormalSpeed;
}

}  // namespace

PlayedTime::PlayedTime(const ParameterCurve& speed, double hostRate)
    : speed_(speed), step_(1.0 / hostRate), next_(step_), check_(speed.interruption()) {}

// If the tape has always run at normal speed, the result is the time itself and not the sum, which
// drifts: so the tape shows the output's own frame at any time.
double PlayedTime::upTo(double end) {
    if (!(end > 0.0)) return 0.0;
    if (speed_.alwaysIs(kNormalSpeed)) return end;
    while (end >= next_) {
        const auto reached = static_cast<float>(next_);
        if (reached == moment_ || check_.stops()) break;
        const double value = speed_.rawAt(moment_);
        normal_ = normal_ && value == kNormalSpeed;
        sum_ = normal_ ? kNormalSpeed * reached : sum_ + value * step_;
        moment_ = reached;
        next_ = moment_ + step_;
    }
    const double rest = end - moment_;
    const double value = rest > 0.0 ? speed_.rawAt(end) : kNormalSpeed;
    if (normal_ && value == kNormalSpeed) return end;
    return (rest > 0.0 ? sum_ + value * rest : sum_) / kNormalSpeed;
}

std::int32_t frameAtPosition(float position) {
    const std::int32_t whole = truncateToInt(position);
    const bool isWhole = static_cast<float>(whole) == position;
    const bool between = position > 0.0f && !isWhole;
    const float ceiling = static_cast<float>(whole) + (between ? 1.0f : 0.0f);
    if (ceiling - position < kRoundingMargin) return truncateToInt(ceiling);
    return position < 0.0f && !isWhole ? wrapSubtract(whole, 1) : whole;
}

std::int32_t repeatedFrame(std::int32_t frame, std::int32_t repeat) {
    return repeat > 1 ? frame - frame % repeat : frame;
}

TapePosition tapePosition(const ParameterReader& reader, const FrameTime& time) {
    PlayedTime played(reader.curve(ParameterId::PlaySpeed), time.hostRate);
    return tapePositionAt(reader, time, played.upTo(time.seconds));
}

TapePosition tapePositionAt(const ParameterReader& reader, const FrameTime& time, double playTime) {
    TapePosition tape;
    tape.playTime = playTime;
    tape.sourcePosition = static_cast<float>(time.singleRate * tape.playTime);
    tape.sourceFrame = frameAtPosition(tape.sourcePosition);
    tape.shownFrame = static_cast<float>(
        repeatedFrame(tape.sourceFrame, reader.integer(ParameterId::RepeatFrames)));
    return tape;
}

PlayStatus playStatusAt(const ParameterReader& reader, const FrameTime& time) {
    const ParameterCurve curve = reader.curve(ParameterId::PlaySpeed);
    double speed = curve.rawAt(time.seconds);
    PlayStatus play;
    play.state = slow(speed)             ? PlayState::Slow
                 : speed == kNormalSpeed ? PlayState::Normal
                                         : PlayState::Winding;
    WalkCheck check(reader.interruption());
    for (float frame = time.frame; slow(speed) && walksOn(frame) && !check.stops();) {
        ++play.framesAtLowSpeed;
        frame -= 1.0f;
        speed = curve.rawAt(frame / time.singleRate);
    }
    play.speedAtStart = fractionOf(speed);
    return play;
}

}  // namespace ruvex
