// The mask through which the effect is painted onto the picture.

#pragma once

#include <filesystem>

#include "media/frame.h"
#include "runtime/images.h"

namespace ruvex::cli {

/// Throws UsageError for what cannot be a mask by its name: a video, or a numbered sequence.
void checkMaskName(const std::filesystem::path& file);

/// How much of the effect a pixel lets through, 0 to 255, from its red, green, blue and alpha: the
/// luma of Rec. 601, rounded, of which a transparent pixel lets nothing through. A grey, opaque
/// pixel is its own grey value.
int maskValue(const std::uint8_t* pixel);

/// The picture in `file`, of 8 bits: deeper ones are rounded. Raw files are taken to be of `size`.
/// Throws media::MediaError, and UsageError where the picture is not of `size`.
media::Frame readMask(const std::filesystem::path& file, media::FrameSize size);

/// A picture of 8 bits as a mask over the project's frame, row 0 the bottom line.
ComPtr<IDSImage> toMask(const media::Frame& picture, const runtime::Project& project);

}  // namespace ruvex::cli
