// Lines of a picture laid side by side, so that one loop over lanes blurs them all.

#pragma once

#include <array>
#include <cstdint>
#include <memory>

#include "imaging/blur/box_plan.h"
#include "imaging/kernels/box_kernels.h"
#include "imaging/texture.h"

namespace ruvex {

/// Where the lines of a block come from that are in no picture.
template <class P>
class LineSource {
public:
    virtual ~LineSource() = default;

    /// Writes `count` pixels of line number `line` of the block, from index `first` of its axis on.
    virtual void read(int line, std::int32_t first, std::int32_t count, P* to) = 0;
};

/// A block of rows or of columns on its way through the boxes of a plan. Only the components that
/// `Mask` names (bit 0 is the first) are written in the end. One for each thread and pass.
template <class P, std::uint32_t Mask>
class LineBlock {
public:
    using Component = typename P::Component;
    using Texture = VxTexture<P>;
    /// Components of each pixel that are taken along: all or one. Three are not worth the
    /// unpacking.
    static constexpr int kTaken = __builtin_popcount(Mask) == 1 ? 1 : P::kComponents;
    static constexpr int kLines = static_cast<int>(kLanes<Component>) / kTaken;

    /// Some lines of a picture.
    struct Lines {
        std::array<std::int32_t, kLines> at{};
        int count = 0;

        void add(std::int32_t line) { at[static_cast<std::size_t>(count++)] = line; }
        bool full() const { return count == kLines; }
    };

    /// Allocates for `plan`, which must outlive the block.
    explicit LineBlock(const BoxPlan& plan);
    /// False if memory ran out; then nothing else may be called.
    bool usable() const { return memory_ && (!plan_.readsPastBuffer() || extension_); }

    /// Reads what the first box needs of buffer rows `rows` of `from`, through its edge methods
    /// along X. kNoPixel stands for a row of the fill pixel.
    void gatherRows(const Texture& from, const Lines& rows);
    /// The same for columns.
    void gatherColumns(const Texture& from, const Lines& columns);

    /// The same for `count` lines of a source, along an axis with edge methods; `fill` is what
    /// there is where those give nothing.
    void gather(LineSource<P>& source, const TexAxis& axis, const P& fill, int count);

    /// Runs all boxes over what was gathered. `fill` is what the row buffers read past their ends
    /// where no edge method applies.
    void filter(BoxFilter<Component> box, const P& fill);

    /// Writes the result into rows `rows` of `to`, in image space, which must exist.
    void scatterRows(Texture& to, const Lines& rows) const;
    /// The same for columns.
    void scatterColumns(Texture& to, const Lines& columns) const;

    /// Copies `count` pixels of the result of line number `line`, from `first` of the output on.
    void take(int line, std::int64_t first, std::int64_t count, P* to) const;

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
    Component* present_ = nullptr;  ///< where the outputs of the last box begin
};

}  // namespace ruvex
