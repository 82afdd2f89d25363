// Headerless frames: the chain's own rows, row 0 first, S2.14 words little-endian.

#pragma once

#include <filesystem>

#include "media/frame.h"

namespace ruvex::media {

/// The file as a frame. Throws MediaError if its length is not exactly that of one frame.
Frame readRawFrame(const std::filesystem::path& file, FrameSize size, Depth depth);

/// The frame as a file, complete or not at all. Throws MediaError.
void writeRawFrame(const std::filesystem::path& file, const Frame& frame);

}  // namespace ruvex::media
