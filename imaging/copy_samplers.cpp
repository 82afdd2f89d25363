#include "imaging/copy_samplers.h"

namespace ruvex {
namespace {

constexpr std::uint32_t kAllChannels = 15;

// Copies the components k with selected(k) from the source row into the Map's row, run by run.
template <class P, class Selected>
void copyComponents(P* to, const VxTexture<P>& source, const RowLoop& loop, std::int32_t y,
                    Selected selected) {
    for (std::int32_t x = loop.x0; x < loop.x1;) {
        const SourceRun<P> run = sourceRun(source, x, y, loop.x1);
        const P* from = run.pixels ? run.pixels : &source.fill;
        for (std::int32_t i = 0; i < run.length; ++i) {
            for (int k = 0; k < 4; ++k) {
                if (selected(k)) to[i].c[k] = from[std::ptrdiff_t{i} * run.step].c[k];
            }
        }
        to += run.length;
        x += run.length;
    }
}

}  // namespace

template <class P>
void SimpleCopySampler<P>::work(VxTexture<P>* source, VxTexture<P>* target) {
    const RowLoop loop = this->rowLoop();
    forEachRow(loop, this->interrupt, [&](std::int32_t y) {
        SimpleLineCopier::copyRow(target->writeAt(loop.x0, y), *source, loop.x0, y, loop.x1);
    });
}

template <class P>
void VxRGBCopySampler<P>::work(VxTexture<P>* source, VxTexture<P>* target) {
    if (channels == kAllChannels) return SimpleCopySampler<P>::work(source, target);
    if ((channels & kAllChannels) == 0) return;
    const RowLoop loop = this->rowLoop();
    forEachRow(loop, this->interrupt, [&](std::int32_t y) {
        copyComponents(target->writeAt(loop.x0, y), *source, loop, y,
                       [mask = channels](int k) { return (mask >> k & 1) != 0; });
    });
}

template <int Component>
void ChannelCopySampler<Component>::work(VxTexture<RgbaInt>* source, VxTexture<RgbaInt>* target) {
    const RowLoop loop = this->rowLoop();
    forEachRow(loop, this->interrupt, [&](std::int32_t y) {
        copyComponents(target->writeAt(loop.x0, y), *source, loop, y,
                       [](int k) { return k == Component; });
    });
}

template class SimpleCopySampler<Rgba8>;
template class SimpleCopySampler<RgbaS214>;
template class SimpleCopySampler<RgbaInt>;
template class SimpleCopySampler<ChannelInt>;
template class VxRGBCopySampler<Rgba8>;
template class VxRGBCopySampler<RgbaS214>;
template class ChannelCopySampler<0>;
template class ChannelCopySampler<1>;
template class ChannelCopySampler<2>;
template class ChannelCopySampler<3>;

}  // namespace ruvex
