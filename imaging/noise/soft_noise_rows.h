// Hash noise blurred along X, computed a few rows at a time.

#pragma once

#include <cstdint>

#include "imaging/blur/box_plan.h"
#include "imaging/img_proc.h"
#include "imaging/line_block.h"
#include "imaging/noise/noise_rows.h"

namespace ruvex {

/// The same noise as VxNoiseGen (for ChannelInt) or VxRGBANoiseGen (for RgbaInt with alpha) gives
/// with a blur along X alone, but without memory for a whole picture. Each worker has its own.
template <class P>
class SoftNoiseRows : private LineSource<P> {
    static constexpr std::uint32_t kAllComponents = (1u << P::kComponents) - 1;
    using Block = LineBlock<P, kAllComponents>;

public:
    struct Noise {
        std::uint32_t seed = 0;
        float scale[4] = {};    ///< see VxNoiseGen::scale; ChannelInt uses the first
        float softness = 0.0f;  ///< blur size in pixels, above 0
    };
    /// The window of the whole noise; a worker computes some of its rows.
    struct Window {
        Span columns;
        Span rows;
    };

    SoftNoiseRows(const Noise& noise, const Window& window);
    SoftNoiseRows(const SoftNoiseRows&) = delete;
    SoftNoiseRows& operator=(const SoftNoiseRows&) = delete;

    /// False if memory ran out; then nothing else may be called.
    bool usable() const { return plan_.possible() && block_.usable(); }

    /// The largest number of rows that one call of make computes.
    static constexpr int kRows = Block::kLines;

    /// Computes rows y to y + count - 1, 1 <= count <= kRows.
    void make(std::int32_t y, int count);

    /// Copies `count` pixels of row y + `row` of the latest make, from the window's column number
    /// `first` on (0 is its first column).
    void take(int row, std::int32_t first, std::int32_t count, P* to) const;

private:
    void read(int line, std::int32_t first, std::int32_t count, P* to) override;

    Noise noise_;
    VxNoisyBastard numbers_;
    float factors_[4];
    TexAxis axis_;  // X axis of the noise before the blur
    BoxPlan plan_;
    Block block_;
    std::int32_t row_ = 0;
};

extern template class SoftNoiseRows<RgbaInt>;
extern template class SoftNoiseRows<ChannelInt>;

}  // namespace ruvex
