// Reads pixels of a row run by run; outside the source its edge methods apply.

#pragma once

#include <cstdint>

#include "imaging/line_copier.h"
#include "imaging/maths/wrap.h"

namespace ruvex {

/// Calls piece(pixels, step, done, length) for each run of the `count` pixels from image-space (x,
/// y) on. A run has `length` pixels, `step` pixels apart; `done` is the number of pixels before it.
/// Columns are computed modulo 2^32.
template <class P, class Piece>
void overRuns(const VxTexture<P>& source, std::int32_t x, std::int32_t y, std::int32_t count,
              Piece piece) {
    const std::int32_t end = wrapAdd(x, count);
    for (std::int32_t done = 0; done < count;) {
        const SourceRun<P> run = sourceRun(source, wrapAdd(x, done), y, end);
        piece(run.pixels ? run.pixels : &source.fill, run.step, done, run.length);
        done += run.length;
    }
}

/// The pixels of a run as consecutive pixels: the run itself if its step is 1, else a copy in
/// `scratch`.
template <class P>
const P* inLine(const P* pixels, std::int32_t step, std::int32_t length, P* scratch) {
    if (step == 1) return pixels;
    for (std::int32_t i = 0; i < length; ++i) scratch[i] = pixels[std::ptrdiff_t{i} * step];
    return scratch;
}

}  // namespace ruvex
