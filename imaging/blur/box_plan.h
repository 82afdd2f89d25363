// Where the boxes of a blur run along an axis.

#pragma once

#include <array>
#include <cstdint>

#include "imaging/blur/blur_weights.h"
#include "imaging/tex_axis.h"

namespace ruvex {

/// Positions `first` to `end` - 1 along an axis, in image space.
struct LineRange {
    std::int64_t first, end;

    std::int64_t size() const { return end > first ? end - first : 0; }
    bool holds(const LineRange& other) const { return other.first >= first && other.end <= end; }
    LineRange meet(const LineRange& other) const;
};

/// The boxes along one axis. Each reads what the one before wrote: the first reads the picture, the
/// others a row buffer, past whose ends its own edge method counts.
struct BoxPlan {
    struct Axis {
        std::int64_t first;          ///< the coordinate of the Map's first pixel
        std::int64_t size;           ///< of the larger of Map and source
        std::uint32_t edgeMethod;    ///< of the pass's input
        std::int32_t iterations;     ///< 3 boxes if 3, else 2
        std::int32_t bytesPerPixel;  ///< of a row buffer
    };
    /// `window` is what the last box is to write, of which `written` can be.
    BoxPlan(float radius, const Axis& axis, const LineRange& window, const LineRange& written);

    /// Whether the row buffers have a size at all, and one below 2 GB.
    bool possible() const;
    /// Whether the second box reads outside the row buffers; the last of three never does.
    bool readsPastBuffer() const;
    /// What box `i` reads.
    LineRange inputOf(int i) const;
    const LineRange& output() const { return range[static_cast<std::size_t>(boxes - 1)]; }

    BoxWeights weights;
    int boxes;
    std::array<LineRange, 3> range{};  ///< what each box writes
    LineRange buffer;                  ///< the extent of the row buffers
    std::uint32_t edgeMethod;
    std::int32_t bytesPerPixel;
};

}  // namespace ruvex
