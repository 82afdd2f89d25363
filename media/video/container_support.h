// Which streams of one file another container can hold.

#pragma once

#include "media/av_library.h"

namespace ruvex::media {

/// Adds a stream of the same codec, parameters and time base to `output`, without tags. Throws
/// std::bad_alloc.
AVStream& addLike(const AVStream& from, AVFormatContext& output);

/// Whether a container can hold such a stream of audio or subtitles.
bool canHold(const AVOutputFormat& container, const AVStream& stream);

/// Whether the container is Matroska, the only one with attached files.
bool holdsAttachments(const AVOutputFormat& container);

/// Whether the container has chapters: all that are written but MXF.
bool holdsChapters(const AVOutputFormat& container);

/// Whether the container is MP4, which stores cover pictures as such.
bool holdsCovers(const AVOutputFormat& container);

}  // namespace ruvex::media
