// Televisions of many sizes with every fault, each of which is given the memory that the others
// left, against the plain twins, bit for bit.
//
// The environment variable RUVEX_TELEVISIONS is their number for each pixel type.

#include <cstdlib>
#include <gtest/gtest.h>

#include "tests/stages/property/placed_case.h"
#include "tests/stages/property/television_comparison.h"

namespace ruvex::test {
namespace {

int televisions() {
    const char* wanted = std::getenv("RUVEX_TELEVISIONS");
    return wanted ? std::atoi(wanted) : cases(300);
}

// As wide as some vectors of pixels, and as tiles of columns.
template <class P>
std::unique_ptr<Television<P>> wideTelevision(Random& random) {
    const int width = random.chance(50) ? random.whole(1, 40) : random.whole(1, 400);
    const int height = random.whole(1, width < 100 ? 90 : 40);
    auto set = std::make_unique<Television<P>>(width, height, random.bits());
    chooseSet(random, *set);
    return set;
}

// Tones that come again, so that their tables are found among those that are kept.
template <class P>
void chooseFewTones(Random& random, SignalParameters& signal) {
    constexpr float kFew[] = {0.0f, 0.15f, -0.3f};
    signal.tvType = TvType{random.whole(0, 2)};
    for (float* value : {&signal.contrast, &signal.brightness, &signal.gunBlue}) {
        *value = random.chance(60) ? 0.0f : random.oneOf(kFew);
    }
    for (float& value : signal.tint) value = random.chance(60) ? 0.0f : kTwinWhite<P> / 2;
}

template <class P>
class RandomTelevisions : public testing::Test {};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(RandomTelevisions, FramePixels);

TYPED_TEST(RandomTelevisions, EqualTheTwins) {
    const int count = televisions();
    FrameMemory<TypeParam> memory;
    compareSets(count, [&](Random& random) {
        auto set = wideTelevision<TypeParam>(random);
        chooseFaults<TypeParam>(random, set->signal);
        if (random.chance(70)) chooseFewTones<TypeParam>(random, set->signal);
        if (random.chance(40)) chooseWindow(random, *set);
        set->memory = &memory;
        return set;
    });
    const auto built = memory.tones.built();
    this->RecordProperty("televisions", count);
    this->RecordProperty("tables built", static_cast<int>(built));
    EXPECT_GT(built, 0u);
    EXPECT_LT(built, static_cast<std::uint64_t>(count)) << "no tables were used again";
}

}  // namespace
}  // namespace ruvex::test
