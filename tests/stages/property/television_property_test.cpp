// Everything after the ghosts, and the whole television, against the plain twins, bit for bit.

#include <gtest/gtest.h>

#include "tests/stages/property/television_case.h"

namespace ruvex::test {
namespace {

template <class P>
class TelevisionProperty : public testing::Test {};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(TelevisionProperty, FramePixels);

TYPED_TEST(TelevisionProperty, HardSnow) {
    compareCases<TypeParam>(cases(150), [](Random& random, SignalParameters& signal) {
        chooseSnow(random, signal);
        signal.snowSoftness = 0.0f;
    });
}

TYPED_TEST(TelevisionProperty, SoftSnow) {
    compareCases<TypeParam>(cases(150), chooseSnow);
}

TYPED_TEST(TelevisionProperty, Shash) {
    compareCases<TypeParam>(cases(400), [](Random& random, SignalParameters& signal) {
        chooseRoll(random, signal);
        chooseShash(random, signal);
    });
}

TYPED_TEST(TelevisionProperty, CreepingLines) {
    compareCases<TypeParam>(cases(400), chooseLines);
}

TYPED_TEST(TelevisionProperty, WindingAndSlowPlay) {
    compareCases<TypeParam>(cases(400), chooseTransport);
}

TYPED_TEST(TelevisionProperty, TheWhiteDot) {
    compareCases<TypeParam>(cases(200), [](Random& random, SignalParameters& signal) {
        signal.whiteDot = random.real(0.0f, 0.99f) * random.real(0.0f, 1.0f);
        signal.scale = random.real(0.01f, 1.5f);
    });
}

TYPED_TEST(TelevisionProperty, AllStagesAtOnce) {
    compareCases<TypeParam>(cases(100), [](Random& random, SignalParameters& signal) {
        chooseTones<TypeParam>(random, signal);
        chooseRoll(random, signal);
        chooseEdges(random, signal);
        chooseColourLoss(random, signal);
        if (random.chance(50)) chooseGuns(random, signal);
        chooseGhosts(random, signal);
        chooseSnow(random, signal);
        chooseLines(random, signal);
        chooseTransport(random, signal);
        if (random.chance(50)) chooseShash(random, signal);
        if (random.chance(30)) signal.whiteDot = random.real(0.0f, 0.5f);
    });
}

// One worker, so that no share begins elsewhere, and without ghosts, which see what lies outside.
TYPED_TEST(TelevisionProperty, ARegionIsItsPartOfThePicture) {
    for (int i = 0; i < cases(100); ++i) {
        Workers one(1);
        Random random(static_cast<std::uint32_t>(i) + 1);
        auto set = randomTelevision<TypeParam>(random);
        chooseTones<TypeParam>(random, set->signal);
        chooseRoll(random, set->signal);
        chooseEdges(random, set->signal);
        chooseColourLoss(random, set->signal);
        chooseGuns(random, set->signal);
        chooseSnow(random, set->signal);
        set->signal.snowSoftness = 0.0f;
        const auto before = set->target.memory;
        set->run();
        auto wanted = before;
        const auto whole = set->target.memory;
        const int width = set->target.width(), height = set->target.height();
        Window& window = set->window.emplace();
        window.left = random.whole(0, width - 1);
        window.right = random.whole(window.left, width - 1);
        window.top = random.whole(0, height - 1);
        window.bottom = random.whole(window.top, height - 1);
        for (int y = window.top; y <= window.bottom; ++y) {
            for (int x = window.left; x <= window.right; ++x) {
                wanted[set->target.indexOf(x, y)] = whole[set->target.indexOf(x, y)];
            }
        }
        set->target.memory = before;
        set->run();
        ASSERT_EQ(firstDifference(set->target.memory, wanted), "") << "case " << i;
    }
}

}  // namespace
}  // namespace ruvex::test
