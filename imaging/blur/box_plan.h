// The ranges that the boxes of a blur read and write along an axis.

#pragma once

#include <array>
#include <cstdint>

#include "imaging/blur/blur_weights.h"
#include "imaging/tex_axis.h"

namespace ruvex {

/// The coordinates first .. end - 1 along an axis, in image space.
struct LineRange {
    std::int64_t first, end;

    std::int64_t size() const { return end > first ? end - first : 0; }
    bool holds(const LineRange& other) const { return other.first >= first && other.end <= end; }
    LineRange meet(const LineRange& other) const;
};

/// The boxes along one axis. The first reads the picture, each further one the row buffer that the
/// box before has written. Outside a row buffer the axis's edge method applies to that buffer.
struct BoxPlan {
    struct Axis {
        std::int64_t first;          ///< the coordinate of the Map's first pixel
        std::int64_t size;           ///< pixels; the larger of Map and source
        std::uint32_t edgeMethod;    ///< EdgeMethod of the pass's input
        std::int32_t iterations;     ///< 3: three boxes; any other value: two
        std::int32_t bytesPerPixel;  ///< in a row buffer
    };
    /// The last box writes the part of `window` that lies in `written`.
    BoxPlan(float radius, const Axis& axis, const LineRange& window, const LineRange& written);

    /// Whether the row buffers have a size above 0 and below 2 GB.
    bool possible() const;
    /// Whether the second of two boxes reads outside the row buffer. With three boxes none does.
    bool readsPastBuffer() const;
    /// The range that box `i` reads.
    LineRange inputOf(int i) const;
    const LineRange& output() const { return range[static_cast<std::size_t>(boxes - 1)]; }

    BoxWeights weights;
    int boxes;
    std::array<LineRange, 3> range{};  ///< the range that each box writes
    LineRange buffer;                  ///< the extent of the row buffers
    std::uint32_t edgeMethod;
    std::int32_t bytesPerPixel;
};

}  // namespace ruvex
