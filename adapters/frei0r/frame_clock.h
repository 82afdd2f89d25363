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
/// - melt, Kdenlive, Shotcut: seconds, exactly frame / rate, counted from the clip's in point. Some
///   frames come several times and, since several instances share them, in any order.
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
    /// With TimeUnit::Auto the unit is seconds, unless one of the first three usable times says
    /// milliseconds:
    /// - the first one is 1 or more, and the time of a frame in milliseconds, which only one in a
    ///   thousand frames has in seconds;
    /// - a step forward is one frame in milliseconds, at this rate or at another usual one.
    /// A step of less than 1, at any time, means seconds from then on.
    ///
    /// `framesPerSecond` is finite and above 0.
    std::int64_t frameAt(double time, double framesPerSecond, TimeUnit unit = TimeUnit::Auto);

private:
    void learn(double time, double framesPerSecond);
    bool isMilliseconds(TimeUnit unit) const;

    std::optional<double> lastTime_;  ///< The last usable one.
    int usableTimes_ = 0;             ///< Counted up to those that tell the unit.
    bool surelySeconds_ = false;
    bool looksLikeMilliseconds_ = false;
    std::int64_t nextFrame_ = 0;  ///< Of a call whose time is unusable.
};

}  // namespace ruvex::frei0r
