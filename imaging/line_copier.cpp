#include "imaging/line_copier.h"

#include <algorithm>
#include <cstring>

#include "imaging/maths/wrap.h"

namespace ruvex {
namespace {

template <class P>
void copyPixels(P* to, const SourceRun<P>& run, const P& fill) {
    if (!run.pixels || run.step == 0) {
        std::fill_n(to, run.length, run.pixels ? *run.pixels : fill);
    } else if (run.step == 1) {
        // memmove: if the source is the Map itself, a run and its copy may overlap.
        std::memmove(to, run.pixels, static_cast<std::size_t>(run.length) * sizeof(P));
    } else {
        for (std::int32_t i = 0; i < run.length; ++i) {
            to[i] = run.pixels[std::ptrdiff_t{i} * run.step];
        }
    }
}

}  // namespace

template <class P, class C>
SourceRun<P> sourceRun(const VxTexture<P, C>& source, std::int32_t x, std::int32_t y,
                       std::int32_t end) {
    const TexRun run = source.x.mapRun(x);
    const std::int32_t length = std::min(run.length, wrapSubtract(end, x));
    if (run.index == kNoPixel || !source.data) return {nullptr, 0, length};
    const std::int32_t row = source.y.mapIndex(wrapSubtract(y, source.y.origin));
    if (row == kNoPixel) return {nullptr, 0, length};
    return {source.bufferRow(row) + run.index, run.step, length};
}

template <class P, class C>
std::int32_t SimpleLineCopier::copyRun(P*& cursor, const VxTexture<P, C>& source, std::int32_t x,
                                       std::int32_t y, std::int32_t end) {
    const SourceRun<P> run = sourceRun(source, x, y, end);
    copyPixels(cursor, run, source.fill);
    cursor += run.length;
    return run.length;
}

template <class P, class C>
void SimpleLineCopier::copyRow(P* cursor, const VxTexture<P, C>& source, std::int32_t x,
                               std::int32_t y, std::int32_t end) {
    while (x < end) x += copyRun(cursor, source, x, y, end);
}

#define RUVEX_INSTANTIATE(P)                                                                     \
    template SourceRun<P> sourceRun(const VxTexture<P>&, std::int32_t, std::int32_t,             \
                                    std::int32_t);                                               \
    template std::int32_t SimpleLineCopier::copyRun(P*&, const VxTexture<P>&, std::int32_t,      \
                                                    std::int32_t, std::int32_t);                 \
    template void SimpleLineCopier::copyRow(P*, const VxTexture<P>&, std::int32_t, std::int32_t, \
                                            std::int32_t);
RUVEX_INSTANTIATE(Rgba8)
RUVEX_INSTANTIATE(RgbaS214)
RUVEX_INSTANTIATE(RgbaInt)
RUVEX_INSTANTIATE(ChannelInt)
#undef RUVEX_INSTANTIATE

}  // namespace ruvex
