// Iterates over a row of two sources and the Map together.

#pragma once

#include <algorithm>
#include <cstdint>

#include "imaging/imager.h"
#include "imaging/line_copier.h"

namespace ruvex {

/// Divides row y into stretches in which each source has a single run, and calls
/// combine(to, a, b, length) for each: the Map's first pixel, the sources' runs from there on, and
/// the number of pixels. Where a source has no pixels, its run is the fill pixel with step 0.
template <class P, class Combine>
void forEachPixelPair(const VxTexture<P>& first, const VxTexture<P>& second, VxTexture<P>& target,
                      const RowLoop& loop, std::int32_t y, Combine combine) {
    const auto runAt = [&](const VxTexture<P>& source, std::int32_t x) {
        SourceRun<P> run = sourceRun(source, x, y, loop.x1);
        if (!run.pixels) run = {&source.fill, 0, run.length};
        return run;
    };
    P* to = target.writeAt(loop.x0, y);
    for (std::int32_t x = loop.x0; x < loop.x1;) {
        const SourceRun<P> a = runAt(first, x);
        const SourceRun<P> b = runAt(second, x);
        const std::int32_t length = std::min(a.length, b.length);
        combine(to, a, b, length);
        to += length;
        x += length;
    }
}

}  // namespace ruvex
