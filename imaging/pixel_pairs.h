// Walking two sources and the Map along a row together.

#pragma once

#include <algorithm>
#include <cstdint>

#include "imaging/imager.h"
#include "imaging/line_copier.h"

namespace ruvex {

/// Calls combine(to, a, b, length) for each stretch of row y on which both sources have a run; the
/// runs stand at its first pixel, which is the fill pixel with step 0 where a source has none.
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
