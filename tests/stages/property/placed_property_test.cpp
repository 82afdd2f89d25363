// Parts of a picture, and pictures that lie elsewhere or measure differently, against the twins.

#include <gtest/gtest.h>

#include "tests/stages/property/placed_case.h"
#include "tests/stages/property/television_comparison.h"

namespace ruvex::test {
namespace {

template <class P>
class PlacedProperty : public testing::Test {};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(PlacedProperty, FramePixels);

TYPED_TEST(PlacedProperty, AWindowOfAPerfectPicture) {
    compareSets(cases(40), [](Random& random) {
        auto set = randomTelevision<TypeParam>(random);
        chooseWindow(random, *set);
        return set;
    });
}

TYPED_TEST(PlacedProperty, AWindowWithGhostsSoftSnowLinesTransportShashAndDot) {
    compareSets(cases(150), [](Random& random) {
        auto set = randomTelevision<TypeParam>(random);
        chooseFaults<TypeParam>(random, set->signal);
        chooseWindow(random, *set);
        return set;
    });
}

TYPED_TEST(PlacedProperty, ATargetThatLiesElsewhere) {
    compareSets(cases(80), [](Random& random) {
        auto set = randomTelevision<TypeParam>(random);
        chooseFaults<TypeParam>(random, set->signal);
        const int x = random.whole(-70, 70);
        set->placeTarget(x, random.whole(-70, 70));
        if (random.chance(50)) chooseWindow(random, *set);
        set->keepWindow = false;
        return set;
    });
}

TYPED_TEST(PlacedProperty, ASizeThatIsNoWholeNumberOfPixels) {
    compareSets(cases(40), [](Random& random) {
        auto set = randomTelevision<TypeParam>(random);
        chooseFaults<TypeParam>(random, set->signal);
        chooseFraction(random, *set);
        return set;
    });
}

TYPED_TEST(PlacedProperty, APerfectPictureOfAnotherSize) {
    compareSets(cases(100), [](Random& random) {
        auto set = unequalTelevision<TypeParam>(random);
        if (random.chance(30)) chooseGhosts(random, set->signal);
        if (random.chance(30)) chooseRoll(random, set->signal);
        return set;
    });
}

TYPED_TEST(PlacedProperty, AFaultyPictureOfAnotherSize) {
    compareSets(cases(150), [](Random& random) {
        auto set = unequalTelevision<TypeParam>(random);
        chooseFaults<TypeParam>(random, set->signal);
        if (random.chance(30)) chooseWindow(random, *set);
        set->keepWindow = false;
        return set;
    });
}

}  // namespace
}  // namespace ruvex::test
