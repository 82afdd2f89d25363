// The X or Y axis of an image: its size, origin and valid range, and what is read outside it.

#pragma once

#include <cstdint>

namespace ruvex {

/// What is read outside the valid range of an axis. Any other value acts as kEdgeFill.
enum EdgeMethod : std::uint32_t {
    kEdgeFill = 0,    ///< the texture's fill pixel
    kEdgeHold = 1,    ///< the nearest valid pixel
    kEdgeMirror = 2,  ///< reflection with the edge pixel repeated: ...1 0 0 1 ... n-1 n-1 n-2...
    kEdgeWrap = 3,    ///< the valid range repeated: ...n-1 0 1 ... n-1 0...
};

/// The index for "no pixel": the fill pixel is read.
inline constexpr std::int32_t kNoPixel = -1;

/// A run of pixels along an axis that are read with a constant step.
struct TexRun {
    std::int32_t index;   ///< first buffer index, or kNoPixel for the fill pixel
    std::int32_t step;    ///< buffer pixels from one pixel of the run to the next: 1, -1 or 0
    std::int32_t length;  ///< number of pixels, at least 1
};

/// The two neighbours of an interpolated sample.
struct TexPair {
    std::int32_t first;   ///< buffer index, or kNoPixel
    std::int32_t second;  ///< buffer index, or kNoPixel
    bool adjacent;        ///< both exist and `second` is `first` + 1
};

/// One axis of an image. An index counts pixels of the buffer from 0; a coordinate is in image
/// space and equals index + origin. On an axis of size 0 there is no pixel at any index.
struct TexAxis {
    std::int32_t size = 0;         ///< pixels in the buffer
    float originF = 0.0f;          ///< coordinate of the first pixel, for interpolated samples
    std::int32_t origin = 0;       ///< the same as an integer, for reading pixels
    std::uint32_t edgeMethod = 0;  ///< an EdgeMethod
    std::int32_t lo = 0;           ///< first valid index
    std::int32_t hi = -1;          ///< last valid index
    std::int32_t count = 0;        ///< hi - lo + 1
    std::int32_t offset = 0;       ///< coordinate of the first pixel, for writing
    std::uint32_t flags = 0;       ///< always 0; unused

    void setSize(std::int32_t n);

    /// Sets the valid range to the indices a to b (in any order), each clamped to the buffer.
    void setRange(std::int32_t a, std::int32_t b);

    void setOrigin(std::int32_t value);
    void setOrigin(float value);

    /// The coordinate of the last buffer pixel, for writing, clamped to 32 bits. offset - 1 on an
    /// axis of size 0.
    std::int32_t lastCoordinate() const;

    /// The buffer index to read for `index`, according to the edge method; or kNoPixel.
    std::int32_t mapIndex(std::int32_t index) const {
        return index >= lo && index <= hi ? index : mapOutside(index);
    }

    /// The buffer indices to read for a sample between `index` and `index` + 1.
    TexPair mapPair(std::int32_t index) const {
        const std::int64_t e = std::int64_t{index} - lo;
        if (e >= 0 && e < std::int64_t{count} - 1) return {index, index + 1, true};
        return mapPairOutside(e);
    }

    /// The run of pixels that begins at image-space `coordinate`.
    TexRun mapRun(std::int32_t coordinate) const;

private:
    std::int32_t mapOutside(std::int32_t index) const;
    TexPair mapPairOutside(std::int64_t e) const;
};

}  // namespace ruvex
