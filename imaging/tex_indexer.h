// The index model of an image: one axis record for each direction.

#pragma once

#include <cstdint>
#include <limits>

#include "imaging/tex_axis.h"

namespace ruvex {

/// Pixels to add around an image. A negative margin takes pixels away.
struct TexMargins {
    std::int32_t left, bottom, right, top;
};

/// The part of image space that a padded copy may cover, both ends inclusive.
struct TexLimits {
    std::int32_t minX = std::numeric_limits<std::int32_t>::min();
    std::int32_t minY = std::numeric_limits<std::int32_t>::min();
    std::int32_t maxX = std::numeric_limits<std::int32_t>::max();
    std::int32_t maxY = std::numeric_limits<std::int32_t>::max();
};

class VxTexIndexer {
public:
    VxTexIndexer() = default;

    /// Describes a copy of `source` padded by `margins`, held to `limits` if given. With
    /// `keepIfEdged`, an axis that has an edge method other than fill is copied without padding: it
    /// covers its outside by itself.
    VxTexIndexer(const VxTexIndexer& source, const TexMargins& margins,
                 const TexLimits* limits = nullptr, bool keepIfEdged = false);

    VxTexIndexer(const VxTexIndexer&) = default;
    VxTexIndexer& operator=(const VxTexIndexer&) = default;
    virtual ~VxTexIndexer() = default;

    /// Sets the valid range of both axes. Ends are inclusive, sorted, and clamped to the buffer.
    virtual void setRange(std::int32_t x0, std::int32_t x1, std::int32_t y0, std::int32_t y1);
    virtual void setEdgeMethods(std::uint32_t methodX, std::uint32_t methodY);
    virtual void setOrigin(std::int32_t originX, std::int32_t originY);
    virtual void setOrigin(float originX, float originY);

    TexAxis x;
    TexAxis y;
};

}  // namespace ruvex
