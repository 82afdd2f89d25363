#include "adapters/common/frame_clip.h"

#include <cmath>
#include <utility>

#include "runtime/images.h"

namespace ruvex::adapters {

FrameClip::AtHand FrameClip::begin(const Frame& frame) {
    frame_ = frame;
    failure_ = nullptr;
    return imageAtHand();
}

ComPtr<IDSImage> FrameClip::imageAt(double seconds) {
    try {
        return otherImage(seconds);
    } catch (...) {
        failure_ = std::current_exception();
        throw;
    }
}

void FrameClip::rethrowFailure() {
    if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
}

bool FrameClip::isAtHand(double seconds) const {
    // A time less than this share of a frame below a whole frame counts as that frame, as it does
    // in the effect.
    constexpr double kRoundingMargin = 0.01;
    const double rate = frame_.project.frameRate;
    return std::round(seconds * rate) == std::floor(frame_.seconds * rate + kRoundingMargin);
}

FrameClip::AtHand FrameClip::imageAtHand() const {
    AtHand atHand{blackImage()};
    if (!frame_.atHand) return atHand;
    const bool opaque = readPicture(*frame_.atHand, frame_.rows, *atHand.image);
    atHand.opaque = opaque || frame_.atHand->form.isOpaque();
    return atHand;
}

ComPtr<CDSMemoryImage> FrameClip::otherImage(double seconds) const {
    if (!frame_.others || isAtHand(seconds)) return imageAtHand().image;
    auto image = blackImage();
    const auto read = [&](const SourcePicture& picture) {
        readPicture(picture, frame_.rows, *image);
    };
    return frame_.others->pictureAt(seconds, read) ? image : imageAtHand().image;
}

ComPtr<CDSMemoryImage> FrameClip::blackImage() const {
    return runtime::makeProjectImage(frame_.project, frame_.rows.frame.width(), frame_.rows.count,
                                     frame_.format);
}

}  // namespace ruvex::adapters
