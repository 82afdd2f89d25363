#include "imaging/line_block.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "imaging/maths/wrap.h"

namespace ruvex {
namespace {

constexpr std::align_val_t kBlockAlignment{kLaneBytes};

// Positions per step when rows are interleaved into a block or read back: so few that the part of
// the block that the rows share stays in the first-level cache.
constexpr std::int64_t kTile = 16;

// The layout of one position of a block: the pixels of its lines one after the other, each with
// kTaken components. Storing writes only the components in `Mask`.
template <class P, std::uint32_t Mask>
struct Layout {
    using Component = typename P::Component;
    static constexpr std::int64_t kStep = kLanes<Component>;
    static constexpr int kTaken = LineBlock<P, Mask>::kTaken;
    static constexpr int kLines = LineBlock<P, Mask>::kLines;
    static constexpr bool kLoadWhole = kTaken == P::kComponents;
    static constexpr bool kStoreWhole = __builtin_popcount(Mask) == P::kComponents;

    static void load(Component* lanes, const P& pixel) {
        if constexpr (kLoadWhole) {
            std::memcpy(lanes, pixel.c, sizeof(P));
        } else {
            for (int k = 0; k < P::kComponents; ++k) {
                if (Mask >> k & 1) *lanes++ = pixel.c[k];
            }
        }
    }
    static void store(P& pixel, const Component* lanes) {
        if constexpr (kStoreWhole) {
            std::memcpy(pixel.c, lanes, sizeof(P));
        } else {
            for (int k = 0; k < P::kComponents; ++k) {
                if (Mask >> k & 1) pixel.c[k] = *lanes++;
            }
        }
    }

