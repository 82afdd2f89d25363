// A random source, Map and window for a processor, and the check of a whole Map against a twin
// that gives one pixel.

#pragma once

#include <array>
#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <vector>

#include "tests/imaging/support/canvas.h"
#include "tests/imaging/support/random.h"
#include "tests/imaging/support/workers.h"
#include "tests/imaging/twins/window_twin.h"

namespace ruvex::test {

inline constexpr std::array<std::int32_t, 9> kOddSizes{1, 1, 2, 3, 4, 7, 8, 13, 17};

inline void randomAxis(Random& random, TexAxis& axis) {
    axis.edgeMethod = static_cast<std::uint32_t>(random.whole(0, 3));
    if (random.chance(40)) axis.setRange(random.whole(-2, axis.size), random.whole(-2, axis.size));
    if (random.chance(50)) {
        axis.setOrigin(random.whole(-9, 9));
    } else if (random.chance(50)) {
        axis.setOrigin(random.real(-9.0f, 9.0f));
    }
}

template <class P>
std::unique_ptr<Canvas<P>> randomCanvas(Random& random) {
    const std::int32_t width = random.oneOf(kOddSizes);
    const std::int32_t height = random.oneOf(kOddSizes);
    const RowLayout layout{random.whole(0, 3), random.chance(40)};
    auto canvas = std::make_unique<Canvas<P>>(width, height, layout);
    canvas->scribble(random);
    canvas->texture.setFill(randomPixel<P>(random));
    randomAxis(random, canvas->texture.x);
    randomAxis(random, canvas->texture.y);
    return canvas;
}

template <class P>
struct ImagerCase {
    explicit ImagerCase(Random& random)
        : source(randomCanvas<P>(random)),
          map(randomCanvas<P>(random)),
          fieldMode(random.chance(50) ? 0 : random.whole(1, 2)),
          workers(random.whole(1, 9)) {
        if (random.chance(60)) map->texture.x.offset = random.whole(-20, 20);
        if (random.chance(60)) map->texture.y.offset = random.whole(-20, 20);
        if (random.chance(70)) window = randomWindow(random, map->texture);
        // A source without pixels, with and without a size.
        if (random.chance(3)) source->texture.clear();
        if (random.chance(3)) source->texture.data = nullptr;
    }

    /// Corners in any order, inside the Map, across its edges or beyond it.
    static twin::Corners randomWindow(Random& random, const VxTexIndexer& map) {
        const auto end = [&random](const TexAxis& axis) {
            return axis.offset + random.whole(-3, axis.size + 2);
        };
        return {end(map.x), end(map.y), end(map.x), end(map.y)};
    }

    std::unique_ptr<Canvas<P>> source;
    std::unique_ptr<Canvas<P>> map;
    std::optional<twin::Corners> window;
    std::int32_t fieldMode;
    std::int32_t workers;
};

/// Runs `sampler` over the case and checks every byte of the Map's memory: pixels that the window
/// and the field hold become pixel(x, y, x0, before), x0 being the window's first column; all
/// others, the guard pixels too, stay.
template <class P, class Sampler, class Pixel>
void checkSampler(ImagerCase<P>& given, Sampler& sampler, Pixel pixel) {
    Canvas<P>& map = *given.map;
    const auto window = twin::windowTwin(map.texture, given.window, given.fieldMode, given.workers);
    std::vector<P> wanted = map.memory;
    for (std::int32_t row = 0; row < map.height(); ++row) {
        for (std::int32_t column = 0; column < map.width(); ++column) {
            const std::int32_t x = column + map.texture.x.offset;
            const std::int32_t y = row + map.texture.y.offset;
            if (!window.writes(x, y)) continue;
            P& to = wanted[map.indexOf(column, row)];
            to = pixel(x, y, static_cast<std::int32_t>(window.x0), to);
        }
    }
    const Workers workers(given.workers);
    const std::vector<P> sourceBefore = given.source->memory;
    if (given.window) {
        sampler.setWindow(given.window->left, given.window->top, given.window->right,
                          given.window->bottom);
    }
    sampler.setFieldMode(given.fieldMode);
    sampler.process(&given.source->texture, &map.texture);
    ASSERT_EQ(firstDifference(map.memory, wanted), "");
    ASSERT_EQ(firstDifference(given.source->memory, sourceBefore), "");
}

/// Calls check(random) for `count` cases, each with its own seed, which a failure shows.
template <class Check>
void forSeeds(std::uint32_t base, int count, Check check) {
    for (int i = 0; i < cases(count); ++i) {
        const std::uint32_t seed = base + static_cast<std::uint32_t>(i);
        SCOPED_TRACE("seed " + std::to_string(seed));
        Random random(seed);
        check(random);
        if (::testing::Test::HasFatalFailure()) return;
    }
}

}  // namespace ruvex::test
