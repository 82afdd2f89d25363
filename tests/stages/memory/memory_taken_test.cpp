// What a frame takes memory for, by which one sees that it went the short way.

#include <gtest/gtest.h>

#include "tests/imaging/support/workers.h"
#include "tests/stages/support/television.h"
#include "tests/support/watched_new.h"

namespace ruvex::test {
namespace {

template <class P>
class MemoryTaken : public testing::Test {
protected:
    static constexpr int kWidth = 640;
    static constexpr int kHeight = 480;
    static constexpr std::uint64_t kFrame = sizeof(P) * kWidth * kHeight;

    std::uint64_t taken() {
        const std::uint64_t before = allocatedBytes();
        set.run();
        return allocatedBytes() - before;
    }

    Workers one{1};
    Television<P> set{kWidth, kHeight};
};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(MemoryTaken, FramePixels);

TYPED_TEST(MemoryTaken, APerfectPictureIsNeitherPaddedNorWorkedOnElsewhere) {
    EXPECT_LT(this->taken(), this->kFrame / 4);
    EXPECT_TRUE(this->set.unchanged());
}

TYPED_TEST(MemoryTaken, NorIsOneWhoseColoursAreLost) {
    SignalParameters& signal = this->set.signal;
    signal.breakup = 1.0f;
    signal.colourThreshold = signal.lineThreshold = signal.snowThreshold = 0.0f;
    signal.colourDegradeMax = 0.3f;
    signal.snowMax = 0.5f;
    signal.contrast = 0.3f;
    EXPECT_LT(this->taken(), this->kFrame / 2) << "the tables of tones are all there is";
}

TYPED_TEST(MemoryTaken, SoftSnowHasNoPictureOfItsNoise) {
    SignalParameters& signal = this->set.signal;
    signal.breakup = 1.0f;
    signal.snowThreshold = 0.0f;
    signal.snowMax = 0.5f;
    signal.snowSoftness = 3.0f;
    for (const int type : {0, 1, 2}) {
        signal.tvType = TvType{type};
        EXPECT_LT(this->taken(), this->kFrame / 2) << type;
    }
}

TYPED_TEST(MemoryTaken, TheNextFrameUsesTheMemoryOfTheFirst) {
    FrameMemory<TypeParam> memory;
    this->set.memory = &memory;
    makeFaulty(this->set.signal);
    this->set.signal.shashAmountMax = 0.0f;
    this->set.signal.playState = PlayState::Normal;
    EXPECT_GT(this->taken(), this->kFrame);
    EXPECT_LT(this->taken(), this->kFrame / 8);
}

TYPED_TEST(MemoryTaken, ADisplacedPictureIsPadded) {
    this->set.signal.verticalOffset = 1;
    EXPECT_GT(this->taken(), this->kFrame);
    EXPECT_LT(this->taken(), 2 * this->kFrame) << "and worked on in the output";
}

TYPED_TEST(MemoryTaken, ARecorderThatWindsNeedsThePictureTwice) {
    this->set.signal.playState = PlayState::Winding;
    EXPECT_GE(this->taken(), this->kFrame);
    EXPECT_LT(this->taken(), this->kFrame * 5 / 4);
}

TYPED_TEST(MemoryTaken, SoDoesAShashThatIsMixedIn) {
    SignalParameters& signal = this->set.signal;
    signal.breakup = 1.0f;
    signal.shashThreshold = 0.0f;
    signal.shashAmountMax = 0.5f;
    EXPECT_GE(this->taken(), this->kFrame);
    EXPECT_LT(this->taken(), this->kFrame * 5 / 4);
    signal.shashAmountMax = 1.0f;
    EXPECT_LT(this->taken(), this->kFrame / 4) << "alone it is drawn in the output";
}

}  // namespace
}  // namespace ruvex::test
