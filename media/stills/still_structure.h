// Checks that the file of a still is what its name says, and complete.

#pragma once

#include <cstddef>
#include <span>
#include <string>

#include "media/file_kind.h"

namespace ruvex::media {

/// Checks a file's signature and, where the format has one, its end mark, stored length or table of
/// blocks: the decoders alone return the picture of a truncated file as if it were complete.
/// Returns an empty text for a valid file, else the rest of a sentence that begins with the file's
/// name
/// ("is not a PNG file.").
std::string stillFault(FileKind kind, std::span<const std::byte> file);

/// Whether each block (group of lines, or tile) in the offset table of an EXR file lies within the
/// file. The tables of multi-part files and of mip-mapped or rip-mapped tiles are not checked; for
/// these it is true if the header is complete.
bool hasExrBlocks(std::span<const std::byte> file);

}  // namespace ruvex::media
