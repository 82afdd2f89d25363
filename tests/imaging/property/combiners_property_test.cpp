#include <gtest/gtest.h>

#include "imaging/mix_combiner.h"
#include "imaging/subtract_combiner.h"
#include "tests/imaging/property/imager_case.h"
#include "tests/imaging/twins/sample_twin.h"

namespace ruvex::test {
namespace {

constexpr std::array<float, 9> kWeights{-0.5f, -0.0f, 0.0f, 0.1f, 0.3f, 0.7f, 0.9f, 1.0f, 1.5f};

template <class P>
P mixTwin(const P& a, const P& b, float first, float second) {
    const bool clamped = first < 0.0f || second < 0.0f || first + second > 1.0f;
    const float top = sizeof(P) == 4 ? 255.0f : 32767.0f;
    P result;
    for (int k = 0; k < 4; ++k) {
        const float one = static_cast<float>(a.c[k]) * first;
        const float two = static_cast<float>(b.c[k]) * second;
        float value = one + two;
        if (clamped && value < 0.0f) value = 0.0f;
        if (clamped && value > top) value = top;
        result.c[k] = static_cast<typename P::Component>(twin::toInt(value));
    }
    return result;
}

RgbaInt subtractTwin(const RgbaInt& a, const RgbaInt& b) {
    RgbaInt result;
    for (int k = 0; k < 4; ++k) {
        result.c[k] = twin::minus(twin::toInt(static_cast<float>(a.c[k]) * 2.0f), b.c[k]);
    }
    return result;
}

// Which of the inputs is the Map itself.
enum class InPlace { None, First, Second, Both };

template <class P, class Combine, class Twin>
void checkCombiner(Random& random, Combine& combiner, Twin combined) {
    ImagerCase<P> given(random);
    const auto other = randomCanvas<P>(random);
    const auto inPlace = static_cast<InPlace>(random.whole(0, 3));
    Canvas<P>& map = *given.map;
    if (inPlace != InPlace::None) {
        // In place means that each pixel stands where it is read.
        map.texture.setOrigin(map.texture.x.offset, map.texture.y.offset);
    }
    const bool firstIsMap = inPlace == InPlace::First || inPlace == InPlace::Both;
    const bool secondIsMap = inPlace == InPlace::Second || inPlace == InPlace::Both;
    VxTexture<P>& first = firstIsMap ? map.texture : given.source->texture;
    VxTexture<P>& second = secondIsMap ? map.texture : other->texture;
    // A range narrower than the buffer would read what another worker writes.
    if (inPlace != InPlace::None) map.texture.setRange(0, map.width(), 0, map.height());

    const auto window = twin::windowTwin(map.texture, given.window, given.fieldMode, given.workers);
    std::vector<P> wanted = map.memory;
    for (std::int32_t row = 0; row < map.height(); ++row) {
        for (std::int32_t column = 0; column < map.width(); ++column) {
            const std::int32_t x = column + map.texture.x.offset;
            const std::int32_t y = row + map.texture.y.offset;
            if (!window.writes(x, y)) continue;
            wanted[map.indexOf(column, row)] =
                combined(twin::wholePixelTwin(first, x, y), twin::wholePixelTwin(second, x, y));
        }
    }
    const Workers workers(given.workers);
    if (given.window) {
        combiner.setWindow(given.window->left, given.window->top, given.window->right,
                           given.window->bottom);
    }
    combiner.setFieldMode(given.fieldMode);
    combiner.process(&first, &second, &map.texture);
    ASSERT_EQ(firstDifference(map.memory, wanted), "");
}

template <class P>
class MixProperty : public testing::Test {};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(MixProperty, FramePixels);

TYPED_TEST(MixProperty, AgreesWithTheTwin) {
    forSeeds(90000, 1000, [](Random& random) {
        MixCombiner<TypeParam> mix;
        mix.weightFirst = random.oneOf(kWeights);
        mix.weightSecond = random.chance(50) ? 1.0f - mix.weightFirst : random.oneOf(kWeights);
        checkCombiner<TypeParam>(random, mix, [&](const TypeParam& a, const TypeParam& b) {
            return mixTwin(a, b, mix.weightFirst, mix.weightSecond);
        });
    });
}

TEST(SubtractProperty, AgreesWithTheTwin) {
    forSeeds(95000, 1000, [](Random& random) {
        SubtractCombiner subtract;
        checkCombiner<RgbaInt>(random, subtract, subtractTwin);
    });
}

}  // namespace
}  // namespace ruvex::test
