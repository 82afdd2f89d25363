// A frame shows nothing of what its memory held before: buffers whose contents are undefined when
// they are new are written before they are read.

#include <algorithm>
#include <gtest/gtest.h>

#include "tests/imaging/support/workers.h"
#include "tests/stages/property/placed_case.h"
#include "tests/support/watched_new.h"

namespace ruvex::test {
namespace {

template <class P>
class FreshMemory : public testing::Test {};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(FreshMemory, FramePixels);

/// Renders each television that make(random) gives in memory full of one byte and of another.
template <class P, class Make>
void compareFills(int count, Make make) {
    constexpr unsigned char kNumber = 0x55;
    constexpr unsigned char kNoNumber = 0xFF;
    for (int i = 0; i < count; ++i) {
        const auto render = [&](unsigned char byte) {
            Random random(static_cast<std::uint32_t>(i) + 1);
            auto set = make(random);
            Workers fixed(random.whole(1, 5));
            const FilledNew fresh(byte);
            set->run();
            return set->target.memory;
        };
        ASSERT_EQ(firstDifference(render(kNumber), render(kNoNumber)), "") << "case " << i;
    }
}

TYPED_TEST(FreshMemory, IsFullOfAByte) {
    const FilledNew fresh(0x55);
    VxTexture<TypeParam> texture;
    texture.allocateRegion(0, 0, 9, 9);
    const std::byte* const last = texture.data + 10 * texture.stride;
    EXPECT_EQ(std::count(const_cast<const std::byte*>(texture.data), last, std::byte{0x55}),
              last - texture.data);
}

TYPED_TEST(FreshMemory, WholePictures) {
    compareFills<TypeParam>(cases(200), [](Random& random) {
        auto set = randomTelevision<TypeParam>(random);
        chooseFaults<TypeParam>(random, set->signal);
        return set;
    });
}

TYPED_TEST(FreshMemory, PicturesThatRoll) {
    compareFills<TypeParam>(cases(100), [](Random& random) {
        auto set = randomTelevision<TypeParam>(random);
        chooseRoll(random, set->signal);
        if (random.chance(50)) chooseEdges(random, set->signal);
        if (random.chance(50)) chooseGuns(random, set->signal);
        return set;
    });
}

TYPED_TEST(FreshMemory, ShashOfEveryType) {
    compareFills<TypeParam>(cases(150), [](Random& random) {
        auto set = randomTelevision<TypeParam>(random);
        chooseShash(random, set->signal);
        if (random.chance(50)) chooseWindow(random, *set);
        return set;
    });
}

TYPED_TEST(FreshMemory, PartsOfPicturesThatLieElsewhere) {
    compareFills<TypeParam>(cases(150), [](Random& random) {
        auto set = randomTelevision<TypeParam>(random);
        chooseFaults<TypeParam>(random, set->signal);
        if (random.chance(30)) set->placeTarget(random.whole(-50, 50), 7);
        chooseWindow(random, *set);
        return set;
    });
}

TYPED_TEST(FreshMemory, PicturesOfDifferentSizes) {
    compareFills<TypeParam>(cases(150), [](Random& random) {
        auto set = unequalTelevision<TypeParam>(random);
        chooseFaults<TypeParam>(random, set->signal);
        if (random.chance(30)) chooseWindow(random, *set);
        return set;
    });
}

}  // namespace
}  // namespace ruvex::test
