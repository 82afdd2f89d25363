// Everything after the ghosts, and the whole television, against the plain twins, bit for bit.

#include <gtest/gtest.h>

#include "tests/stages/property/television_comparison.h"

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

TYPED_TEST(TelevisionProperty, AShashThatDrawsNothingOverWhateverWasThere) {
    compareCases<TypeParam>(cases(40), [](Random& random, SignalParameters& signal) {
        chooseFaults<TypeParam>(random, signal);
        chooseShash(random, signal);
        drawNoShash(signal);
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
    compareCases<TypeParam>(cases(100), chooseFaults<TypeParam>);
}

}  // namespace
}  // namespace ruvex::test
