#include <gtest/gtest.h>
#include <limits>

#include "adapters/openfx/picture_frame.h"
#include "adapters/openfx/regions.h"

namespace ruvex::openfx {
namespace {

using adapters::PixelRect;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr OfxPointD kFull{1.0, 1.0};

TEST(OpenFxRegions, CanonicalRectanglesBecomePixels) {
    EXPECT_EQ(pixelsOf({0, 0, 1920, 1080}, pixelScale(kFull, 1.0)), (PixelRect{0, 0, 1920, 1080}));
    EXPECT_EQ(pixelsOf({0, 0, 768, 576}, pixelScale(kFull, 768.0 / 720.0)),
              (PixelRect{0, 0, 720, 576}));
    EXPECT_EQ(pixelsOf({-10, 20, 30, 60}, pixelScale({0.5, 0.25}, 2.0)), (PixelRect{-3, 5, 8, 15}));
    // A third of the size: 640 and 360, but for rounding.
    EXPECT_EQ(pixelsOf({0, 0, 1920, 1080}, pixelScale({0.3333333, 0.3333333}, 1.0)),
              (PixelRect{0, 0, 640, 360}));
    EXPECT_EQ(pixelsOf({0.5, 0.5, 2.5, 1.2}, pixelScale(kFull, 1.0)), (PixelRect{0, 0, 3, 2}));
}

TEST(OpenFxRegions, RectanglesThatNoPictureHasAreNone) {
    const PixelScale scale = pixelScale(kFull, 1.0);
    for (const OfxRectD& region :
         {OfxRectD{0, 0, 0, 10}, OfxRectD{10, 0, 0, 10},
          OfxRectD{-kInfinity, -kInfinity, kInfinity, kInfinity}, OfxRectD{0, 0, kNaN, 10},
          OfxRectD{0, 0, 1e300, 10}, OfxRectD{0, 0, 1e8, 10}, OfxRectD{1e8, 0, 1e8 + 10, 10}}) {
        EXPECT_FALSE(pixelsOf(region, scale)) << region.x1 << ".." << region.x2;
    }
    EXPECT_TRUE(pixelsOf({0, 0, 70000, 1}, scale)) << "too large, but a picture";
    EXPECT_FALSE(sanePixels(
        {kOfxFlagInfiniteMin, kOfxFlagInfiniteMin, kOfxFlagInfiniteMax, kOfxFlagInfiniteMax}));
    EXPECT_FALSE(sanePixels({0, 5, 10, 5}));
    EXPECT_EQ(sanePixels({-5, -5, 5, 5}), (PixelRect{-5, -5, 5, 5}));
}

TEST(OpenFxRegions, AbsurdScalesAndAspectsCountAsOne) {
    for (const double absurd : {0.0, -1.0, kNaN, kInfinity, 1e-9, 1e9}) {
        const PixelScale scale = pixelScale({absurd, absurd}, absurd);
        EXPECT_EQ(scale.x, 1.0) << absurd;
        EXPECT_EQ(scale.y, 1.0) << absurd;
    }
}

TEST(OpenFxRegions, PixelsBecomeCanonicalRectangles) {
    const OfxRectD region = canonicalOf({1, 2, 3, 4}, pixelScale({0.5, 0.5}, 2.0));
    EXPECT_EQ(region.x1, 4.0);
    EXPECT_EQ(region.y1, 4.0);
    EXPECT_EQ(region.x2, 12.0);
    EXPECT_EQ(region.y2, 8.0);
}

TEST(OpenFxPictureFrame, IsTheRegionAsTheHostRoundsIt) {
    const KnownPicture half{
        .region = OfxRectD{0, 0, 101, 51}, .renderScale = {0.5, 0.5}, .bounds = {10, 10, 20, 20}};
    EXPECT_EQ(pictureFrame(half, {}), (PixelRect{0, 0, 51, 26}));
    EXPECT_EQ(pictureFrame(half, OfxRectI{0, 0, 50, 25}), (PixelRect{0, 0, 50, 25}));
    EXPECT_EQ(fullPicture(half), (PixelRect{0, 0, 101, 51}));
}

TEST(OpenFxPictureFrame, AnImagesOwnRegionCountsOnlyWhereItAgrees) {
    const KnownPicture half{
        .region = OfxRectD{0, 0, 100, 50}, .renderScale = {0.5, 0.5}, .bounds = {10, 10, 20, 20}};
    for (const OfxRectI& wrong :
         {OfxRectI{0, 0, 100, 50}, OfxRectI{10, 10, 20, 20}, OfxRectI{0, 0, 0, 0},
          OfxRectI{kOfxFlagInfiniteMin, 0, kOfxFlagInfiniteMax, 1}}) {
        EXPECT_EQ(pictureFrame(half, wrong), (PixelRect{0, 0, 50, 25})) << wrong.x2;
    }
}

TEST(OpenFxPictureFrame, WithoutARegionItIsTheImage) {
    const KnownPicture half{.region = {}, .renderScale = {0.5, 0.5}, .bounds = {10, 10, 30, 25}};
    EXPECT_EQ(pictureFrame(half, OfxRectI{0, 0, 50, 25}), half.bounds);
    EXPECT_EQ(fullPicture(half), (PixelRect{0, 0, 40, 30}));
}

}  // namespace
}  // namespace ruvex::openfx
