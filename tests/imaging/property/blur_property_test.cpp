#include <gtest/gtest.h>

#include "imaging/blur/blur_gauss.h"
#include "tests/imaging/property/imager_case.h"
#include "tests/imaging/twins/blur_twin.h"

namespace ruvex::test {
namespace {

template <class P, std::uint32_t Mask, BlurArithmetic A>
struct BlurKind {
    using Pixel = P;
    using Blur = GaussSampler<P, Mask, A>;
    static constexpr std::uint32_t kMask = Mask;
    static constexpr bool kFloating = A == BlurArithmetic::Floating;
};

template <class Kind>
class BlurProperty : public testing::Test {};
using Kinds = testing::Types<
    BlurKind<Rgba8, 15, BlurArithmetic::Fixed>, BlurKind<RgbaS214, 15, BlurArithmetic::Fixed>,
    BlurKind<RgbaInt, 15, BlurArithmetic::Fixed>, BlurKind<RgbaInt, 7, BlurArithmetic::Fixed>,
    BlurKind<RgbaInt, 1, BlurArithmetic::Fixed>, BlurKind<RgbaInt, 2, BlurArithmetic::Fixed>,
    BlurKind<RgbaInt, 4, BlurArithmetic::Fixed>, BlurKind<RgbaInt, 8, BlurArithmetic::Fixed>,
    BlurKind<ChannelInt, 1, BlurArithmetic::Fixed>, BlurKind<Rgba8, 15, BlurArithmetic::Floating>,
    BlurKind<RgbaS214, 15, BlurArithmetic::Floating>>;
TYPED_TEST_SUITE(BlurProperty, Kinds);

constexpr std::array<float, 10> kRadii{0.0f, 0.0f, 0.3f,  1.0f,  1.5f,
                                       2.7f, 5.0f, 9.99f, 20.0f, 70.0f};

template <class P>
twin::BlurSettings randomSettings(Random& random, const VxTexture<P>& map,
                                  std::int32_t iterations) {
    // A radius beyond three times the longer side acts as that.
    const auto limit = static_cast<float>(std::max(map.x.size, map.y.size) * 3);
    twin::BlurSettings settings;
    settings.radiusX = std::min(random.oneOf(kRadii), limit);
    settings.radiusY = std::min(random.oneOf(kRadii), limit);
    settings.iterations = iterations;
    return settings;
}

// The Map's memory after a blur whose result is pixel(x, y) in the window.
template <class P, class Pixel>
std::vector<P> wantedMemory(Canvas<P>& map, const twin::WindowTwin& window, std::uint32_t mask,
                            Pixel pixel) {
    std::vector<P> wanted = map.memory;
    for (std::int32_t row = 0; row < map.height(); ++row) {
        for (std::int32_t column = 0; column < map.width(); ++column) {
            const std::int32_t x = column + map.texture.x.offset;
            const std::int32_t y = row + map.texture.y.offset;
            if (!window.writes(x, y)) continue;
            const P value = pixel(x, y);
            P& to = wanted[map.indexOf(column, row)];
            for (int k = 0; k < P::kComponents; ++k) {
                if (mask & (1u << k)) to.c[k] = value.c[k];
            }
        }
    }
    return wanted;
}

template <class Kind>
struct BlurCase {
    using P = typename Kind::Pixel;

    BlurCase(Random& random, std::int32_t iterations)
        : images(random),
          inPlace(random.chance(40)),
          settings(randomSettings(random, map().texture, iterations)),
          window(twin::windowTwin(map().texture, images.window, 0, 1)) {}

    Canvas<P>& map() { return *images.map; }
    VxTexture<P>& from() { return inPlace ? map().texture : images.source->texture; }
    bool onlyCopies() const { return settings.radiusX == 0.0f && settings.radiusY == 0.0f; }
    /// Copying takes whole pixels.
    std::uint32_t mask() const { return onlyCopies() ? 15 : Kind::kMask; }
    twin::BlurWindow blurWindow() const { return {window.x0, window.y0, window.x1, window.y1}; }

