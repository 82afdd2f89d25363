// Whether the file of a still is what its name says, and all there.

#pragma once

#include <cstddef>
#include <span>
#include <string>

#include "media/file_kind.h"

namespace ruvex::media {

/// Looks at a file's first bytes and, where the kind has one, for its end mark. An empty text if
/// all is well, else what is wrong, to follow the file's name. The decoders alone would take half
/// a picture for a whole one.
std::string stillFault(FileKind kind, std::span<const std::byte> file);

}  // namespace ruvex::media
