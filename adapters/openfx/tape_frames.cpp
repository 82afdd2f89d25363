#include "adapters/openfx/tape_frames.h"

#include <cmath>
#include <optional>

#include "adapters/openfx/failure.h"

namespace ruvex::openfx {
namespace {

std::optional<adapters::SourcePicture> readable(const HostImage& image, adapters::HostAlpha alpha,
                                                OfxPointD renderScale) {
    if (!image.exists()) return {};
    try {
        return image.source(alpha, renderScale);
    } catch (const Failure&) {
        return {};
    }
}

}  // namespace

bool TapeFrames::pictureAt(double seconds,
                           const std::function<void(const adapters::SourcePicture&)>& use) {
    const double time = shownTime(source_, clock_, seconds);
    // Between two frames, in the second field, the frame at hand is the one before.
    if (time == std::floor(timeAtHand_)) return false;
    const HostImage image(host_, source_, time);
    const auto picture = readable(image, alpha_, renderScale_);
    if (picture) use(*picture);
    return picture.has_value();
}

double shownTime(const HostClip& source, const EffectClock& clock, double seconds) {
    return source.heldTime(std::round(clock.hostTimeAt(seconds)));
}

}  // namespace ruvex::openfx
