// The mask through which the effect is painted onto the picture.

#pragma once

#include <filesystem>

#include "media/frame.h"
#include "runtime/images.h"

namespace ruvex::jobs {

/// Throws JobError for a name that cannot be a mask's: a video's, or a numbered sequence's.
void checkMaskName(const std::filesystem::path& file);

/// The opacity of the effect at a pixel, 0 to 255, from the pixel's red, green, blue and alpha: the
/// luma of Rec. 601, rounded, times alpha. A grey, opaque pixel gives its own grey value.
int maskValue(const std::uint8_t* pixel);

/// The still in `file` with 8 bits a channel. Raw files are read with `size`. Throws
/// media::MediaError, and JobError where the still is not of `size`.
media::Frame readMask(const std::filesystem::path& file, media::FrameSize size);

/// A picture of 8 bits a channel as a mask over the project's frame; row 0 is the bottom line.
ComPtr<IDSImage> toMask(const media::Frame& picture, const runtime::Project& project);

}  // namespace ruvex::jobs
