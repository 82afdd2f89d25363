// What the finishing steps make of one pixel.

#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>

#include "imaging/texture.h"
#include "tests/imaging/twins/sample_twin.h"

namespace ruvex::twin {

/// The pixel of a whole image at image-space (x, y), where there is one.
template <class P>
std::optional<P> wholeImageAt(const VxTexture<P>& image, std::int64_t x, std::int64_t y) {
    const std::int64_t column = x - image.x.origin;
    const std::int64_t row = y - image.y.origin;
    const bool exists =
        image.data && column >= 0 && column < image.x.size && row >= 0 && row < image.y.size;
    return exists ? std::optional(pixelOrFill(image, column, row)) : std::nullopt;
}

/// The channel mask: channels that are off come back from the input, where there is one.
template <class P>
P maskedTwin(const P& effect, const std::optional<P>& input, const bool (&on)[4]) {
    P result = effect;
    for (int k = 0; k < 4; ++k) {
        if (!on[k] && input) result.c[k] = input->c[k];
    }
    return result;
}

/// The table of the paint step, row by row.
template <class P>
P paintedTwin(const P& effect, const std::optional<P>& input, const std::optional<Channel8>& mask) {
    if (!mask) return input ? *input : P{};
    const int m = mask->c[0];
    if (m == 0) return input ? *input : P{};
    if (m == 255) return effect;
    P result;
    for (int k = 0; k < 4; ++k) {
        const int e = effect.c[k];
        const int value = input ? input->c[k] + (e - input->c[k]) * m / 255 : e * m / 255;
        result.c[k] = static_cast<typename P::Component>(value);
    }
    return result;
}

}  // namespace ruvex::twin
