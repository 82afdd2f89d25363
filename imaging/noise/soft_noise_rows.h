// Hash noise blurred along X, computed a few rows and some columns at a time.

#pragma once

#include <cstdint>
#include <memory>

#include "imaging/blur/box_plan.h"
#include "imaging/buffer.h"
#include "imaging/img_proc.h"
#include "imaging/kernels/soft_noise.h"
#include "imaging/noise/noise_rows.h"

namespace ruvex {

/// The same noise as VxNoiseGen (for ChannelInt) or VxRGBANoiseGen (for RgbaInt with alpha) gives
/// with a blur along X alone. It is computed for kRows rows at once, from left to right, in tiles
/// that stay in the first-level cache. Each worker has its own.
template <class P>
class SoftNoiseRows {
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
    static constexpr int kRows = kNoiseLanes / P::kComponents;

    /// Some columns of kRows rows. Valid until the next call of `next` or `start`.
    struct Tile {
        /// From a column to the next.
        static constexpr int kStride = kNoiseLanes;

        const std::int32_t* values;
        std::int32_t columns;

        /// The components of a row's pixel in the first column.
        const std::int32_t* row(int number) const { return values + number * P::kComponents; }
    };

    SoftNoiseRows(const Noise& noise, const Window& window);

    /// False if memory ran out; then nothing else may be called.
    bool usable() const { return buffer_ != nullptr; }

    /// Begins with rows y to y + kRows - 1, at the window's first column.
    void start(std::int32_t y);

    /// Computes the next tile of these rows. There must be columns left.
    Tile next();

private:
    struct Release {
        void operator()(std::byte* memory) const { releaseBuffer(memory); }
    };

    void allocate();
    void soften(std::int64_t count);
    void setLanes(const TexRun& run);

    Noise noise_;
    Window window_;
    VxNoisyBastard numbers_;
    float factors_[4];
    TexAxis axis_;  // X axis of the noise before the blur
    BoxPlan plan_;
    std::int64_t tileColumns_;
    std::unique_ptr<std::byte, Release> buffer_;
    std::int32_t* inputs_[BoxChain::kBoxes];  // in buffer_
    std::int32_t* tile_;                      // in buffer_
    NoiseLanes lanes_{};
    BoxChain chain_{};
    std::int64_t input_ = 0;   // coordinate of the noise that is computed next
    std::int32_t column_ = 0;  // first column of the next tile
    std::int32_t row_ = 0;
};

extern template class SoftNoiseRows<RgbaInt>;
extern template class SoftNoiseRows<ChannelInt>;

}  // namespace ruvex
