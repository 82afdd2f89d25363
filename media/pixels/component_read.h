// Reading one component along a line of a picture of any integer format.

#pragma once

extern "C" {
#include <libavutil/frame.h>
#include <libavutil/pixdesc.h>
}

#include <cstdint>
#include <span>

namespace ruvex::media {

/// Reads the first values of a component of at most 16 bits along line `y` of its plane, from the
/// top, one for each element of `values`; a subsampled component has fewer than the picture's
/// width.
void readComponent(const AVFrame& picture, const AVPixFmtDescriptor& format, int component, int y,
                   std::span<std::uint16_t> values);

}  // namespace ruvex::media
