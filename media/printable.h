// What a file holds, in messages.

#pragma once

#include <string>
#include <string_view>

namespace ruvex::media {

/// The text as any terminal can be given it: control characters and bytes that are not UTF-8 stand
/// as \x1B and the like. Of more than `most` bytes the rest is left out, with "..." in its place.
std::string printable(std::string_view text, std::size_t most);

}  // namespace ruvex::media
