#include "imaging/blur_pass.h"

#include <array>
#include <cstring>

#include "imaging/box_kernels.h"
#include "imaging/line_block.h"
#include "imaging/line_copier.h"
#include "imaging/wrap.h"

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

// The buffer index that an axis reads for an image-space coordinate.
std::int32_t sourceIndex(const TexAxis& axis, std::int64_t coordinate) {
    return axis.mapIndex(wrapSubtract(static_cast<std::int32_t>(coordinate), axis.origin));
}

// What boxes of radius 0 make of an integer: weight 1 in 14-bit fixed point, with a product that
// wraps, keeps its low 18 bits and their sign.
std::int32_t foldedInteger(std::int32_t value) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(value) * 16384u + 8192u) >> 14;
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

// A block of rows that read different rows of the source, each with how many in a row read that.
template <class Block>
struct RowGroup {
    typename Block::Lines sources;
    typename Block::Lines targets;
    std::array<std::int32_t, Block::kLines> copies{};

    // Takes rows from y on until the block is full; returns the next row.
    std::int64_t collect(const TexAxis& axis, std::int64_t y, std::int64_t end) {
        for (; y < end; ++y) {
            const std::int32_t index = sourceIndex(axis, y);
            const auto last = static_cast<std::size_t>(sources.count - 1);
            if (sources.count > 0 && sources.at[last] == index) {
                ++copies[last];
            } else if (sources.full()) {
                break;
            } else {
                sources.add(index);
                targets.add(static_cast<std::int32_t>(y));
            }
        }
        return y;
    }
};

template <class P>
void repeatRow(VxTexture<P>& texture, const LineRange& columns, std::int32_t y,
               std::int32_t copies) {
    const auto x = static_cast<std::int32_t>(columns.first);
    for (std::int32_t i = 1; i <= copies; ++i) {
        std::memcpy(texture.writeAt(x, y + i), texture.writeAt(x, y),
                    static_cast<std::size_t>(columns.size()) * sizeof(P));
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
    for (std::int64_t y = lines.first; y < lines.end;) {
        if (interruptCheck(interrupt)) return;
        RowGroup<Block> group;
        y = group.collect(from.y, y, lines.end);
        block.gatherRows(from, group.sources);
        block.filter(boxFilter<Arithmetic, typename P::Component>(), from.fill);
        block.scatterRows(to, group.targets);
        for (std::size_t k = 0; k < static_cast<std::size_t>(group.targets.count); ++k) {
            repeatRow(to, plan.output(), group.targets.at[k], group.copies[k]);
        }
    }
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
    for (std::int64_t x = lines.first; x < lines.end;) {
        if (interruptCheck(interrupt)) return;
        typename Block::Lines sources, targets;
        for (; x < lines.end && !sources.full(); ++x) {
            sources.add(sourceIndex(from.x, x));
            targets.add(static_cast<std::int32_t>(x));
        }
        block.gatherColumns(from, sources);
        block.filter(boxFilter<Arithmetic, typename P::Component>(), from.fill);
        block.scatterColumns(to, targets);
    }
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
