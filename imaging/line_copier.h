// Copying the stretch of a row that one edge rule covers.

#pragma once

#include <cstdint>

#include "imaging/texture.h"

namespace ruvex {

/// Mixin without data: copies whole pixels of a row through the source's edge methods.
class SimpleLineCopier {
public:
    /// Copies the pixels from image-space (x, y) that one run covers, at most up to column `end`.
    /// Moves `cursor` past what it wrote and returns the count, at least 1 while x is below `end`.
    template <class P, class C>
    static std::int32_t copyRun(P*& cursor, const VxTexture<P, C>& source, std::int32_t x,
                                std::int32_t y, std::int32_t end);

    /// Copies the whole row from column x to `end`.
    template <class P, class C>
    static void copyRow(P* cursor, const VxTexture<P, C>& source, std::int32_t x, std::int32_t y,
                        std::int32_t end);
};

/// The run at (x, y) of a source, cut at `end`: its first pixel, or null where there is none.
template <class P>
struct SourceRun {
    const P* pixels;
    std::int32_t step;
    std::int32_t length;
};
template <class P, class C>
SourceRun<P> sourceRun(const VxTexture<P, C>& source, std::int32_t x, std::int32_t y,
                       std::int32_t end);

}  // namespace ruvex
