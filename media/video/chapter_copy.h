// Copying the chapters of a clip.

#pragma once

#include <cstdint>

#include "media/video/stream_copy.h"

namespace ruvex::media {

/// Adds the chapters of `input` that lie in the interval of `source` to `output`, cut to it, with
/// their titles. `lead` is the time of the first picture in the output, in microseconds. To be
/// called before the header is written. Throws std::bad_alloc.
void copyChapters(const AVFormatContext& input, const CopySource& source, std::int64_t lead,
                  AVFormatContext& output);

}  // namespace ruvex::media
