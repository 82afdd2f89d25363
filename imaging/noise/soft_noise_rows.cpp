#include "imaging/noise/soft_noise_rows.h"

#include <algorithm>
#include <cmath>

#include "imaging/blur/blur_gauss.h"
#include "imaging/kernels/noise_kernels.h"
#include "imaging/maths/wrap.h"
#include "imaging/pixel_convert.h"

namespace ruvex {
namespace {

template <class P>
constexpr bool kColour = P::kComponents == 4;

// The shortest tile, in columns. For long boxes tiles are longer, since the inputs that a box keeps
// are moved after each tile.
constexpr std::int64_t kLeastTile = 64;
constexpr std::int64_t kSpansInTile = 8;

std::int32_t sizeOf(Span span) {
    return span.end - span.first;
}

// The blur size clamped as VxNoiseGen clamps it.
float heldSize(float softness, Span columns) {
    return std::clamp(softness, 0.0f, 2.0f * static_cast<float>(sizeOf(columns)));
}

template <class P>
TexAxis noiseAxis(float softness, Span columns) {
    const std::int32_t margin = truncateToInt(std::ceil(heldSize(softness, columns)));
    TexAxis axis;
    axis.setSize(saturate(std::int64_t{sizeOf(columns)} + 2 * std::int64_t{margin}));
    axis.setOrigin(wrapSubtract(columns.first, margin));
    axis.edgeMethod = kColour<P> ? kEdgeFill : kEdgeWrap;
    return axis;
}

template <class P>
BoxPlan noisePlan(float softness, const typename SoftNoiseRows<P>::Window& window,
                  const TexAxis& axis) {
    const Span columns = window.columns;
    const float size = kColour<P> ? softness : heldSize(softness, columns);
    const float radius = settledRadius(size / 3.0f, sizeOf(columns), sizeOf(window.rows));
    const std::int64_t first = columns.first;
    return BoxPlan(radius, {first, axis.size, axis.edgeMethod, 3, P::kComponents * 4},
                   {first, columns.end}, {first, first + axis.size});
}

}  // namespace

template <class P>
SoftNoiseRows<P>::SoftNoiseRows(const Noise& noise, const Window& window)
    : noise_(noise),
      window_(window),
      axis_(noiseAxis<P>(noise.softness, window.columns)),
      plan_(noisePlan<P>(noise.softness, window, axis_)),
      tileColumns_(std::max(kLeastTile, plan_.weights.span / kSpansInTile)) {
    numbers_.seed = noise.seed;
    for (std::size_t k = 0; k < 4; ++k) factors_[k] = noise.scale[k] * kHashStep;
    if (plan_.possible()) allocate();
}

// One buffer for the inputs of the boxes and the tile. The sums begin with 0, so the inputs too.
template <class P>
void SoftNoiseRows<P>::allocate() {
    const std::int64_t columns = plan_.weights.span + tileColumns_;
    const std::int64_t all = BoxChain::kBoxes * columns + tileColumns_;
    constexpr std::int64_t kColumnBytes = kNoiseLanes * sizeof(std::int32_t);
    if (all > kMaxBufferBytes / kColumnBytes) return;
    buffer_.reset(allocateBuffer(static_cast<std::int32_t>(all * kColumnBytes), Contents::Zero));
    auto* place = reinterpret_cast<std::int32_t*>(buffer_.get());
    for (std::int32_t*& inputs : inputs_) {
        inputs = place;
        place += columns * kNoiseLanes;
    }
    tile_ = place;
}

template <class P>
void SoftNoiseRows<P>::start(std::int32_t y) {
    row_ = y;
    const BoxWeights& weights = plan_.weights;
    column_ = window_.columns.first;
    input_ = column_ - BoxChain::kBoxes * weights.reach;
    // What the boxes have from the rows before leaves their sums in this time.
    std::int64_t left = BoxChain::kBoxes * weights.span;
    for (; left > tileColumns_; left -= tileColumns_) soften(tileColumns_);
    soften(left);
}

template <class P>
typename SoftNoiseRows<P>::Tile SoftNoiseRows<P>::next() {
    const auto count = static_cast<std::int32_t>(
        std::min<std::int64_t>(tileColumns_, window_.columns.end - column_));
    soften(count);
    column_ += count;
    return {tile_, count};
}

// Computes the next `count` columns into the tile.
template <class P>
void SoftNoiseRows<P>::soften(std::int64_t count) {
    std::copy(std::begin(inputs_), std::end(inputs_), chain_.inputs);
    for (std::int64_t done = 0; done < count;) {
        const TexRun run = axis_.mapRun(static_cast<std::int32_t>(input_));
        const std::int64_t length = std::min<std::int64_t>(run.length, count - done);
        setLanes(run);
        bestNoiseKernels().soften(lanes_, length, plan_.weights, chain_,
                                  tile_ + done * kNoiseLanes);
        input_ += length;
        done += length;
    }
    for (int box = 0; box < BoxChain::kBoxes; ++box) {
        std::copy_n(chain_.inputs[box], plan_.weights.span * kNoiseLanes, inputs_[box]);
    }
}

// Outside the axis, where an edge method gives no pixel, the noise is 0.
template <class P>
void SoftNoiseRows<P>::setLanes(const TexRun& run) {
    const bool present = run.index != kNoPixel;
    const std::int32_t x = wrapAdd(axis_.origin, run.index);
    for (int lane = 0; lane < kNoiseLanes; ++lane) {
        const int k = lane % P::kComponents;
        const std::int32_t y = wrapAdd(row_, lane / P::kComponents);
        lanes_.numbers[lane] = numbers_.pixelNumber(x, y) + static_cast<std::uint32_t>(k);
        lanes_.factors[lane] = present ? factors_[k] : 0.0f;
    }
    lanes_.step = static_cast<std::uint32_t>(run.step) * VxNoisyBastard::kColumnStep;
}

template class SoftNoiseRows<RgbaInt>;
template class SoftNoiseRows<ChannelInt>;

}  // namespace ruvex
