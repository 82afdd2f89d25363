#include "effect/resolution.h"

#include "effect/frame_region.h"
#include "imaging/maths/wrap.h"
#include "imaging/move_sampler.h"
#include "imaging/pixel_convert.h"

namespace ruvex {
namespace {

// The valid range of an axis at another size, in whole pixels.
Span scaledRange(const TexAxis& from, std::int32_t newSize) {
    if (from.size == newSize || from.size < 1) return {from.lo, from.hi};
    const auto scaled = [&](std::int32_t index) {
        return saturate(std::int64_t{index} * newSize / from.size);
    };
    return {scaled(from.lo), scaled(from.hi)};
}

template <class P>
void allocateWork(VxTexture<P>& texture, std::int32_t width, std::int32_t height) {
    texture.x.setSize(width);
    texture.y.setSize(height);
    // A region leaves pixels outside it unwritten, and scaling up can reach them.
    texture.allocate(Contents::Zero);
}

}  // namespace

template <class P>
void allocateScaled(ScaledBuffers<P>& buffers, const VxTexture<P>& input, const FrameScale& scale,
                    float res) {
    const std::int32_t width = truncateToInt(res * scale.pixelsX);
    const std::int32_t height = truncateToInt(res * scale.pixelsY);
    allocateWork(buffers.source, width, height);
    allocateWork(buffers.result, width, height);

    buffers.source.setEdgeMethods(input.x.edgeMethod, input.y.edgeMethod);
    const Span columns = scaledRange(input.x, width);
    const Span rows = scaledRange(input.y, height);
    buffers.source.setRange(columns.first, columns.end, rows.first, rows.end);
    buffers.result.setEdgeMethods(kEdgeHold, kEdgeHold);
}

template <class P>
void moveScaled(VxDsEffect& effect, VxTexture<P>& from, VxTexture<P>& to, float factor,
                const std::optional<PixelRegion>& region) {
    VxMoveSampler<P> sampler;
    scale(sampler.matrix, factor, factor);
    prepare(sampler, effect, region);
    sampler.process(&from, &to);
}

template void allocateScaled(ScaledBuffers<Rgba8>&, const VxTexture<Rgba8>&, const FrameScale&,
                             float);
template void allocateScaled(ScaledBuffers<RgbaS214>&, const VxTexture<RgbaS214>&,
                             const FrameScale&, float);
template void moveScaled(VxDsEffect&, VxTexture<Rgba8>&, VxTexture<Rgba8>&, float,
                         const std::optional<PixelRegion>&);
template void moveScaled(VxDsEffect&, VxTexture<RgbaS214>&, VxTexture<RgbaS214>&, float,
                         const std::optional<PixelRegion>&);

}  // namespace ruvex
