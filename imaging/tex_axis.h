// The index model of one direction of an image: what is read at any index, inside or out.

#pragma once

#include <cstdint>

namespace ruvex {

/// What reading past the valid range of an axis gives. Any other value acts as `Fill`.
enum EdgeMethod : std::uint32_t {
    kEdgeFill = 0,    ///< no pixel: the texture's fill pixel stands in
    kEdgeHold = 1,    ///< the nearest valid pixel
    kEdgeMirror = 2,  ///< reflection with the edge pixel repeated: ...1 0 0 1 ... n-1 n-1 n-2...
    kEdgeWrap = 3,    ///< repetition with the period of the range
};

/// The index that stands for no pixel.
inline constexpr std::int32_t kNoPixel = -1;

/// A stretch of a row that can be copied with one constant step.
struct TexRun {
    std::int32_t index;   ///< first buffer index, or kNoPixel for the fill pixel
    std::int32_t step;    ///< +1, -1 or 0 buffer pixels for each pixel taken
    std::int32_t length;  ///< how many pixels may be taken; at least 1
};

/// The two neighbours of an interpolated sample.
struct TexPair {
    std::int32_t first;   ///< buffer index, or kNoPixel
    std::int32_t second;  ///< buffer index, or kNoPixel
    bool adjacent;        ///< both exist and `second` is `first` + 1
};

/// One direction of an image. Indices are buffer indices; coordinates are image space, which is
/// buffer index plus `origin`. An axis of size 0 refuses every index.
struct TexAxis {
    std::int32_t size = 0;         ///< pixels in the buffer
    float originF = 0.0f;          ///< coordinate of the first pixel, as sampling subtracts it
    std::int32_t origin = 0;       ///< the same as an integer, as addressing subtracts it
    std::uint32_t edgeMethod = 0;  ///< an EdgeMethod
    std::int32_t lo = 0;           ///< first valid index
    std::int32_t hi = -1;          ///< last valid index
    std::int32_t count = 0;        ///< hi - lo + 1
    std::int32_t offset = 0;       ///< coordinate of buffer index 0 for writing
    std::uint32_t flags = 0;       ///< bit 0 is clear; no other use

    void setSize(std::int32_t n);

    /// Sets the valid range from two ends in any order, each clamped to the buffer.
    void setRange(std::int32_t a, std::int32_t b);

    void setOrigin(std::int32_t value);
    void setOrigin(float value);

    /// The coordinate of the last buffer pixel for writing, held to 32 bits. One below `offset` on
    /// an axis of size 0.
    std::int32_t lastCoordinate() const;

    /// The buffer index to read for `index`, or kNoPixel.
    std::int32_t mapIndex(std::int32_t index) const {
        return index >= lo && index <= hi ? index : mapOutside(index);
    }

    /// The buffer indices to read for a sample between `index` and `index` + 1.
    TexPair mapPair(std::int32_t index) const {
        const std::int64_t e = std::int64_t{index} - lo;
        if (e >= 0 && e < std::int64_t{count} - 1) return {index, index + 1, true};
        return mapPairOutside(e);
    }

    /// The run of pixels that starts at image-space `coordinate`.
    TexRun mapRun(std::int32_t coordinate) const;

private:
    std::int32_t mapOutside(std::int32_t index) const;
    TexPair mapPairOutside(std::int64_t e) const;
};

}  // namespace ruvex
