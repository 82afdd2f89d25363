// Integers of 128 bits, for exact fractions.

#pragma once

namespace ruvex::media {

__extension__ using WideInteger = __int128;

}  // namespace ruvex::media
