// The layout of an image: one TexAxis for X and one for Y.

#pragma once

#include <cstdint>
#include <limits>

#include "imaging/tex_axis.h"

namespace ruvex {

/// Pixels to add at the four sides of an image. A negative margin removes pixels.
struct TexMargins {
    std::int32_t left, bottom, right, top;
};

/// The area of image space that a padded copy may cover, inclusive.
struct TexLimits {
    std::int32_t minX = std::numeric_limits<std::int32_t>::min();
    std::int32_t minY = std::numeric_limits<std::int32_t>::min();
    std::int32_t maxX = std::numeric_limits<std::int32_t>::max();
    std::int32_t maxY = std::numeric_limits<std::int32_t>::max();
};

class VxTexIndexer {
public:
    VxTexIndexer() = default;

    /// The layout of a copy of `source` padded by `margins` and clipped to `limits` (may be null).
    /// With `keepIfEdged`, an axis with another edge method than kEdgeFill is not padded: its edge
    /// method covers the outside already.
    VxTexIndexer(const VxTexIndexer& source, const TexMargins& margins,
                 const TexLimits* limits = nullptr, bool keepIfEdged = false);

    VxTexIndexer(const VxTexIndexer&) = default;
    VxTexIndexer& operator=(const VxTexIndexer&) = default;
    virtual ~VxTexIndexer() = default;

    /// Sets the valid range of both axes to buffer indices x0 to x1 and y0 to y1, inclusive, in any
    /// order, clamped to the buffer.
    virtual void setRange(std::int32_t x0, std::int32_t x1, std::int32_t y0, std::int32_t y1);
    virtual void setEdgeMethods(std::uint32_t methodX, std::uint32_t methodY);
    virtual void setOrigin(std::int32_t originX, std::int32_t originY);
    virtual void setOrigin(float originX, float originY);

    TexAxis x;
    TexAxis y;
};

}  // namespace ruvex
