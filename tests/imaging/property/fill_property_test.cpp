#include <algorithm>
#include <gtest/gtest.h>

#include "imaging/frame_generator.h"
#include "imaging/img_filler.h"
#include "tests/imaging/property/imager_case.h"

namespace ruvex::test {
namespace {

template <class P>
class FillProperty : public testing::Test {};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(FillProperty, FramePixels);

// A sampler's face on a generator, for the check that both share.
template <class P>
struct GeneratorAsSampler : ColouredFrameGenerator<P> {
    void process(VxTexture<P>*, VxTexture<P>* onto) { ColouredFrameGenerator<P>::process(onto); }
};

TYPED_TEST(FillProperty, TheFrameGeneratorFillsItsWindow) {
    forSeeds(70000, 300, [](Random& random) {
        ImagerCase<TypeParam> given(random);
        GeneratorAsSampler<TypeParam> generator;
        generator.colour = randomPixel<TypeParam>(random);
        generator.zero = random.chance(30);
        const TypeParam wanted = generator.zero ? TypeParam{} : generator.colour;
        checkSampler<TypeParam>(
            given, generator,
            [&](std::int32_t, std::int32_t, std::int32_t, const TypeParam&) { return wanted; });
    });
}

// The filler in the words of one pixel: outside the rectangle it is filled. A rectangle whose ends
// are crossed keeps nothing.
TYPED_TEST(FillProperty, TheFillerFillsOutsideItsRectangle) {
    forSeeds(80000, 600, [](Random& random) {
        ImagerCase<TypeParam> given(random);
        Canvas<TypeParam>& map = *given.map;
        const Workers workers(given.workers);
        VxImgFiller<TypeParam> filler;
        filler.fillColour = random.chance(20) ? TypeParam{} : randomPixel<TypeParam>(random);
        filler.zero = random.chance(20);
        filler.useInside = random.chance(80);
        const auto inside = ImagerCase<TypeParam>::randomWindow(random, map.texture);
        filler.insideLeft = std::min(inside.left, inside.right);
        filler.insideRight = std::max(inside.left, inside.right);
        filler.insideTop = std::min(inside.top, inside.bottom);
        filler.insideBottom = std::max(inside.top, inside.bottom);
        if (random.chance(10)) filler.insideTop = filler.insideLeft = INT32_MIN;
        if (random.chance(10)) filler.insideBottom = filler.insideRight = INT32_MAX;
        if (random.chance(5)) filler.insideBottom = filler.insideTop = INT32_MIN;
        if (given.window) {
            filler.setWindow(given.window->left, given.window->top, given.window->right,
                             given.window->bottom);
        }

        const auto window = twin::windowTwin(map.texture, given.window, 0, 1);
        std::vector<TypeParam> wanted = map.memory;
        for (std::int32_t row = 0; row < map.height(); ++row) {
            for (std::int32_t column = 0; column < map.width(); ++column) {
                const std::int32_t x = column + map.texture.x.offset;
                const std::int32_t y = row + map.texture.y.offset;
                const bool kept = filler.useInside && x >= filler.insideLeft &&
                                  x < filler.insideRight && y >= filler.insideTop &&
                                  y < filler.insideBottom;
                if (!window.writes(x, y) || kept) continue;
                wanted[map.indexOf(column, row)] = filler.zero ? TypeParam{} : filler.fillColour;
            }
        }
        filler.process(map.texture);
        ASSERT_EQ(firstDifference(map.memory, wanted), "");
    });
}

}  // namespace
}  // namespace ruvex::test
