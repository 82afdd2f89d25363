#include "cli/clip_input.h"

#include <cmath>
#include <cstring>
#include <utility>

#include "cli/option_text.h"
#include "runtime/images.h"

namespace ruvex::cli {

const GUID& formatOf(media::Depth depth) {
    return depth == media::Depth::Bits8 ? MFIF_RGBA_RAW_32 : MFIF_RGBA_S2_14;
}

ClipInput::ClipInput(std::unique_ptr<media::FrameReader> reader, media::Depth depth,
                     const runtime::Project& project, ClipEnds ends)
    : reader_(std::move(reader)), depth_(depth), project_(project), ends_(ends) {}

bool ClipInput::read(std::int64_t number, media::Frame& frame) {
    return reader_->read(number, frame);
}

ComPtr<IDSImage> ClipInput::frame(std::int64_t number) {
    if (!read(number, frame_)) {
        return {};
    }
    auto image =
        runtime::makeProjectImage(project_, frame_.width(), frame_.height(), formatOf(depth_));
    std::memcpy(image->bytes(), frame_.bytes().data(), frame_.bytes().size());
    return image;
}

ComPtr<IDSImage> ClipInput::imageAt(double seconds) {
    const double place = std::round(seconds * project_.frameRate);
    // Written so that NaN is outside too.
    if (!(std::abs(place) < static_cast<double>(kFrameNumberEnd))) {
        return {};
    }
    const media::ClipInfo& clip = reader_->info();
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

}  // namespace ruvex::cli
