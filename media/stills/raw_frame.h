// Raw frames in files: chain rows without a header, row 0 first, S2.14 words little-endian.

#pragma once

#include <filesystem>

#include "media/frame.h"

namespace ruvex::media {

/// Reads a file as one frame. Throws MediaError if the file's length is not exactly the frame's.
Frame readRawFrame(const std::filesystem::path& file, FrameSize size, Depth depth);

/// Writes a frame; the file appears only when it is complete. Throws MediaError.
void writeRawFrame(const std::filesystem::path& file, const Frame& frame);

}  // namespace ruvex::media
