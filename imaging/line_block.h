// A block of rows or columns, interleaved so that one vector loop blurs all of them at once.

#pragma once

#include <array>
#include <cstdint>
#include <memory>

#include "imaging/blur/box_plan.h"
#include "imaging/kernels/box_kernels.h"
#include "imaging/texture.h"

namespace ruvex {

/// Takes a block of rows or columns through the boxes of a plan: gather, filter, then scatter. Only
/// the components in `Mask` (bit 0 is the first) are written to the result. Each thread has its own
/// block for each pass.
template <class P, std::uint32_t Mask>
class LineBlock {
public:
    using Component = typename P::Component;
    using Texture = VxTexture<P>;
    /// Components per pixel in the block: all, or one if `Mask` has one bit. For three of four,
    /// leaving one out would cost more than it saves.
    static constexpr int kTaken = __builtin_popcount(Mask) == 1 ? 1 : P::kComponents;
    static constexpr int kLines = static_cast<int>(kLanes<Component>) / kTaken;

    /// The coordinates of up to kLines rows or columns.
    struct Lines {
        std::array<std::int32_t, kLines> at{};
        int count = 0;

        void add(std::int32_t line) { at[static_cast<std::size_t>(count++)] = line; }
        bool full() const { return count == kLines; }
    };

    /// Allocates memory for `plan`, which must outlive the block.
    explicit LineBlock(const BoxPlan& plan);
    /// False if memory ran out; then nothing else may be called.
    bool usable() const { return memory_ && (!plan_.readsPastBuffer() || extension_); }

    /// Reads the input of the first box from buffer rows `rows` of `from`; outside the row, the
    /// edge method of the X axis applies. A row kNoPixel consists of fill pixels.
    void gatherRows(const Texture& from, const Lines& rows);
    /// The same for columns.
    void gatherColumns(const Texture& from, const Lines& columns);

    /// Runs all boxes over the gathered lines. `fill` is used outside a row buffer where the edge
    /// method gives no pixel.
    void filter(BoxFilter<Component> box, const P& fill);

    /// Writes the result into rows `rows` (image space) of `to`, which must have them.
    void scatterRows(Texture& to, const Lines& rows) const;
    /// The same for columns, which must be adjacent.
    void scatterColumns(Texture& to, const Lines& columns) const;

private:
    struct Release {
        void operator()(Component* memory) const;
    };
    using Memory = std::unique_ptr<Component[], Release>;

    static Memory allocate(std::int64_t positions);
    void extend(const P& fill);

    const BoxPlan& plan_;
    Memory memory_;
    Memory extension_;
    Component* present_ = nullptr;  ///< the first output of the latest box
};

}  // namespace ruvex
