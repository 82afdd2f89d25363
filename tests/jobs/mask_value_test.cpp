#include <gtest/gtest.h>

#include "jobs/mask.h"

namespace ruvex::jobs {
namespace {

TEST(MaskValue, IsTheGreyOfTheColourAndNothingWhereItIsTransparent) {
    const auto value = [](int r, int g, int b, int a) {
        const std::uint8_t pixel[] = {static_cast<std::uint8_t>(r), static_cast<std::uint8_t>(g),
                                      static_cast<std::uint8_t>(b), static_cast<std::uint8_t>(a)};
        return maskValue(pixel);
    };
    for (int grey = 0; grey < 256; ++grey) {
        EXPECT_EQ(value(grey, grey, grey, 255), grey);
        EXPECT_EQ(value(grey, grey, grey, 0), 0);
        EXPECT_EQ(value(255, 255, 255, grey), grey);
    }
    EXPECT_EQ(value(255, 0, 0, 255), 76);
    EXPECT_EQ(value(0, 255, 0, 255), 150);
    EXPECT_EQ(value(0, 0, 255, 255), 29);
}

}  // namespace
}  // namespace ruvex::jobs
