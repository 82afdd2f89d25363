#include "imaging/pixel.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

#include "imaging/pixel_convert.h"

namespace ruvex {
namespace {

constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kNan = std::numeric_limits<float>::quiet_NaN();

TEST(Pixel, ComponentsLieInMemoryAsRedGreenBlueAlpha) {
    const Rgba8 pixel{{1, 2, 3, 4}};
    const auto* bytes = reinterpret_cast<const unsigned char*>(&pixel);
    EXPECT_EQ(bytes[0], 1);
    EXPECT_EQ(bytes[3], 4);
    EXPECT_EQ(sizeof(Companion<RgbaS214>), 16u);
}

TEST(PixelStore, EightBitClampsAndTruncates) {
    EXPECT_EQ(storeClamped<Rgba8>(255.999f), 255);
    EXPECT_EQ(storeClamped<Rgba8>(256.0f), 255);
    EXPECT_EQ(storeClamped<Rgba8>(-0.5f), 0);
    EXPECT_EQ(storeClamped<Rgba8>(254.99f), 254);
    EXPECT_EQ(storeClamped<Rgba8>(20000.0f), 255);
    EXPECT_EQ(storeClamped<Rgba8>(-100.0f), 0);
}

TEST(PixelStore, S214KeepsOvershootAboveWhiteAndBelowBlack) {
    EXPECT_EQ(storeClamped<RgbaS214>(20000.0f), 20000);
    EXPECT_EQ(storeClamped<RgbaS214>(-100.0f), -100);
    EXPECT_EQ(storeClamped<RgbaS214>(-100.9f), -100);
    EXPECT_EQ(storeClamped<RgbaS214>(32767.0f), 32767);
    EXPECT_EQ(storeClamped<RgbaS214>(32767.5f), 32767);
    EXPECT_EQ(storeClamped<RgbaS214>(1e30f), 32767);
    EXPECT_EQ(storeClamped<RgbaS214>(-32768.0f), -32768);
    EXPECT_EQ(storeClamped<RgbaS214>(-kInfinity), -32768);
}

TEST(PixelStore, NormalisedColourIsAFractionOfWhite) {
    EXPECT_EQ(fromNormalised<Rgba8>(1.0f), 255);
    EXPECT_EQ(fromNormalised<RgbaS214>(1.0f), 16384);
    EXPECT_EQ(fromNormalised<Rgba8>(0.999f), 254);
    EXPECT_EQ(fromNormalised<RgbaS214>(0.999f), 16367);
    EXPECT_EQ(fromNormalised<Rgba8>(0.5f), 127);
    EXPECT_EQ(fromNormalised<RgbaS214>(0.5f), 8192);
}

TEST(PixelStore, EveryFloatBecomesADefinedInteger) {
    constexpr int kIndefinite = std::numeric_limits<int>::min();
    EXPECT_EQ(truncateToInt(kNan), kIndefinite);
    EXPECT_EQ(truncateToInt(kInfinity), kIndefinite);
    EXPECT_EQ(truncateToInt(2147483648.0f), kIndefinite);
    EXPECT_EQ(truncateToInt(2147483520.0f), 2147483520);
    EXPECT_EQ(truncateToInt(-2147483648.0f), kIndefinite);
    EXPECT_EQ(truncateToInt(-2.9), -2);
    EXPECT_EQ(truncateToInt(2147483647.9), 2147483647);
    EXPECT_EQ(truncateToInt(-2147483648.9), kIndefinite);
    EXPECT_EQ(truncateToInt(1e300), kIndefinite);
    EXPECT_EQ(storeTruncated<std::uint8_t>(kNan), 0);
    EXPECT_EQ(storeTruncated<std::int16_t>(kNan), 0);
}

TEST(PixelStore, FloorIsTruncationWithACorrection) {
    EXPECT_EQ(floorToInt(2.5f), 2);
    EXPECT_EQ(floorToInt(-2.5f), -3);
    EXPECT_EQ(floorToInt(-2.0f), -2);
    EXPECT_EQ(floorToInt(-0.25f), -1);
    EXPECT_EQ(floorToInt(-3e9f), std::numeric_limits<int>::min());
}

TEST(PixelStore, SeedsWrapThrough64Bits) {
    EXPECT_EQ(seedFromFloat(-1.0f), 4294967295u);
    EXPECT_EQ(seedFromFloat(4294967296.0f), 0u);
    EXPECT_EQ(seedFromFloat(8589934592.0f + 1024.0f), 1024u);
    EXPECT_EQ(seedFromFloat(1e30f), 0u);
    EXPECT_EQ(seedFromFloat(kNan), 0u);
}

TEST(PixelLerp, IntegersHaveThePrecisionOfFloat) {
    // Half of 2147483647 in float is 1073741824, one more than the exact half rounded down.
    EXPECT_EQ(lerp(0, 2147483647, 0.5f), 1073741824);
    EXPECT_EQ(lerp(10, 13, 0.5f), 11);
    EXPECT_EQ(lerp(-10, -13, 0.5f), -11);
}

TEST(PixelLerp, TheDifferenceOfIntegersWraps) {
    // 2147483647 - (-1) wraps to -2147483648.
    EXPECT_EQ(lerp(-1, 2147483647, 0.25f), -536870912);
}

}  // namespace
}  // namespace ruvex
