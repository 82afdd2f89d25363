// What a failed call of the FFmpeg libraries says about a file that is written.

#pragma once

#include <filesystem>

namespace ruvex::media {

/// Throws MediaError, a sentence about `file`, if `code`, a result of the libraries, is an error.
void throwIfFailed(int code, const std::filesystem::path& file);

}  // namespace ruvex::media
