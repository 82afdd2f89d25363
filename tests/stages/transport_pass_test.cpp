#include "stages/transport_pass.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>

#include "tests/stages/support/television.h"

namespace ruvex::test {
namespace {

template <class P>
class TransportPass : public testing::Test {};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(TransportPass, FramePixels);

template <class P>
struct Tape {
    Tape(int width, int height)
        : signal(perfectSignal(width, height)), picture(width, height), target(width, height) {
        Random random(6);
        fillWithSignal(picture, random);
        picture.texture.setEdgeMethods(kEdgeMirror, kEdgeMirror);
        signal.seed = 3;
        signal.sourceFrame = signal.sourceFrameIndex = 40;
    }
    /// The rows that differ from the picture afterwards.
    std::set<int> run(std::int32_t first, std::int32_t end) {
        target.memory = picture.memory;
        runTransportPass(signal, 1.0f, picture.texture, target.texture, Span{first, end},
                         Span{0, picture.width()}, nullptr);
        std::set<int> rows;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                if (!(picture.at(x, y) == target.at(x, y))) rows.insert(y);
            }
        }
        return rows;
    }
    std::set<int> run() { return run(0, picture.height()); }

    SignalParameters signal;
    Canvas<P> picture;
    Canvas<P> target;
};

TYPED_TEST(TransportPass, NormalPlayAndADvdChangeNothing) {
    Tape<TypeParam> tape(50, 200);
    EXPECT_TRUE(tape.run().empty());
    tape.signal.dvdMode = true;
    for (const int state : {0, 1, 2}) {
        tape.signal.playState = PlayState{state};
        EXPECT_TRUE(tape.run().empty()) << state;
    }
}

TYPED_TEST(TransportPass, BandsOutOfSightTouchNoPixel) {
    Tape<TypeParam> tape(50, 200);
    tape.signal.playState = PlayState::Winding;
    for (const float speed : {100.0f, -100.0f}) {
        tape.signal.playSpeedAtStart = speed;
        EXPECT_TRUE(tape.run().empty()) << speed;
    }
    tape.signal.playSpeedAtStart = 2.0f;
    EXPECT_FALSE(tape.run().empty());
}

TYPED_TEST(TransportPass, SharesOfAWorkerAreLeftAloneByTheOthers) {
    Tape<TypeParam> tape(50, 200);
    tape.signal.playState = PlayState::Winding;
    tape.signal.playSpeedAtStart = 2.0f;
    for (const int row : tape.run(60, 130)) {
        EXPECT_GE(row, 60);
        EXPECT_LT(row, 130);
    }
}

TYPED_TEST(TransportPass, APictureTooSmallForABandIsDefined) {
    for (int height = 1; height < 20; ++height) {
        Tape<TypeParam> tape(7, height);
        for (const int state : {0, 1}) {
            tape.signal.playState = PlayState{state};
            tape.signal.playSpeedAtStart = 2.0f;
            const auto once = tape.run();
            EXPECT_EQ(once, tape.run());
            EXPECT_EQ(once.empty(), state == 0);
        }
    }
}

TYPED_TEST(TransportPass, FastBackwardsMovesTheBandsToHigherRows) {
    Tape<TypeParam> tape(50, 1000);
    tape.signal.playState = PlayState::Winding;
    const auto firstRow = [&](float speed) {
        tape.signal.playSpeedAtStart = speed;
        return *tape.run().begin();
    };
    // Backwards at normal speed: a tenth of the picture, from the low end, where no band is.
    EXPECT_NEAR(firstRow(-1.0f), 100 - 50, 5);
    EXPECT_NEAR(firstRow(-1.5f) - firstRow(-1.0f), 50, 1);
}

TYPED_TEST(TransportPass, FromTheTenthSlowFrameOnOnlyTheDoubleImageAndTheNoiseAreLeft) {
    for (const int frames : {0, 4, 5, 9, 10, 11, 500}) {
        Tape<TypeParam> tape(300, 200);
        tape.signal.playState = PlayState::Slow;
        tape.signal.framesAtLowSpeed = frames;
        tape.run();
        const float g = frames % 2 == 1 ? 0.6f : 0.4f;
        std::set<int> torn;
        for (int y = 40; y < 200; ++y) {
            for (int x = 2; x < 300; ++x) {
                for (int k = 0; k < 3; ++k) {
                    const int a = tape.picture.at(x, y).c[k];
                    const int b = tape.picture.at(x - 2, y).c[k];
                    const int wanted =
                        static_cast<int>(static_cast<float>(b - a) * g + static_cast<float>(a));
                    if (tape.target.at(x, y).c[k] != wanted) torn.insert(y);
                }
            }
        }
        EXPECT_EQ(torn.empty(), frames >= 10) << frames;
        if (torn.empty()) continue;
        // It rises by a hundredth a frame, from six tenths and again from three.
        const int centre = (frames < 5 ? 120 : 60) - 2 * frames;
        EXPECT_NEAR(*torn.begin(), std::max(centre - 13, 40), 2) << frames;
        EXPECT_NEAR(*torn.rbegin(), centre + 12, 2) << frames;
    }
}

}  // namespace
}  // namespace ruvex::test
