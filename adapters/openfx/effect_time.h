// Times of the host and of the effect.

#pragma once

#include <optional>

#include "adapters/common/picture_effect.h"

namespace ruvex::openfx {

/// The greatest number of a frame, and with a minus sign the least one: seven days at 25 frames per
/// second. The effect looks back over all frames before the one at hand.
inline constexpr int kLastFrame = 1 << 24;

/// Used where the host gives no rate, in frames per second.
inline constexpr double kUsualRate = 25.0;

/// Whether this is a rate: from 0.01 to 100000.
bool isRate(double framesPerSecond);

/// How the frames of the host become the effect's. The host counts frames from anywhere.
struct EffectClock {
    int firstFrame = 0;  ///< The host's frame at which the effect's time is 0.
    double rate = kUsualRate;

    /// The effect's frame at a time of the host, held to +-kLastFrame; 0 for NaN.
    double frameAt(double hostTime) const;
    double secondsAt(double hostTime) const { return frameAt(hostTime) / rate; }
    /// The host's time of a moment of the effect.
    double hostTimeAt(double seconds) const { return seconds * rate + firstFrame; }
};

/// The lines that are rendered first in an interlaced frame; none in a progressive one.
using FirstField = std::optional<adapters::RenderedLines>;

/// The time of some lines of a frame. The second field is half a frame later than the first: a
/// whole time is that of the frame, and half a frame is added to it.
double fieldTime(double hostTime, adapters::RenderedLines lines, FirstField first);

}  // namespace ruvex::openfx
