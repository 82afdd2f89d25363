#include "looks/sound_drift.h"

#include <gtest/gtest.h>

namespace ruvex::looks {
namespace {

bool moves(const std::vector<ParameterChange>& changes) {
    return movesPictures(changes);
}

TEST(SoundDrift, ComesOfPlaySpeed) {
    using enum ParameterId;
    EXPECT_FALSE(moves({}));
    EXPECT_FALSE(moves({Setting{PlaySpeed, 100}}));
    EXPECT_TRUE(moves({Setting{PlaySpeed, 99}}));
    EXPECT_TRUE(moves({Setting{PlaySpeed, -100}}));
    EXPECT_FALSE(moves({Animation{PlaySpeed, {{0, 100}, {2, 100}}}}));
    EXPECT_TRUE(moves({Animation{PlaySpeed, {{0, 100}, {2, 0}}}}));
}

TEST(SoundDrift, ComesOfTheLastValue) {
    using enum ParameterId;
    EXPECT_FALSE(moves({Setting{PlaySpeed, 50}, Setting{PlaySpeed, 100}}));
    EXPECT_TRUE(moves({Setting{PlaySpeed, 100}, Setting{PlaySpeed, 50}}));
}

TEST(SoundDrift, DoesNotComeOfRepeatedFrames) {
    EXPECT_FALSE(moves({Setting{ParameterId::RepeatFrames, 20}}));
}

}  // namespace
}  // namespace ruvex::looks
