#include "host/base/crop.h"

#include <algorithm>

#include "imaging/img_filler.h"
#include "imaging/pixel_convert.h"

namespace ruvex {
namespace {

// A fraction of an axis as a buffer index, truncated.
std::int32_t along(const TexAxis& axis, float fraction) {
    return truncateToInt(static_cast<float>(axis.size) * fraction);
}

// The same as an image-space coordinate.
std::int32_t placed(const TexAxis& axis, float fraction) {
    return truncateToInt(static_cast<float>(axis.size) * fraction +
                         static_cast<float>(axis.origin));
}

}  // namespace

template <class P>
void applyCrop(const VxDsEffect& effect, VxTexture<P>& texture) {
    if (effect.cropMode == CropMode::None) return;
    const CropState& crop = effect.crop;
    texture.setRange(along(texture.x, crop.left), along(texture.x, crop.right),
                     along(texture.y, crop.bottom), along(texture.y, crop.top));
    if (effect.cropMode == CropMode::Window) return;
    const ParameterValues& values = effect.parameters;
    texture.setEdgeMethods(static_cast<std::uint32_t>(values.integer(ParameterId::XEdgeMethod)),
                           static_cast<std::uint32_t>(values.integer(ParameterId::YEdgeMethod)));
    P fill;
    for (int k = 0; k < 4; ++k) fill.c[k] = fromNormalised<P>(crop.edgeColour[k]);
    texture.setFill(fill);
}

template <class P>
void blankOutside(VxDsEffect& effect, VxTexture<P>& output, const VxTexture<P>& input,
                  const std::optional<PixelRegion>& region) {
    const CropState& crop = effect.crop;
    const auto [left, right] =
        std::minmax({placed(input.x, crop.left), placed(input.x, crop.right)});
    const auto [low, high] = std::minmax({placed(input.y, crop.bottom), placed(input.y, crop.top)});

    VxImgFiller<P> filler;
    filler.interrupt = &effect.interruption;
    filler.useInside = true;
    filler.insideLeft = left;
    filler.insideRight = right;
    filler.insideTop = low;
    filler.insideBottom = high;
    if (region) filler.setWindow(region->x0, region->y0, region->x1, region->y1);
    filler.process(output);
}

template void applyCrop(const VxDsEffect&, VxTexture<Rgba8>&);
template void applyCrop(const VxDsEffect&, VxTexture<RgbaS214>&);
template void blankOutside(VxDsEffect&, VxTexture<Rgba8>&, const VxTexture<Rgba8>&,
                           const std::optional<PixelRegion>&);
template void blankOutside(VxDsEffect&, VxTexture<RgbaS214>&, const VxTexture<RgbaS214>&,
                           const std::optional<PixelRegion>&);

}  // namespace ruvex
