#include "host/base/paint.h"

#include <limits>

#include "host/base/channel_mask.h"
#include "imaging/maths/wrap.h"

namespace ruvex {
namespace {

constexpr std::int32_t kFullMask = 255;

// The pixels of an image along a row of the output. Null outside the image; no edge method applies.
template <class P>
class RowReader {
public:
    RowReader(const VxTexture<P>& texture, std::int32_t y) : axis_(texture.x) {
        const std::int32_t row = wrapSubtract(y, texture.y.origin);
        const bool exists = texture.data && row >= texture.y.lo && row <= texture.y.hi;
        if (exists) row_ = texture.bufferRow(row);
    }

    const P* at(std::int32_t x) const {
        const std::int32_t column = wrapSubtract(x, axis_.origin);
        const bool exists = row_ && column >= axis_.lo && column <= axis_.hi;
        return exists ? row_ + column : nullptr;
    }

private:
    TexAxis axis_;
    const P* row_ = nullptr;
};

template <class P>
P paint(const P* input, const Channel8* mask, const P& effect) {
    static constexpr P kNothing{};
    const P& below = input ? *input : kNothing;
    if (!mask || mask->c[0] == 0) return below;
    const std::int32_t m = mask->c[0];
    if (m == kFullMask) return effect;
    P painted;
    for (int k = 0; k < 4; ++k) {
        const std::int32_t from = below.c[k];
        painted.c[k] =
            static_cast<typename P::Component>(from + (effect.c[k] - from) * m / kFullMask);
    }
    return painted;
}

}  // namespace

template <class P>
void VxDsPaintCombiner<P>::work(VxTexture<P>* input, MaskTexture* mask, VxTexture<P>* output) {
    const RowLoop loop = this->rowLoop();
    forEachRow(loop, this->interrupt, [&](std::int32_t y) {
        const RowReader<P> inputs(*input, y);
        const RowReader<Channel8> masks(*mask, y);
        P* to = output->writeAt(loop.x0, y);
        for (std::int32_t x = loop.x0; x < loop.x1; ++x, ++to) {
            *to = paint(inputs.at(x), masks.at(x), *to);
        }
    });
}

template <class P>
void paintThroughMask(VxDsEffect& effect, VxTexture<P>& output, const VxTexture<P>& input,
                      MaskTexture& mask) {
    constexpr std::int32_t kAll = std::numeric_limits<std::int32_t>::max();
    VxTexture<P> whole;
    whole.refer(input);
    whole.setRange(0, kAll, 0, kAll);
    whole.setEdgeMethods(kEdgeFill, kEdgeFill);

    VxDsPaintCombiner<P> combiner;
    combiner.interrupt = &effect.interruption;
    combiner.setFieldMode(fieldOf(effect));
    const PixelRegion region = finishingRegion(effect);
    combiner.setWindow(region.x0, region.y0, region.x1, region.y1);
    combiner.process(&whole, &mask, &output);
}

template void paintThroughMask(VxDsEffect&, VxTexture<Rgba8>&, const VxTexture<Rgba8>&,
                               MaskTexture&);
template void paintThroughMask(VxDsEffect&, VxTexture<RgbaS214>&, const VxTexture<RgbaS214>&,
                               MaskTexture&);

}  // namespace ruvex
