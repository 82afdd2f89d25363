// Copies pixels of a row; outside the source its edge methods apply.

#pragma once

#include <cstdint>

#include "imaging/texture.h"

namespace ruvex {

/// Mixin without data that copies whole pixels of a row. Outside the source its edge methods apply.
class SimpleLineCopier {
public:
    /// Copies one run (see TexRun) of pixels from image-space (x, y) on, at most up to column
    /// `end` - 1. Advances `cursor` by the number of pixels and returns it: at least 1 if x < end.
    template <class P, class C>
    static std::int32_t copyRun(P*& cursor, const VxTexture<P, C>& source, std::int32_t x,
                                std::int32_t y, std::int32_t end);

    /// Copies columns x to `end` - 1 of row y, in image space.
    template <class P, class C>
    static void copyRow(P* cursor, const VxTexture<P, C>& source, std::int32_t x, std::int32_t y,
                        std::int32_t end);
};

/// A run of pixels of a source row. `pixels` is null for a run of the fill pixel.
template <class P>
struct SourceRun {
    const P* pixels;
    std::int32_t step;    ///< pixels from one to the next: 1, -1 or 0
    std::int32_t length;  ///< pixels
};
/// The run of `source` that begins at image-space (x, y), at most up to column `end` - 1.
template <class P, class C>
SourceRun<P> sourceRun(const VxTexture<P, C>& source, std::int32_t x, std::int32_t y,
                       std::int32_t end);

}  // namespace ruvex
