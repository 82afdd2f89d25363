// The part of the picture that the processors of a frame render.

#pragma once

#include <optional>

#include "host/base/vx_ds_effect.h"
#include "imaging/pixel_convert.h"

namespace ruvex {

/// The region for processors at full size; no value without a region of interest. For a field that
/// is rendered as an image of half height, rows are halved.
inline std::optional<PixelRegion> frameRegion(const VxDsEffect& effect, bool roiSet) {
    if (!roiSet) return std::nullopt;
    PixelRegion region = effect.region;
    if (effect.rendersHalfHeight()) {
        region.y0 /= 2;
        region.y1 /= 2;
    }
    return region;
}

/// The region for processors at a reduced size.
inline std::optional<PixelRegion> scaledRegion(const std::optional<PixelRegion>& region,
                                               float factor) {
    if (!region) return std::nullopt;
    const auto scaled = [factor](std::int32_t v) {
        return truncateToInt(static_cast<float>(v) * factor);
    };
    return PixelRegion{scaled(region->x0), scaled(region->x1), scaled(region->y0),
                       scaled(region->y1)};
}

/// Sets a processor's window and interruption record.
template <class Processor>
void prepare(Processor& processor, VxDsEffect& effect, const std::optional<PixelRegion>& region) {
    processor.interrupt = &effect.interruption;
    if (region) processor.setWindow(region->x0, region->y0, region->x1, region->y1);
}

}  // namespace ruvex
