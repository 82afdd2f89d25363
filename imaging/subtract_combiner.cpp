#include "imaging/subtract_combiner.h"

#include "imaging/maths/wrap.h"
#include "imaging/pixel_convert.h"
#include "imaging/pixel_pairs.h"

namespace ruvex {
namespace {

RgbaInt turnedOver(const RgbaInt& mean, const RgbaInt& value) {
    RgbaInt result;
    for (int k = 0; k < 4; ++k) {
        const float doubled = static_cast<float>(mean.c[k]) * 2.0f;
        result.c[k] = wrapSubtract(truncateToInt(doubled), value.c[k]);
    }
    return result;
}

}  // namespace

void SubtractCombiner::work(Texture* first, Texture* second, Texture* target) {
    const RowLoop loop = rowLoop();
    forEachRow(loop, interrupt, [&](std::int32_t y) {
        forEachPixelPair(*first, *second, *target, loop, y,
                         [](RgbaInt* to, const auto& a, const auto& b, std::int32_t length) {
                             for (std::ptrdiff_t i = 0; i < length; ++i) {
                                 to[i] = turnedOver(a.pixels[i * a.step], b.pixels[i * b.step]);
                             }
                         });
    });
}

void SubtractCombiner::finish(Texture* first, Texture* second, Texture* target) {
    target->setFill(turnedOver(first->fill, second->fill));
}

}  // namespace ruvex
