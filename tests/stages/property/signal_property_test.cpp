// The border, the signal and the ghosts against their plain twins, bit for bit.

#include <gtest/gtest.h>

#include "tests/stages/property/television_comparison.h"

namespace ruvex::test {
namespace {

template <class P>
class SignalProperty : public testing::Test {};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(SignalProperty, FramePixels);

TYPED_TEST(SignalProperty, TonesOfEveryType) {
    compareCases<TypeParam>(cases(40), [](Random& random, SignalParameters& signal) {
        chooseTones<TypeParam>(random, signal);
    });
}

TYPED_TEST(SignalProperty, BordersThatRollIntoView) {
    compareCases<TypeParam>(cases(100), chooseRoll);
}

TYPED_TEST(SignalProperty, TornEdgesAndInterference) {
    compareCases<TypeParam>(cases(100), [](Random& random, SignalParameters& signal) {
        chooseRoll(random, signal);
        chooseEdges(random, signal);
        signal.tvType = TvType{random.whole(0, 2)};
    });
}

TYPED_TEST(SignalProperty, LostColour) {
    compareCases<TypeParam>(cases(100), [](Random& random, SignalParameters& signal) {
        chooseColourLoss(random, signal);
        chooseRoll(random, signal);
    });
}

TYPED_TEST(SignalProperty, GunsOutOfLine) {
    compareCases<TypeParam>(cases(100), [](Random& random, SignalParameters& signal) {
        chooseColourLoss(random, signal);
        chooseRoll(random, signal);
        chooseEdges(random, signal);
        chooseGuns(random, signal);
    });
}

TYPED_TEST(SignalProperty, Ghosts) {
    compareCases<TypeParam>(cases(100), [](Random& random, SignalParameters& signal) {
        chooseRoll(random, signal);
        chooseGhosts(random, signal);
    });
}

TYPED_TEST(SignalProperty, AllOfThemAtOnce) {
    compareCases<TypeParam>(cases(60), [](Random& random, SignalParameters& signal) {
        chooseTones<TypeParam>(random, signal);
        chooseRoll(random, signal);
        chooseEdges(random, signal);
        chooseColourLoss(random, signal);
        if (random.chance(50)) chooseGuns(random, signal);
        chooseGhosts(random, signal);
    });
}

}  // namespace
}  // namespace ruvex::test
