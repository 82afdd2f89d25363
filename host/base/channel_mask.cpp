#include "host/base/channel_mask.h"

#include <algorithm>

#include "imaging/copy_samplers.h"
#include "imaging/maths/wrap.h"
#include "imaging/pixel_convert.h"

namespace ruvex {
namespace {

std::uint32_t channelsToRestore(const VxDsEffect& effect, const ChannelMask& mask) {
    std::uint32_t channels = 0;
    if (mask.red == 0) channels |= 1;
    if (mask.green == 0) channels |= 2;
    if (mask.blue == 0) channels |= 4;
    if (effect.alphaMaskable != 0 && mask.alpha == 0) channels |= 8;
    return channels;
}

// Clips the range first..last to the pixels that both images have on this axis. Without this, a
// processor would clip a window outside the output to the output's edge, where the input has no
// pixels.
void cut(std::int32_t& first, std::int32_t& last, const TexAxis& input, const TexAxis& output) {
    first = std::max({first, input.origin, output.offset});
    last = std::min(
        {last, saturate(std::int64_t{input.origin} + input.size - 1), output.lastCoordinate()});
}

}  // namespace

PixelRegion finishingRegion(const VxDsEffect& effect) {
    const auto row = [&](std::int32_t y) {
        return truncateToInt(static_cast<float>(y) * effect.fieldScaleY);
    };
    const PixelRegion& region = effect.region;
    return {.x0 = region.x0, .x1 = region.x1, .y0 = row(region.y0), .y1 = row(region.y1)};
}

std::int32_t fieldOf(const VxDsEffect& effect) {
    return effect.fieldHandling == FieldHandling::SkipRows ? effect.fieldSelector : 0;
}

template <class P>
void fixChannelMask(VxDsEffect& effect, VxTexture<P>& output, VxTexture<P>& input,
                    const ChannelMask& mask) {
    const std::uint32_t channels = channelsToRestore(effect, mask);
    if (channels == 0) return;
    PixelRegion region = finishingRegion(effect);
    cut(region.x0, region.x1, input.x, output.x);
    cut(region.y0, region.y1, input.y, output.y);
    if (region.x0 > region.x1 || region.y0 > region.y1) return;

    VxRGBCopySampler<P> copier;
    copier.channels = channels;
    copier.interrupt = &effect.interruption;
    copier.setFieldMode(fieldOf(effect));
    copier.setWindow(region.x0, region.y0, region.x1, region.y1);
    input.setRange(0, input.x.size, 0, input.y.size);
    copier.process(&input, &output);
}

template void fixChannelMask(VxDsEffect&, VxTexture<Rgba8>&, VxTexture<Rgba8>&, const ChannelMask&);
template void fixChannelMask(VxDsEffect&, VxTexture<RgbaS214>&, VxTexture<RgbaS214>&,
                             const ChannelMask&);

}  // namespace ruvex
