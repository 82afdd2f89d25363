#include "imaging/blur/box_plan.h"

#include <algorithm>

#include "imaging/buffer.h"
#include "imaging/maths/wrap.h"

namespace ruvex {
namespace {

LineRange bufferExtent(const BoxPlan::Axis& axis, const BoxWeights& weights) {
    const std::int64_t padding = (weights.reach + 1) * axis.iterations;
    return {axis.first - padding, axis.first + axis.size + padding};
}

// `window` extended by `by` at both ends, or the whole buffer where that would exceed it.
LineRange widened(const LineRange& window, std::int64_t by, const LineRange& buffer) {
    const LineRange wide{window.first - by, window.end + by};
    return buffer.holds(wide) ? wide : buffer;
}

}  // namespace

LineRange LineRange::meet(const LineRange& other) const {
    return {std::max(first, other.first), std::min(end, other.end)};
}

BoxPlan::BoxPlan(float radius, const Axis& axis, const LineRange& window, const LineRange& written)
    : weights(radius),
      boxes(axis.iterations == 3 ? 3 : 2),
      buffer(bufferExtent(axis, weights)),
      edgeMethod(axis.edgeMethod),
      bytesPerPixel(axis.bytesPerPixel) {
    range[0] = widened(window, 2 * weights.reach + 2, buffer);
    if (boxes == 3) range[1] = widened(window, weights.reach + 1, buffer);
    range[static_cast<std::size_t>(boxes - 1)] = widened(window, 0, buffer).meet(written);
}

bool BoxPlan::possible() const {
    return imageBytes(saturate(buffer.end - buffer.first), 1, bytesPerPixel) > 0;
}

bool BoxPlan::readsPastBuffer() const {
    return boxes == 2 && !range[0].holds(inputOf(1));
}

LineRange BoxPlan::inputOf(int i) const {
    const LineRange& wanted = range[static_cast<std::size_t>(i)];
    // After the last output the running sum still adds one more input.
    return {wanted.first - weights.reach,
            wanted.first - weights.reach + wanted.size() + weights.span};
}

}  // namespace ruvex
