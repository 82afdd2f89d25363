#include "jobs/output_scaling.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <limits>

#include "media/frame_writer.h"

namespace ruvex::jobs {
namespace {

/// Whether a side of `to` is less than a pixel away from what the other side asks for.
bool haveOneShape(media::FrameSize from, media::FrameSize to) {
    const std::int64_t difference =
        std::abs(std::int64_t{to.width} * from.height - std::int64_t{to.height} * from.width);
    return difference < from.width || difference < from.height;
}

/// The fraction, or one near it whose terms fit 31 bits, the limit of containers.
media::Rational fitted(media::Rational fraction) {
    constexpr std::int64_t kMostTerm = std::numeric_limits<std::int32_t>::max();
    while (std::max(fraction.num, fraction.den) > kMostTerm) {
        const auto half = [](std::int64_t term) { return std::max<std::int64_t>(term / 2, 1); };
        fraction = media::makeRational(half(fraction.num), half(fraction.den));
    }
    return fraction;
}

}  // namespace

std::optional<media::AreaScaling> outputScaling(const RenderPlan& plan) {
    const media::FrameSize from = renderedSize(plan);
    const media::FrameSize to = plan.writing.size;
    if (from == to) return std::nullopt;
    const bool fields = plan.writing.fields != media::FieldOrder::Progressive;
    return media::AreaScaling{
        .from = from,
        .to = to,
        .weighByAlpha = !plan.opaque && storesAlpha(plan.output, plan.writing),
        .interlaced = fields && from.height > 1 && to.height > 1};
}

media::Rational scaledPixelAspect(const media::Rational& aspect, media::FrameSize from,
                                  media::FrameSize to) {
    if (haveOneShape(from, to)) return aspect;
    const media::Rational shape = fitted(media::makeRational(std::int64_t{from.width} * to.height,
                                                             std::int64_t{from.height} * to.width));
    return fitted(media::makeRational(aspect.num * shape.num, aspect.den * shape.den));
}

}  // namespace ruvex::jobs
