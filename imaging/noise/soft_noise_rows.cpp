#include "imaging/noise/soft_noise_rows.h"

#include <algorithm>
#include <cmath>

#include "imaging/blur/blur_gauss.h"
#include "imaging/maths/wrap.h"
#include "imaging/pixel_convert.h"

namespace ruvex {
namespace {

template <class P>
constexpr bool kColour = P::kComponents == 4;

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
      axis_(noiseAxis<P>(noise.softness, window.columns)),
      plan_(noisePlan<P>(noise.softness, window, axis_)),
      block_(plan_) {
    numbers_.seed = noise.seed;
    for (std::size_t k = 0; k < 4; ++k) factors_[k] = noise.scale[k] * kHashStep;
}

template <class P>
void SoftNoiseRows<P>::read(int line, std::int32_t first, std::int32_t count, P* to) {
    const std::uint32_t number =
        numbers_.pixelNumber(wrapAdd(axis_.origin, first), wrapAdd(row_, line));
    if constexpr (kColour<P>) {
        noiseRow(number, count, factors_, true, to);
    } else {
        noiseRow(number, count, factors_[0], 0.0f, to);
    }
}

template <class P>
void SoftNoiseRows<P>::make(std::int32_t y, int count) {
    row_ = y;
    block_.gather(*this, axis_, P{}, count);
    block_.filter(bestBoxKernels().fixed32, P{});
}

template <class P>
void SoftNoiseRows<P>::take(int row, std::int32_t first, std::int32_t count, P* to) const {
    block_.take(row, first, count, to);
    // The generators also blur along Y with radius 0, which changes values by its rounding.
    for (std::int32_t i = 0; i < count; ++i) {
        for (int k = 0; k < P::kComponents; ++k) to[i].c[k] = foldedInteger(to[i].c[k]);
    }
}

template class SoftNoiseRows<RgbaInt>;
template class SoftNoiseRows<ChannelInt>;

}  // namespace ruvex
