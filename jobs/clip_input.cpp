#include "jobs/clip_input.h"

#include <cmath>
#include <utility>

namespace ruvex::jobs {

const GUID& formatOf(media::Depth depth) {
    return depth == media::Depth::Bits8 ? MFIF_RGBA_RAW_32 : MFIF_RGBA_S2_14;
}

ComPtr<IDSImage> ClipInput::frame(std::int64_t number) {
    Given& given = unusedPicture();
    if (!readFrame(number, given.frame)) return {};
    return given.image.lend(project_, given.frame.width(), given.frame.height(),
                            formatOf(given.frame.depth()), given.frame.bytes().data());
}

bool ClipInput::readFrame(std::int64_t number, media::Frame& frame) {
    const bool isAtHand = atHand_.frame && (atHand_.number == number || !clip_->servesOthers());
    media::Frame& read = atHand_.field ? whole_ : frame;
    if (!isAtHand && !clip_->readOther(number, read)) return false;
    const media::Frame& found = isAtHand ? *atHand_.frame : read;
    if (atHand_.field) {
        media::takeField(found, *atHand_.field, frame);
    } else if (isAtHand) {
        frame = found;
    }
    return true;
}

ClipInput::Given& ClipInput::unusedPicture() {
    for (Given& given : given_) {
        if (!given.image.isHeld()) return given;
    }
    return given_.emplace_back();
}

media::HeldMemory ClipInput::held() const {
    media::HeldMemory held;
    for (const Given& given : given_) held.add(given.frame);
    held.add(whole_);
    return held;
}

void ClipInput::endRender() noexcept {
    for (Given& given : given_) given.image.takeBack();
    failure_ = nullptr;
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
