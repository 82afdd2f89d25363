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

// The integral of Play Speed, in seconds of the clip. If the tape has always run at normal speed,
// the result is the time itself and not the sum, which drifts: so the tape shows the output's own
// frame at any time.
double playedSeconds(const ParameterCurve& speed, double hostRate, double end) {
    WalkCheck check(speed.interruption());
    if (!(end > 0.0)) return 0.0;
    if (speed.alwaysIs(kNormalSpeed)) return end;
    const double step = 1.0 / hostRate;
    double sum = 0.0;
    float moment = 0.0f;
    double next = step;
    bool normal = true;
    while (end >= next) {
        const auto reached = static_cast<float>(next);
        if (reached == moment || check.stops()) break;
        const double value = speed.rawAt(moment);
        normal = normal && value == kNormalSpeed;
        sum = normal ? kNormalSpeed * reached : sum + value * step;
        moment = reached;
        next = moment + step;
    }
    const double rest = end - moment;
    const double value = rest > 0.0 ? speed.rawAt(end) : kNormalSpeed;
    if (normal && value == kNormalSpeed) return end;
    if (rest > 0.0) sum += value * rest;
    return sum / kNormalSpeed;
}

}  // namespace

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
    TapePosition tape;
    tape.playTime =
        playedSeconds(reader.curve(ParameterId::PlaySpeed), time.hostRate, time.seconds);
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
