// The number of a frame, from the time that a host gives.

#pragma once

#include <cstdint>
#include <optional>

namespace ruvex::frei0r {

enum class TimeUnit { Auto, Seconds, Milliseconds };

/// The greatest number of a frame; a time beyond it is unusable. At 25 frames per second these are
/// seven days.
inline constexpr std::int64_t kLastFrame = std::int64_t{1} << 24;

/// The clock of one instance. The interface says that time is in seconds. What hosts do:
///
/// - melt, Kdenlive, Shotcut: seconds, exactly frame / rate, counted from the clip's in point.
/// Frames
///   come in any order, since several instances share them, and some come several times.
/// - GStreamer: seconds, cut to whole nanoseconds.
/// - ffmpeg: milliseconds. Where it has to copy rows into a picture without padding (on many
///   processors: at each width that is no multiple of 64) the time is garbage, a huge negative
///   number. Frames come in order. After -ss time begins at 0 again; enable= leaves out calls.
///
/// One thread uses a clock at a time.
class FrameClock {
public:
    /// The number of the frame at `time`, rounded to nearest: 0 to kLastFrame. Where the time is
    /// unusable (not a number, infinite, negative or beyond kLastFrame) it is one more than that of
    /// the last call, and 0 in the first one.
    ///
    /// With TimeUnit::Auto the unit follows from the calls so far:
    /// - A step of less than 1 between two calls means seconds, from then on.
    /// - Until then a step forward of one frame in milliseconds means milliseconds; so do two equal
    ///   steps of 4 to 1000, for a rate that is not the clip's.
    /// - Without such steps it is seconds. It is milliseconds if the instance's first time is 1000
    /// or
    ///   more, since few clips begin after a quarter of an hour; or if it is 1 or more and the time
    ///   of a frame in milliseconds, which only one in a thousand frames has in seconds.
    ///
    /// `framesPerSecond` is finite and above 0.
    std::int64_t frameAt(double time, double framesPerSecond, TimeUnit unit = TimeUnit::Auto);

private:
    void learn(double time, double framesPerSecond);
    void learnFromStep(double step, double framesPerSecond);
    bool isMilliseconds(TimeUnit unit) const;

    std::optional<double> lastTime_;  ///< The last usable one.
    double lastStep_ = 0.0;           ///< 0 before the second usable time.
    bool surelySeconds_ = false;
    bool looksLikeMilliseconds_ = false;
    std::int64_t nextFrame_ = 0;  ///< Of a call whose time is unusable.
};

}  // namespace ruvex::frei0r
