// Position noise softened along X, a few rows at a time.

#pragma once

#include <cstdint>

#include "imaging/blur/box_plan.h"
#include "imaging/img_proc.h"
#include "imaging/line_block.h"
#include "imaging/noise/noise_rows.h"

namespace ruvex {

/// What the noise generators (VxNoiseGen for ChannelInt, VxRGBANoiseGen for RgbaInt with alpha)
/// make of a softness along X alone, without a picture of it. One for each worker.
template <class P>
class SoftNoiseRows : private LineSource<P> {
    static constexpr std::uint32_t kAllComponents = (1u << P::kComponents) - 1;
    using Block = LineBlock<P, kAllComponents>;

public:
    struct Noise {
        std::uint32_t seed = 0;
        float scale[4] = {};    ///< the value of a full hash; a channel has the first
        float softness = 0.0f;  ///< blur size in pixels, above 0
    };
    /// The window that the noise is for, of which a worker makes some rows.
    struct Window {
        Span columns;
        Span rows;
    };

    SoftNoiseRows(const Noise& noise, const Window& window);
    SoftNoiseRows(const SoftNoiseRows&) = delete;
    SoftNoiseRows& operator=(const SoftNoiseRows&) = delete;

    /// False when memory ran out; then nothing else may be called.
    bool usable() const { return plan_.possible() && block_.usable(); }

    /// How many rows are made at once.
    static constexpr int kRows = Block::kLines;

    /// Makes `count` rows, 1 to kRows, from y on.
    void make(std::int32_t y, int count);

    /// Copies `count` pixels of row number `row` of those made last, from column index `first` of
    /// the window on.
    void take(int row, std::int32_t first, std::int32_t count, P* to) const;

private:
    void read(int line, std::int32_t first, std::int32_t count, P* to) override;

    Noise noise_;
    VxNoisyBastard numbers_;
    float factors_[4];
    TexAxis axis_;  // of the noise before its blur
    BoxPlan plan_;
    Block block_;
    std::int32_t row_ = 0;
};

extern template class SoftNoiseRows<RgbaInt>;
extern template class SoftNoiseRows<ChannelInt>;

}  // namespace ruvex
