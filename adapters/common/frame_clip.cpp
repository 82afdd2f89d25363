#include "adapters/common/frame_clip.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace ruvex::adapters {

FrameClip::AtHand FrameClip::begin(const Frame& frame) {
    frame_ = frame;
    failure_ = nullptr;
    return readAtHand(input_);
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

FrameClip::AtHand FrameClip::readAtHand(runtime::KeptImage& kept) const {
    AtHand atHand{imageFor(frame_.atHand, kept)};
    if (!frame_.atHand) return atHand;
    const bool opaque = readPicture(*frame_.atHand, frame_.rows, *atHand.image);
    atHand.opaque = opaque || frame_.atHand->form.isOpaque();
    return atHand;
}

ComPtr<CDSMemoryImage> FrameClip::otherImage(double seconds) {
    if (!frame_.others || isAtHand(seconds)) return readAtHand(other_).image;
    ComPtr<CDSMemoryImage> image;
    const auto read = [&](const SourcePicture& picture) {
        image = imageFor(&picture, other_);
        readPicture(picture, frame_.rows, *image);
    };
    return frame_.others->pictureAt(seconds, read) ? image : readAtHand(other_).image;
}

ComPtr<CDSMemoryImage> FrameClip::imageFor(const SourcePicture* picture,
                                           runtime::KeptImage& kept) const {
    const PixelRect& frame = frame_.rows.frame;
    auto image = kept.take(frame_.project, frame.width(), frame_.rows.count, frame_.format);
    const bool isWhole = picture && intersection(picture->bounds, frame) == frame;
    if (!isWhole) std::fill_n(image->bytes(), image->byteCount(), std::byte{});
    return image;
}

}  // namespace ruvex::adapters
