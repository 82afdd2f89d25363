// Whether an EXR file is all there.

#pragma once

#include <cstddef>
#include <span>

namespace ruvex::media {

/// Whether each block of the picture that the table at the file's head names lies within the file.
/// True too for files of several parts or of several resolutions, whose tables are not looked at.
bool hasExrBlocks(std::span<const std::byte> file);

}  // namespace ruvex::media
