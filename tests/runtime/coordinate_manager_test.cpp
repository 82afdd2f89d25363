#include "runtime/coordinate_manager.h"

#include <gtest/gtest.h>

namespace ruvex::runtime {
namespace {

struct Point {
    double x = 0.0;
    double y = 0.0;
};

TEST(CoordinateManager, ConversionsDifferByInputOverProjectSize) {
    const auto manager = makeCoordinateManager({1920, 1080, 1.0, 25.0}, 960, 270);
    Point a;
    Point b;
    EXPECT_EQ(manager->WorldToImage(1.0, 1.0, &a.x, &a.y), S_OK);
    EXPECT_EQ(manager->WorldToProject(1.0, 1.0, &b.x, &b.y), S_OK);
    EXPECT_EQ(a.x / b.x, 0.5);
    EXPECT_EQ(a.y / b.y, 0.25);
    EXPECT_EQ(manager->WorldToImage(1.0, 1.0, nullptr, &a.y), E_POINTER);
}

TEST(CoordinateManager, TheRatioIsExactlyOneAtProjectSize) {
    const auto manager = makeCoordinateManager({720, 576, 1.0667, 25.0}, 720, 576);
    Point a;
    Point b;
    manager->WorldToImage(1.0, 1.0, &a.x, &a.y);
    manager->WorldToProject(1.0, 1.0, &b.x, &b.y);
    EXPECT_EQ(a.x / b.x, 1.0);
    EXPECT_EQ(a.y / b.y, 1.0);
    // World units are square to the eye: one of them is this many lines high.
    EXPECT_EQ(b.y, 1.0667);
}

TEST(CoordinateManager, TheWholeWorldIsTheWholePicture) {
    const Project project{720, 576, 1.25, 25.0};
    const auto manager = makeCoordinateManager(project, 360, 288);
    Point point;
    manager->WorldToImage(720.0, 576.0 / 1.25, &point.x, &point.y);
    EXPECT_DOUBLE_EQ(point.x, 360.0);
    EXPECT_DOUBLE_EQ(point.y, 288.0);
}

TEST(CoordinateManager, OriginsBecomeWholePixels) {
    const Project project{720, 576, 1.25, 25.0};
    const auto manager = makeCoordinateManager(project, 360, 288);
    LONG x = 9;
    LONG y = 9;
    EXPECT_EQ(manager->ImageToPixels({0.0f, 0.0f}, {720.0f, 576.0f}, &x, &y), S_OK);
    EXPECT_EQ(x, 0);
    EXPECT_EQ(y, 0);
    // A quarter of the world to the right and an eighth down, as the effect hands it over: times
    // the pixel aspect.
    manager->ImageToPixels({180.0f * 1.25f, -57.6f * 1.25f}, {1.0f, 1.0f}, &x, &y);
    EXPECT_EQ(x, 90);
    EXPECT_EQ(y, -36);
    EXPECT_EQ(manager->ImageToPixels({1.0f, 1.0f}, {1.0f, 1.0f}, nullptr, &y), E_POINTER);
}

TEST(CoordinateManager, OriginsOutOfRangeGoToTheNearerEnd) {
    const auto manager = makeCoordinateManager({8, 8, 1.0, 25.0}, 8, 8);
    LONG x = 0;
    LONG y = 0;
    manager->ImageToPixels({1e30f, -1e30f}, {1.0f, 1.0f}, &x, &y);
    EXPECT_EQ(x, INT32_MAX);
    EXPECT_EQ(y, INT32_MIN);
}

}  // namespace
}  // namespace ruvex::runtime
