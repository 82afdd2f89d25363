#include <cstring>
#include <gtest/gtest.h>

#include "imaging/texture.h"
#include "tests/imaging/property/imager_case.h"
#include "tests/imaging/twins/sample_twin.h"

namespace ruvex::test {
namespace {

template <class P>
class TextureProperty : public testing::Test {};
using AllPixels = testing::Types<Rgba8, RgbaS214, RgbaInt, RgbaFloat, Channel8, ChannelS214,
                                 ChannelInt, std::int32_t>;
TYPED_TEST_SUITE(TextureProperty, AllPixels);

// Near the picture, on pixel centres and seams, and at times where no float has a neighbour.
float randomPosition(Random& random) {
    switch (random.whole(0, 9)) {
        case 0:
            return static_cast<float>(random.whole(-20, 30)) + 0.5f;
        case 1:
            return static_cast<float>(random.whole(-20, 30));
        case 2:
            return random.real(-1e6f, 1e6f);
        case 3:
            return random.real(-1e10f, 1e10f);
        default:
            return random.real(-25.0f, 35.0f);
    }
}

template <class C>
bool sameBits(const C& a, const C& b) {
    return std::memcmp(&a, &b, sizeof(C)) == 0;
}

TYPED_TEST(TextureProperty, SampleAgreesWithTheTwin) {
    forSeeds(3000, 4000, [](Random& random) {
        const auto canvas = randomCanvas<TypeParam>(random);
        auto& texture = canvas->texture;
        if (random.chance(3)) texture.data = nullptr;
        for (int i = 0; i < 5; ++i) {
            const float x = randomPosition(random);
            const float y = randomPosition(random);
            Companion<TypeParam> sample{};
            texture.sample(sample, x, y);
            const auto wanted = twin::sampleTwin(texture, x, y);
            ASSERT_TRUE(sameBits(sample, wanted))
                << x << ", " << y << " component 0 " << componentOf(sample, 0) << " wanted "
                << componentOf(wanted, 0);
        }
    });
}

TYPED_TEST(TextureProperty, PixelAtAgreesWithTheTwin) {
    forSeeds(4000, 1000, [](Random& random) {
        const auto canvas = randomCanvas<TypeParam>(random);
        auto& texture = canvas->texture;
        for (int i = 0; i < 10; ++i) {
            const std::int32_t x = random.whole(-40, 50);
            const std::int32_t y = random.whole(-40, 50);
            const TypeParam* pixel = texture.pixelAt(x, y);
            ASSERT_EQ(pixel ? *pixel : texture.fill, twin::wholePixelTwin(texture, x, y));
        }
    });
}

TYPED_TEST(TextureProperty, ASampleOfAnAreaIsTheSampleAtItsCentre) {
    forSeeds(5000, 1000, [](Random& random) {
        const auto canvas = randomCanvas<TypeParam>(random);
        // Eighths, so that the corners of the area are exact.
        const auto eighths = [&] { return static_cast<float>(random.whole(-200, 300)) / 8.0f; };
        const float x = eighths(), y = eighths(), dx = eighths() * 4096.0f, dy = eighths();
        Companion<TypeParam> plain{}, box{}, corners{};
        canvas->texture.sample(plain, x, y);
        canvas->texture.sampleBox(box, x, y, dx, dy);
        canvas->texture.sampleBetween(corners, x - dx, y + dy, x + dx, y - dy);
        ASSERT_TRUE(sameBits(plain, box));
        ASSERT_TRUE(sameBits(plain, corners));
    });
}

}  // namespace
}  // namespace ruvex::test
