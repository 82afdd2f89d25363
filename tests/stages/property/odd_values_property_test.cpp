// Parameters that are no number, endless, huge or next to nothing. Whatever they do to a picture,
// they do by the rules. Lines are left out: drawn by the rules, endless ones take for ever.

#include <gtest/gtest.h>
#include <limits>

#include "tests/stages/property/placed_case.h"
#include "tests/stages/property/television_comparison.h"

namespace ruvex::test {
namespace {

template <class P>
class OddValues : public testing::Test {};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(OddValues, FramePixels);

using Signal = SignalParameters;
using Parameter = float Signal::*;
using Limits = std::numeric_limits<float>;

constexpr float kOdd[] = {Limits::quiet_NaN(),
                          Limits::infinity(),
                          -Limits::infinity(),
                          Limits::max(),
                          -Limits::max(),
                          1e30f,
                          -1e30f,
                          Limits::denorm_min(),
                          -0.0f};

/// Faulty televisions of which some of the parameters are odd.
template <class P, class Table>
void compareOdd(int count, const Table& parameters) {
    compareSets(count, [&](Random& random) {
        auto set = randomTelevision<P>(random);
        chooseFaults<P>(random, set->signal);
        for (int i = random.whole(1, 3); i > 0; --i) {
            set->signal.*random.oneOf(parameters) = random.oneOf(kOdd);
        }
        return set;
    });
}

TYPED_TEST(OddValues, OfTheTube) {
    constexpr Parameter kParameters[] = {
        &Signal::brightness, &Signal::colour,           &Signal::gunRed,         &Signal::gunGreen,
        &Signal::gunBlue,    &Signal::colourDegradeMax, &Signal::colourThreshold};
    compareOdd<TypeParam>(cases(40), kParameters);
}

TYPED_TEST(OddValues, OfTheLevelAndTheThresholds) {
    constexpr Parameter kParameters[] = {&Signal::breakup,        &Signal::ghostThreshold,
                                         &Signal::edgeThreshold,  &Signal::snowThreshold,
                                         &Signal::lineThreshold,  &Signal::shashThreshold,
                                         &Signal::colourThreshold};
    compareOdd<TypeParam>(cases(50), kParameters);
}

TYPED_TEST(OddValues, OfTheSignal) {
    constexpr Parameter kParameters[] = {&Signal::edgeJaggedness, &Signal::edgePhase,
                                         &Signal::ghostDistance,  &Signal::ghostStrength,
                                         &Signal::ghostPhase,     &Signal::emInterference};
    compareOdd<TypeParam>(cases(50), kParameters);
}

TYPED_TEST(OddValues, OfTheStagesAfterIt) {
    constexpr Parameter kParameters[] = {&Signal::snowMax,        &Signal::snowSoftness,
                                         &Signal::snowSparseness, &Signal::playSpeedAtStart,
                                         &Signal::shashAmountMax, &Signal::whiteDot};
    compareOdd<TypeParam>(cases(60), kParameters);
}

TYPED_TEST(OddValues, OfTheScale) {
    constexpr Parameter kParameters[] = {&Signal::scale};
    compareOdd<TypeParam>(cases(30), kParameters);
}

// Where the guns are infinitely far off, what they read is a matter of 32 bits, and the same
// without a roll.
TYPED_TEST(OddValues, OfWhatIsPulledSideways) {
    constexpr Parameter kParameters[] = {
        &Signal::edgeDistortionMax, &Signal::gunRedX,   &Signal::gunGreenX, &Signal::gunBlueX,
        &Signal::gunRedY,           &Signal::gunGreenY, &Signal::gunBlueY};
    compareSets(cases(40), [&](Random& random) {
        auto set = randomTelevision<TypeParam>(random);
        chooseGuns(random, set->signal);
        if (random.chance(30)) chooseGhosts(random, set->signal);
        const float value = random.oneOf(kOdd);
        set->signal.*random.oneOf(kParameters) = value == value ? value : 0.0f;
        return set;
    });
}

}  // namespace
}  // namespace ruvex::test
