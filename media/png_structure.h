// Whether a PNG is all there.

#pragma once

#include <cstddef>
#include <span>
#include <string>

namespace ruvex::media {

/// Walks the chunks from the signature to the end mark. An empty text if all are there, else what
/// is wrong, to follow the file's name. The decoder alone would take half a picture for a whole
/// one.
std::string pngFault(std::span<const std::byte> file);

}  // namespace ruvex::media
