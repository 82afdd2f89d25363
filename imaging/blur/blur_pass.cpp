#include "imaging/blur/blur_pass.h"

#include "imaging/kernels/box_kernels.h"
#include "imaging/line_block.h"
#include "imaging/line_copier.h"
#include "imaging/maths/wrap.h"

namespace ruvex {
namespace {

template <BlurArithmetic Arithmetic, class T>
BoxFilter<T> boxFilter() {
    constexpr bool kFixed = Arithmetic == BlurArithmetic::Fixed;
    const BoxKernels& kernels = bestBoxKernels();
    if constexpr (std::is_same_v<T, std::uint8_t>) {
        return kFixed ? kernels.fixed8 : kernels.floating8;
    } else if constexpr (std::is_same_v<T, std::int16_t>) {
        return kFixed ? kernels.fixed16 : kernels.floating16;
    } else {
        static_assert(kFixed);
        return kernels.fixed32;
    }
}

// The buffer index to read for an image-space coordinate, after the edge method; or kNoPixel.
std::int32_t sourceIndex(const TexAxis& axis, std::int64_t coordinate) {
    return axis.mapIndex(wrapSubtract(static_cast<std::int32_t>(coordinate), axis.origin));
}

template <class P, std::uint32_t Mask>
void copyRowUnblurred(const VxTexture<P>& from, VxTexture<P>& to, std::int32_t x, std::int32_t end,
                      std::int32_t y) {
    P* pixel = to.writeAt(x, y);
    if constexpr (!std::is_same_v<typename P::Component, std::int32_t>) {
        SimpleLineCopier::copyRow(pixel, from, x, y, end);
        return;
    } else {
        while (x < end) {
            const SourceRun<P> run = sourceRun(from, x, y, end);
            const P* read = run.pixels ? run.pixels : &from.fill;
            for (std::int32_t i = 0; i < run.length; ++i, ++pixel, read += run.step) {
                for (int k = 0; k < P::kComponents; ++k) {
                    if (Mask >> k & 1) pixel->c[k] = foldedInteger(read->c[k]);
                }
            }
            x += run.length;
        }
    }
}

template <class P, std::uint32_t Mask>
void copyUnblurred(const VxTexture<P>& from, VxTexture<P>& to, const LineRange& columns,
                   const LineRange& rows, InterruptionRecord* interrupt) {
    for (std::int64_t y = rows.first; y < rows.end && columns.size() > 0; ++y) {
        if (interruptCheck(interrupt)) return;
        copyRowUnblurred<P, Mask>(from, to, static_cast<std::int32_t>(columns.first),
                                  static_cast<std::int32_t>(columns.end),
                                  static_cast<std::int32_t>(y));
    }
}

// Splits `lines` into blocks and calls run(sources, targets) for each, with the buffer indices to
// read on `axis` and the image-space coordinates to write. Stops when interrupted.
template <class Block, class Run>
void forEachBlock(const TexAxis& axis, const LineRange& lines, InterruptionRecord* interrupt,
                  Run run) {
    for (std::int64_t line = lines.first; line < lines.end;) {
        if (interruptCheck(interrupt)) return;
        typename Block::Lines sources, targets;
        for (; line < lines.end && !sources.full(); ++line) {
            sources.add(sourceIndex(axis, line));
            targets.add(static_cast<std::int32_t>(line));
        }
        run(sources, targets);
    }
}

}  // namespace

template <class P, std::uint32_t Mask, BlurArithmetic Arithmetic>
void blurRows(const VxTexture<P>& from, VxTexture<P>& to, const BoxPlan& plan,
              const LineRange& lines, InterruptionRecord* interrupt) {
    if (plan.weights.identity) {
        return copyUnblurred<P, Mask>(from, to, plan.output(), lines, interrupt);
    }
    if (lines.size() == 0 || plan.output().size() == 0) return;
    using Block = LineBlock<P, Mask>;
    Block block(plan);
    if (!block.usable()) return raiseOutOfMemory(interrupt);
    forEachBlock<Block>(from.y, lines, interrupt, [&](const auto& sources, const auto& targets) {
        block.gatherRows(from, sources);
        block.filter(boxFilter<Arithmetic, typename P::Component>(), from.fill);
        block.scatterRows(to, targets);
    });
}

template <class P, std::uint32_t Mask, BlurArithmetic Arithmetic>
void blurColumns(const VxTexture<P>& from, VxTexture<P>& to, const BoxPlan& plan,
                 const LineRange& lines, InterruptionRecord* interrupt) {
    if (plan.weights.identity) {
        return copyUnblurred<P, Mask>(from, to, lines, plan.output(), interrupt);
    }
    if (lines.size() == 0 || plan.output().size() == 0) return;
    using Block = LineBlock<P, Mask>;
    Block block(plan);
    if (!block.usable()) return raiseOutOfMemory(interrupt);
    forEachBlock<Block>(from.x, lines, interrupt, [&](const auto& sources, const auto& targets) {
        block.gatherColumns(from, sources);
        block.filter(boxFilter<Arithmetic, typename P::Component>(), from.fill);
        block.scatterColumns(to, targets);
    });
}

#define RUVEX_INSTANTIATE(P, MASK, ARITHMETIC)                                \
    template void blurRows<P, MASK, BlurArithmetic::ARITHMETIC>(              \
        const VxTexture<P>&, VxTexture<P>&, const BoxPlan&, const LineRange&, \
        InterruptionRecord*);                                                 \
    template void blurColumns<P, MASK, BlurArithmetic::ARITHMETIC>(           \
        const VxTexture<P>&, VxTexture<P>&, const BoxPlan&, const LineRange&, \
        InterruptionRecord*);
RUVEX_INSTANTIATE(Rgba8, 15, Fixed)
RUVEX_INSTANTIATE(RgbaS214, 15, Fixed)
RUVEX_INSTANTIATE(RgbaInt, 15, Fixed)
RUVEX_INSTANTIATE(RgbaInt, 7, Fixed)
RUVEX_INSTANTIATE(RgbaInt, 1, Fixed)
RUVEX_INSTANTIATE(RgbaInt, 2, Fixed)
RUVEX_INSTANTIATE(RgbaInt, 4, Fixed)
RUVEX_INSTANTIATE(RgbaInt, 8, Fixed)
RUVEX_INSTANTIATE(ChannelInt, 1, Fixed)
RUVEX_INSTANTIATE(Rgba8, 15, Floating)
RUVEX_INSTANTIATE(RgbaS214, 15, Floating)
#undef RUVEX_INSTANTIATE

}  // namespace ruvex
