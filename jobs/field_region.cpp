#include "jobs/field_region.h"

namespace ruvex::jobs {
namespace {

/// How many of the frame's rows below `end` belong to the field: its rows are every second one.
int fieldRowsBelow(int end, int frameHeight, media::Field field) {
    const int first = media::frameRowOf(0, frameHeight, field);  // 0 or 1
    return (end - first + 1) / 2;
}

}  // namespace

std::optional<Region> fieldRegion(const std::optional<Region>& region, int frameHeight,
                                  media::Field field) {
    if (!region) {
        return std::nullopt;
    }
    Region part = *region;
    part.y = fieldRowsBelow(region->y, frameHeight, field);
    part.height = fieldRowsBelow(region->y + region->height, frameHeight, field) - part.y;
    return part;
}

}  // namespace ruvex::jobs
