// The part of a field that lies in a region of its frame.

#pragma once

#include <optional>

#include "cli/option_text.h"
#include "media/pixels/fields.h"

namespace ruvex::cli {

/// In rows of the field, from its bottom line; of no height where the region holds no line of it.
/// Nothing, which is everything, for a region of nothing.
std::optional<Region> fieldRegion(const std::optional<Region>& region, int frameHeight,
                                  media::Field field);

}  // namespace ruvex::cli
