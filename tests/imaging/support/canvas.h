// A texture over memory that a test owns, with guard pixels all around it, so that a write outside
// the picture shows.

#pragma once

#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

#include "imaging/texture.h"
#include "tests/imaging/support/random.h"

namespace ruvex::test {

/// The components of any pixel, the plain integer included.
template <class P>
auto& componentOf(P& pixel, int k) {
    return pixel.c[k];
}
inline std::int32_t& componentOf(std::int32_t& pixel, int) {
    return pixel;
}
inline const std::int32_t& componentOf(const std::int32_t& pixel, int) {
    return pixel;
}
template <class P>
constexpr int componentsOf() {
    if constexpr (std::is_same_v<P, std::int32_t>) {
        return 1;
    } else {
        return static_cast<int>(sizeof(P::c) / sizeof(P::c[0]));
    }
}

template <class P>
P randomPixel(Random& random) {
    P pixel{};
    for (int k = 0; k < componentsOf<P>(); ++k) {
        auto& component = componentOf(pixel, k);
        component = random.component<std::remove_reference_t<decltype(component)>>();
    }
    return pixel;
}

/// A pixel that says where it stands: red is the column, green the row.
template <class P>
P placePixel(std::int32_t column, std::int32_t row) {
    using T = std::remove_cvref_t<decltype(P{}.c[0])>;
    return {{static_cast<T>(column), static_cast<T>(row), static_cast<T>(100), static_cast<T>(50)}};
}

/// How the rows of a canvas lie in memory.
struct RowLayout {
    std::int32_t gap = 2;     ///< guard pixels after each row
    bool upsideDown = false;  ///< row 0 has the highest address, the stride is negative
};

template <class P>
class Canvas {
public:
    Canvas(std::int32_t width, std::int32_t height, const RowLayout& layout = {})
        : width_(width), height_(height), layout_(layout), pitch_(width + layout.gap) {
        memory.resize(static_cast<std::size_t>(pitch_) * static_cast<std::size_t>(height + 2));
        texture.wrap(width, height, &at(0, 0));
        texture.stride = (layout.upsideDown ? -pitch_ : pitch_) * static_cast<int>(sizeof(P));
    }

    Canvas& scribble(Random& random) {
        for (P& pixel : memory) pixel = randomPixel<P>(random);
        return *this;
    }
    /// Fills the picture with placePixel.
    Canvas& number() {
        for (std::int32_t row = 0; row < height_; ++row) {
            for (std::int32_t column = 0; column < width_; ++column) {
                at(column, row) = placePixel<P>(column, row);
            }
        }
        return *this;
    }

    /// The index in `memory` of a pixel of the buffer.
    std::size_t indexOf(std::int32_t column, std::int32_t row) const {
        const std::int32_t line = layout_.upsideDown ? height_ - row : row + 1;
        return static_cast<std::size_t>(line) * static_cast<std::size_t>(pitch_) +
               static_cast<std::size_t>(column);
    }
    P& at(std::int32_t column, std::int32_t row) { return memory[indexOf(column, row)]; }

    std::int32_t width() const { return width_; }
    std::int32_t height() const { return height_; }

    std::vector<P> memory;  ///< one guard row, the picture, one guard row
    VxTexture<P> texture;

private:
    std::int32_t width_, height_;
    RowLayout layout_;
    std::int32_t pitch_;
};

/// Says where two memories differ first; empty if they do not.
template <class P>
std::string firstDifference(const std::vector<P>& got, const std::vector<P>& wanted) {
    if (got.size() != wanted.size()) return "sizes differ";
    for (std::size_t i = 0; i < got.size(); ++i) {
        if (got[i] == wanted[i]) continue;
        std::ostringstream text;
        text << "pixel " << i << " of " << got.size() << ":";
        for (int k = 0; k < componentsOf<P>(); ++k) {
            text << ' ' << +componentOf(got[i], k) << '/' << +componentOf(wanted[i], k);
        }
        return text.str() + " (got/wanted)";
    }
    return {};
}

}  // namespace ruvex::test
