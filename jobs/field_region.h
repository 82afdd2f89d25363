// The part of a field that lies in a region of its frame.

#pragma once

#include <optional>

#include "jobs/frame_range.h"
#include "media/pixels/fields.h"

namespace ruvex::jobs {

/// The region in rows of the field, counted from its bottom line. Its height is 0 where the region
/// contains no line of the field. Empty (the whole field) for an empty region.
std::optional<Region> fieldRegion(const std::optional<Region>& region, int frameHeight,
                                  media::Field field);

}  // namespace ruvex::jobs