    void run() {
        const Workers workers(images.workers);
        typename Kind::Blur blur;
        // The aspect is taken off radiusX; a quarter comes back exactly.
        blur.scaleX = 0.25f;
        blur.radiusX = settings.radiusX * 0.25f;
        blur.radiusY = settings.radiusY;
        blur.iterations = settings.iterations;
        if (const auto& set = images.window) {
            blur.setWindow(set->left, set->top, set->right, set->bottom);
        }
        blur.process(&from(), &map().texture);
    }

    ImagerCase<P> images;
    bool inPlace;
    twin::BlurSettings settings;
    twin::WindowTwin window;
};

template <class Kind>
std::vector<typename Kind::Pixel> endlessMemory(BlurCase<Kind>& given) {
    using P = typename Kind::Pixel;
    const auto picture = [&](std::int64_t x, std::int64_t y) {
        return twin::wholePixelTwin(given.from(), twin::low32(x), twin::low32(y));
    };
    std::vector<P> result;
    if (!given.onlyCopies()) {
        result =
            twin::endlessBlurTwin<P, Kind::kFloating>(picture, given.blurWindow(), given.settings);
    }
    const twin::WindowTwin& w = given.window;
    return wantedMemory(given.map(), w, given.mask(), [&](std::int32_t x, std::int32_t y) {
        if (given.onlyCopies()) return picture(x, y);
        return result[static_cast<std::size_t>((y - w.y0) * (w.x1 - w.x0) + x - w.x0)];
    });
}

template <class Kind>
std::vector<typename Kind::Pixel> steppedMemory(BlurCase<Kind>& given) {
    using P = typename Kind::Pixel;
    std::vector<P> wanted = given.map().memory;
    const VxTexture<P>& map = given.map().texture;
    twin::steppedBlurTwin<P, Kind::kFloating>(
        given.from(), map, given.blurWindow(), given.settings,
        [&](std::int64_t x, std::int64_t y, const P& out) {
            const std::int64_t column = x - map.x.offset, row = y - map.y.offset;
            if (column < 0 || row < 0 || column >= map.x.size || row >= map.y.size) return;
            P& to = wanted[given.map().indexOf(static_cast<std::int32_t>(column),
                                               static_cast<std::int32_t>(row))];
            for (int k = 0; k < P::kComponents; ++k) {
                if (Kind::kMask & (1u << k)) to.c[k] = out.c[k];
            }
        });
    return wanted;
}

// Runs the case and checks the whole of the Map, and that nothing else changed for good.
template <class Kind>
void checkRun(BlurCase<Kind>& given, const std::vector<typename Kind::Pixel>& wanted) {
    const auto sourceBefore = given.images.source->memory;
    const VxTexture<typename Kind::Pixel>& map = given.map().texture;
    const VxTexIndexer axesBefore = map;
    const auto fillBefore = map.fill;
    given.run();
    ASSERT_EQ(firstDifference(given.map().memory, wanted), "")
        << "radii " << given.settings.radiusX << " " << given.settings.radiusY << ", iterations "
        << given.settings.iterations << ", in place " << given.inPlace;
    ASSERT_EQ(firstDifference(given.images.source->memory, sourceBefore), "");
    EXPECT_EQ(map.x.edgeMethod, axesBefore.x.edgeMethod);
    EXPECT_EQ(map.y.edgeMethod, axesBefore.y.edgeMethod);
    EXPECT_EQ(map.y.offset, axesBefore.y.offset);
    EXPECT_EQ(map.fill, fillBefore);
}

// Whether there is room for the buffers, which a negative count of boxes makes shorter than the
// picture. Where there is none the render stops.
template <class Kind>
bool possible(BlurCase<Kind>& given) {
    const twin::BlurSettings& s = given.settings;
    if (s.iterations >= 0) return true;
    const auto& map = given.map().texture;
    const auto size = [](const TexAxis& a, const TexAxis& b) {
        return std::int64_t{std::max(a.size, b.size)};
    };
    const auto padding = [&](float radius) {
        return 2 * (twin::BoxTwin(radius).reach() + 1) * s.iterations;
    };
    const auto margins = 2 * static_cast<std::int64_t>((s.radiusY + 2.0) * s.iterations);
    const std::int64_t width = size(map.x, given.from().x), height = size(map.y, given.from().y);
    return height + margins >= 1 && width + padding(s.radiusX) >= 1 &&
           height + padding(s.radiusY) >= 1;
}

TYPED_TEST(BlurProperty, IsBoxesOnTheEndlessPicture) {
    forSeeds(50000, 150, [](Random& random) {
        BlurCase<TypeParam> given(random, random.chance(60) ? 3 : random.whole(2, 5));
        checkRun(given, endlessMemory(given));
    });
}

// Row buffers shorter than two boxes reach, where their own edges show.
TYPED_TEST(BlurProperty, FollowsItsBuffersForAnyCountOfBoxes) {
    forSeeds(60000, 150, [](Random& random) {
        BlurCase<TypeParam> given(random, random.whole(-1, 4));
        if (given.onlyCopies() || !possible(given)) return;
        checkRun(given, steppedMemory(given));
    });
}

// A picture near the top of its range, whose sums grow as large as they can.
template <class P>
void floodNearTop(Canvas<P>& canvas, Random& random) {
    using T = typename P::Component;
    for (P& pixel : canvas.memory) {
        for (T& component : pixel.c) {
            component = static_cast<T>(std::numeric_limits<T>::max() - random.whole(0, 20));
        }
    }
}

template <class Kind>
void checkLongLine(Random& random, std::int32_t width, std::int32_t height, float radius) {
    using P = typename Kind::Pixel;
    Canvas<P> source(width, height), map(width, height);
    floodNearTop(source, random);
    source.texture.setEdgeMethods(random.bits() % 4, random.bits() % 4);
    const twin::BlurSettings settings{width > height ? radius : 0.5f,
                                      width > height ? 0.5f : radius, random.chance(70) ? 3 : 2};
    std::vector<P> wanted = map.memory;
    twin::steppedBlurTwin<P, Kind::kFloating>(
        source.texture, map.texture, {0, 0, width, height}, settings,
        [&](std::int64_t x, std::int64_t y, const P& out) {
            wanted[map.indexOf(static_cast<std::int32_t>(x), static_cast<std::int32_t>(y))] = out;
        });
    typename Kind::Blur blur;
    blur.radiusX = settings.radiusX;
    blur.radiusY = settings.radiusY;
    blur.iterations = settings.iterations;
    blur.process(&source.texture, &map.texture);
    ASSERT_EQ(firstDifference(map.memory, wanted), "") << radius << " " << settings.iterations;
}

// Beyond 24 bits the order of the steps, and where they start, decides.
TEST(BlurLongLines, FloatSumsRoundAsTheyRun) {
    using Deep = BlurKind<RgbaS214, 15, BlurArithmetic::Floating>;
    forSeeds(70000, 6, [](Random& random) {
        checkLongLine<Deep>(random, 301, 2, random.real(300.0f, 900.0f));
        checkLongLine<Deep>(random, 2, 305, static_cast<float>(random.whole(300, 900)));
    });
}

// From radius 128 on the sums of bytes outgrow 16 bits.
TEST(BlurLongLines, WideBoxesOfBytesKeepTheirSums) {
    using Bytes = BlurKind<Rgba8, 15, BlurArithmetic::Fixed>;
    for (const float radius : {126.9f, 127.0f, 127.9f, 128.0f, 128.9f, 129.0f}) {
        forSeeds(72000, 2, [radius](Random& random) {
            checkLongLine<Bytes>(random, 61, 2, radius);
            checkLongLine<Bytes>(random, 2, 62, radius);
        });
    }
}

}  // namespace
}  // namespace ruvex::test
