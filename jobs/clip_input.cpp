#include "jobs/clip_input.h"

#include <cmath>
#include <cstring>
#include <utility>

#include "runtime/images.h"

namespace ruvex::jobs {

const GUID& formatOf(media::Depth depth) {
    return depth == media::Depth::Bits8 ? MFIF_RGBA_RAW_32 : MFIF_RGBA_S2_14;
}

ComPtr<IDSImage> toImage(const runtime::Project& project, const media::Frame& frame) {
    auto image =
        runtime::makeProjectImage(project, frame.width(), frame.height(), formatOf(frame.depth()));
    std::memcpy(image->bytes(), frame.bytes().data(), frame.bytes().size());
    return image;
}

ComPtr<IDSImage> ClipInput::frame(std::int64_t number) {
    const media::Frame* found = find(number);
    if (found == nullptr) {
        return {};
    }
    if (atHand_.field) {
        media::takeField(*found, *atHand_.field, field_);
        found = &field_;
    }
    return toImage(project_, *found);
}

const media::Frame* ClipInput::find(std::int64_t number) {
    if (atHand_.frame != nullptr && atHand_.number == number) {
        return atHand_.frame;
    }
    return clip_->readOther(number, frame_) ? &frame_ : nullptr;
}

ComPtr<IDSImage> ClipInput::imageAt(double seconds) {
    const double place = std::round(seconds * project_.frameRate);
    // Written so that NaN is outside too.
    if (!(std::abs(place) < static_cast<double>(kFrameNumberEnd))) {
        return {};
    }
    const media::ClipInfo& clip = clip_->info();
    const auto found =
        frameInClip(static_cast<std::int64_t>(place), {clip.first, clip.last}, ends_);
    if (!found) {
        return {};
    }
    try {
        return frame(*found);
    } catch (...) {
        failure_ = std::current_exception();
        throw;
    }
}

void ClipInput::rethrowFailure() {
    if (failure_) {
        std::rethrow_exception(std::exchange(failure_, nullptr));
    }
}

}  // namespace ruvex::jobs
