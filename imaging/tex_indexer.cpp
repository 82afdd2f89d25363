#include "imaging/tex_indexer.h"

#include <algorithm>

#include "imaging/maths/wrap.h"

namespace ruvex {
namespace {

struct AxisPadding {
    std::int32_t low, high;
    const std::int32_t* min;  // null without limits
    const std::int32_t* max;
    bool keepIfEdged;
};

TexAxis padAxis(const TexAxis& source, const AxisPadding& padding) {
    if (padding.keepIfEdged && source.edgeMethod != kEdgeFill) {
        TexAxis kept = source;
        kept.offset = source.origin;
        return kept;
    }
    const std::int64_t origin = source.origin;
    const std::int64_t size = source.size;
    std::int64_t low = padding.low;
    std::int64_t high = padding.high;
    if (padding.min) {
        const std::int64_t first = std::max<std::int64_t>(origin - low, *padding.min);
        const std::int64_t last = std::max<std::int64_t>(origin + size + high - 1, *padding.min);
        low = origin - std::min<std::int64_t>(first, *padding.max);
        high = std::min<std::int64_t>(last, *padding.max) - origin - size + 1;
    }
    TexAxis padded;
    padded.setSize(saturate(std::max<std::int64_t>(size + low + high, 0)));
    padded.setOrigin(saturate(origin - low));
    padded.offset = padded.origin;
    padded.edgeMethod = source.edgeMethod;
    return padded;
}

}  // namespace

VxTexIndexer::VxTexIndexer(const VxTexIndexer& source, const TexMargins& margins,
                           const TexLimits* limits, bool keepIfEdged)
    : x(padAxis(source.x, {margins.left, margins.right, limits ? &limits->minX : nullptr,
                           limits ? &limits->maxX : nullptr, keepIfEdged})),
      y(padAxis(source.y, {margins.bottom, margins.top, limits ? &limits->minY : nullptr,
                           limits ? &limits->maxY : nullptr, keepIfEdged})) {}

void VxTexIndexer::setRange(std::int32_t x0, std::int32_t x1, std::int32_t y0, std::int32_t y1) {
    x.setRange(x0, x1);
    y.setRange(y0, y1);
}

void VxTexIndexer::setEdgeMethods(std::uint32_t methodX, std::uint32_t methodY) {
    x.edgeMethod = methodX;
    y.edgeMethod = methodY;
}

void VxTexIndexer::setOrigin(std::int32_t originX, std::int32_t originY) {
    x.setOrigin(originX);
    y.setOrigin(originY);
}

void VxTexIndexer::setOrigin(float originX, float originY) {
    x.setOrigin(originX);
    y.setOrigin(originY);
}

}  // namespace ruvex
