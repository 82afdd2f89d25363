// Whether a file is as long as its container says.

#pragma once

#include <cstdint>
#include <istream>
#include <string_view>

namespace ruvex::media {

/// Whether the last element of a file reaches beyond the file's end, or its end mark is missing, so
/// that the file is cut off. Only the lengths of the outermost elements are read, and of elements
/// without a length, as in recordings that were sent while they were made, those of the elements
/// inside.
///
/// `format` is the FFmpeg libraries' name of the file's demuxer. Known are AVI, Matroska and WebM,
/// MP4 and QuickTime, GIF, Flash video, ASF, Ogg, MXF, Y4M and DV. False for all others, for
/// lengths that cannot be right, and if the file cannot be read. `frameBytes` is the length of a
/// frame's samples in Y4M and of a frame in DV, where all frames have the same; 0 if it is unknown.
bool isCutOff(std::istream& file, std::string_view format, std::uint64_t frameBytes = 0);

}  // namespace ruvex::media
