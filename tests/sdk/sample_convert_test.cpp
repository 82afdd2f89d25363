#include "sdk/images/sample_convert.h"

#include <gtest/gtest.h>

namespace ruvex {
namespace {

TEST(SampleConvert, EveryEightBitValueSurvivesS214) {
    EXPECT_EQ(s214From8(255), 16384);
    for (int v = 0; v < 256; ++v) {
        EXPECT_EQ(u8FromS214(s214From8(static_cast<std::uint8_t>(v))), v);
    }
}

TEST(SampleConvert, EveryS214ValueFromBlackToWhiteSurvives16Bits) {
    EXPECT_EQ(u16FromS214(16384), 65535);
    EXPECT_EQ(s214From16(65535), 16384);
    for (int v = 0; v <= kWhiteS214; ++v) {
        EXPECT_EQ(s214From16(u16FromS214(static_cast<std::int16_t>(v))), v);
    }
}

TEST(SampleConvert, RoundsToTheNearest) {
    for (int v = 0; v <= 65535; ++v) {
        EXPECT_NEAR(s214From16(static_cast<std::uint16_t>(v)), v * 16384.0 / 65535.0, 0.5);
    }
    for (int v = 0; v <= kWhiteS214; ++v) {
        EXPECT_NEAR(u8FromS214(static_cast<std::int16_t>(v)), v * 255.0 / 16384.0, 0.5);
    }
}

TEST(SampleConvert, HoldsWhatAnUnsignedScaleCannotShow) {
    EXPECT_EQ(u8FromS214(-1), 0);
    EXPECT_EQ(u8FromS214(-32768), 0);
    EXPECT_EQ(u8FromS214(16385), 255);
    EXPECT_EQ(u16FromS214(32767), 65535);
}

}  // namespace
}  // namespace ruvex