    // The pixels of all lines at one position, from (loadAll) or to (storeAll) adjacent pixels.
    static void loadAll(Component* lanes, const P* pixels, int count) {
        if (kLoadWhole && count == kLines) {
            std::memcpy(lanes, pixels, kLines * sizeof(P));
        } else {
            for (int k = 0; k < count; ++k) load(lanes + k * kTaken, pixels[k]);
        }
    }
    static void storeAll(P* pixels, const Component* lanes, int count) {
        if (kStoreWhole && count == kLines) {
            std::memcpy(pixels, lanes, kLines * sizeof(P));
        } else {
            for (int k = 0; k < count; ++k) store(pixels[k], lanes + k * kTaken);
        }
    }
    static void loadSame(Component* lanes, const P& pixel, int count) {
        for (int k = 0; k < count; ++k) load(lanes + k * kTaken, pixel);
    }
};

// Calls run(lanes, texRun) for each TexRun of `input`; `lanes` is the run's place in `block`.
template <class Component, class Run>
void forEachRun(Component* block, const TexAxis& axis, const LineRange& input, Run run) {
    for (std::int64_t p = input.first; p < input.end;) {
        TexRun part = axis.mapRun(static_cast<std::int32_t>(p));
        part.length = static_cast<std::int32_t>(std::min<std::int64_t>(part.length, input.end - p));
        run(block + (p - input.first) * kLanes<Component>, part);
        p += part.length;
    }
}

}  // namespace

template <class P, std::uint32_t Mask>
void LineBlock<P, Mask>::Release::operator()(Component* memory) const {
    ::operator delete[](memory, kBlockAlignment);
}

template <class P, std::uint32_t Mask>
typename LineBlock<P, Mask>::Memory LineBlock<P, Mask>::allocate(std::int64_t positions) {
    const auto bytes = static_cast<std::size_t>(positions * kLaneBytes);
    void* memory = ::operator new[](bytes, kBlockAlignment, std::nothrow);
    // Lanes without a line are blurred like the others, so they must be initialised.
    if (memory) std::memset(memory, 0, bytes);
    return Memory(static_cast<Component*>(memory));
}

template <class P, std::uint32_t Mask>
LineBlock<P, Mask>::LineBlock(const BoxPlan& plan)
    : plan_(plan), memory_(allocate(plan.inputOf(0).size())) {
    if (plan.readsPastBuffer()) extension_ = allocate(plan.inputOf(1).size());
}

template <class P, std::uint32_t Mask>
void LineBlock<P, Mask>::gatherRows(const Texture& from, const Lines& rows) {
    using Lane = Layout<P, Mask>;
    std::array<const P*, kLines> row{};
    for (std::size_t k = 0; k < static_cast<std::size_t>(rows.count); ++k) {
        row[k] = rows.at[k] == kNoPixel || !from.data ? nullptr : from.bufferRow(rows.at[k]);
    }
    const auto layIn = [&](Component* lanes, const P* pixels, std::int64_t step, std::int64_t n) {
        for (std::int64_t i = 0; i < n; ++i) Lane::load(lanes + i * Lane::kStep, pixels[i * step]);
    };
    forEachRun(memory_.get(), from.x, plan_.inputOf(0), [&](Component* lanes, const TexRun& run) {
        for (std::int64_t i = 0; i < run.length; i += kTile) {
            const std::int64_t n = std::min<std::int64_t>(kTile, run.length - i);
            for (int k = 0; k < rows.count; ++k) {
                const P* pixels = row[static_cast<std::size_t>(k)];
                Component* to = lanes + i * Lane::kStep + k * kTaken;
                if (!pixels || run.index == kNoPixel) {
                    layIn(to, &from.fill, 0, n);
                } else if (run.step == 1) {
                    layIn(to, pixels + run.index + i, 1, n);
                } else {
                    layIn(to, pixels + run.index + i * run.step, run.step, n);
                }
            }
        }
    });
}

template <class P, std::uint32_t Mask>
void LineBlock<P, Mask>::gatherColumns(const Texture& from, const Lines& columns) {
    using Lane = Layout<P, Mask>;
    bool adjacent = true;
    for (int k = 0; k < columns.count; ++k) {
        const std::int32_t column = columns.at[static_cast<std::size_t>(k)];
        adjacent = adjacent && column != kNoPixel && column == columns.at[0] + k;
    }
    const auto loadScattered = [&](Component* lanes, const P* row) {
        for (int k = 0; k < columns.count; ++k) {
            const std::int32_t column = columns.at[static_cast<std::size_t>(k)];
            Lane::load(lanes + k * kTaken, column == kNoPixel ? from.fill : row[column]);
        }
    };
    forEachRun(memory_.get(), from.y, plan_.inputOf(0), [&](Component* lanes, const TexRun& run) {
        for (std::int32_t i = 0; i < run.length; ++i, lanes += Lane::kStep) {
            if (run.index == kNoPixel || !from.data) {
                Lane::loadSame(lanes, from.fill, columns.count);
                continue;
            }
            const P* row = from.bufferRow(run.index + i * run.step);
            if (adjacent) {
                Lane::loadAll(lanes, row + columns.at[0], columns.count);
            } else {
                loadScattered(lanes, row);
            }
        }
    });
}

template <class P, std::uint32_t Mask>
void LineBlock<P, Mask>::filter(BoxFilter<Component> box, const P& fill) {
    present_ = memory_.get();
    for (int i = 0; i < plan_.boxes; ++i) {
        const std::int64_t first = plan_.inputOf(i).first;
        if (i > 0 && plan_.readsPastBuffer()) {
            extend(fill);
        } else if (i > 0) {
            present_ +=
                (first - plan_.range[static_cast<std::size_t>(i - 1)].first) * kLanes<Component>;
        }
        box(present_, plan_.range[static_cast<std::size_t>(i)].size(), plan_.weights);
    }
}

template <class P, std::uint32_t Mask>
void LineBlock<P, Mask>::extend(const P& fill) {
    using Lane = Layout<P, Mask>;
    TexAxis axis;
    axis.setSize(saturate(plan_.buffer.size()));
    axis.edgeMethod = plan_.edgeMethod;
    const LineRange input = plan_.inputOf(1);
    Component* lanes = extension_.get();
    for (std::int64_t p = input.first; p < input.end; ++p, lanes += Lane::kStep) {
        const std::int32_t index = axis.mapIndex(saturate(p - plan_.buffer.first));
        if (index == kNoPixel) {
            Lane::loadSame(lanes, fill, kLines);
        } else {
            std::memcpy(lanes, present_ + index * Lane::kStep, kLaneBytes);
        }
    }
    present_ = extension_.get();
}

template <class P, std::uint32_t Mask>
void LineBlock<P, Mask>::scatterRows(Texture& to, const Lines& rows) const {
    using Lane = Layout<P, Mask>;
    const LineRange& output = plan_.output();
    for (std::int64_t i = 0; i < output.size(); i += kTile) {
        const std::int64_t n = std::min<std::int64_t>(kTile, output.size() - i);
        for (int k = 0; k < rows.count; ++k) {
            P* pixels = to.writeAt(static_cast<std::int32_t>(output.first + i),
                                   rows.at[static_cast<std::size_t>(k)]);
            const Component* lanes = present_ + i * Lane::kStep + k * kTaken;
            for (std::int64_t j = 0; j < n; ++j) Lane::store(pixels[j], lanes + j * Lane::kStep);
        }
    }
}

template <class P, std::uint32_t Mask>
void LineBlock<P, Mask>::scatterColumns(Texture& to, const Lines& columns) const {
    using Lane = Layout<P, Mask>;
    const LineRange& output = plan_.output();
    const Component* lanes = present_;
    for (std::int64_t y = output.first; y < output.end; ++y, lanes += Lane::kStep) {
        Lane::storeAll(to.writeAt(columns.at[0], static_cast<std::int32_t>(y)), lanes,
                       columns.count);
    }
}

template class LineBlock<Rgba8, 15>;
template class LineBlock<RgbaS214, 15>;
template class LineBlock<RgbaInt, 15>;
template class LineBlock<RgbaInt, 7>;
template class LineBlock<RgbaInt, 1>;
template class LineBlock<RgbaInt, 2>;
template class LineBlock<RgbaInt, 4>;
template class LineBlock<RgbaInt, 8>;
template class LineBlock<ChannelInt, 1>;

}  // namespace ruvex
