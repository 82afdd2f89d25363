#include <array>
#include <cstring>
#include <gtest/gtest.h>
#include <map>
#include <random>

#include "overlay/vx_t_2d_axis.h"
#include "tests/overlay/twins/axis_twin.h"

namespace ruvex {
namespace {

using test::AxisTwin;

#ifdef RUVEX_SANITIZED
constexpr int kHitCases = 60;
#else
constexpr int kHitCases = 500;
#endif
constexpr int kPositionsPerCase = 200;
constexpr std::uint32_t kMasks = 128;

class Random {
public:
    explicit Random(std::uint32_t seed) : random_(seed) {}

    float real(float low, float high) {
        return std::uniform_real_distribution<float>(low, high)(random_);
    }
    std::size_t below(std::size_t count) { return random_() % count; }
    float oneOf(std::initializer_list<float> values) {
        return values.begin()[below(values.size())];
    }

private:
    std::mt19937 random_;
};

AxisTwin randomTwin(Random& random) {
    AxisTwin twin;
    twin.centreX = random.real(-50, 50);
    twin.centreY = random.real(-50, 50);
    twin.scaleX = random.real(0.2f, 2) * random.oneOf({1, 1, -1});
    twin.scaleY = random.real(0.2f, 2) * random.oneOf({1, 1, -1});
    twin.scaleUniform = random.real(0.5f, 1.5f) * random.oneOf({1, 1, -1});
    twin.rotation = random.oneOf({0, 0, 30, -135, 90, 400, random.real(-200, 200)});
    twin.aspect = random.oneOf({0, 0, -1, 1, 1.2f, -1.2f, random.real(-1, 1)});
    twin.uiScale = random.oneOf({0.5f, 1, 2});
    twin.flipped = static_cast<std::uint32_t>(random.below(4)) * 8;
    return twin;
}

void give(VxT2DAxis& axis, const AxisTwin& twin) {
    axis.centre = {twin.centreX, twin.centreY};
    axis.scaleX = twin.scaleX;
    axis.scaleY = twin.scaleY;
    axis.scaleUniform = twin.scaleUniform;
    axis.rotation = twin.rotation;
    axis.aspect = twin.aspect;
    axis.flipped = twin.flipped;
    axis.handles = twin.handles;
    axis.activeHandle = twin.active;
    axis.axisFlags |= VxT2DAxis::kMatricesOutdated;
    axis.setUiScale(twin.uiScale);
}

/// Around the whole axis, or near its box, arc or centre lines.
VxPosition randomPen(Random& random, const AxisTwin& twin) {
    const float reach = twin.uiScale * 80;
    VxPosition pen{random.real(-reach, reach), random.real(-reach, reach)};
    const float angle = random.real(-4, 4);
    const float arc = twin.uiScale * 32 + random.real(-5, 5);
    switch (random.below(5)) {
        case 0:
            pen = {arc * std::cos(angle), arc * std::sin(angle)};
            break;
        case 1:
            pen = {random.real(-9, 9), random.real(-9, 9)};
            break;
        case 2:
            pen.x = twin.wholeX() * twin.uiScale * random.oneOf({-37, 37}) + random.real(-5, 5);
            break;
        case 3:
            pen.y = twin.wholeY() * twin.uiScale * random.oneOf({-37, 37}) + random.real(-5, 5);
            break;
        default:
            break;
    }
    return {pen.x + twin.centreX, pen.y + twin.centreY};
}

TEST(AxisProperty, AHitIsThatOfTheTwinForAllMasks) {
    Random random(11);
    std::map<std::uint32_t, int> hits;
    for (int i = 0; i < kHitCases; ++i) {
        AxisTwin twin = randomTwin(random);
        VxT2DAxis axis("axis", 0);
        for (int k = 0; k < kPositionsPerCase; ++k) {
            const VxPosition radius{random.real(0.5f, 6), random.real(0.5f, 6)};
            const VxPosition pen = randomPen(random, twin);
            for (twin.handles = 0; twin.handles < kMasks; ++twin.handles) {
                if (k == 0) give(axis, twin);
                axis.handles = twin.handles;
                axis.flipped = 0;
                std::uint32_t flipped = 0;
                // The place of the aspect's handle depends on the mask.
                const std::uint32_t expected =
                    twin.regionsAt(pen.x, pen.y, radius.x, radius.y).first(twin.handles, flipped);
                const VxHit hit = axis.hit(pen, radius);
                ASSERT_EQ(axis.activeHandle, expected) << "case " << i << ", " << twin.handles;
                ASSERT_EQ(axis.flipped, flipped);
                ASSERT_EQ(hit, expected ? hitOn(axis) : kMiss);
                ASSERT_EQ(axis.focus, expected ? &axis : nullptr);
                ++hits[expected];
            }
        }
    }
    for (const std::uint32_t handle : {0, 1, 2, 3, 4, 8, 16, 32, 64}) {
        EXPECT_GT(hits[handle], 1000) << handle;
    }
}

using Numbers = std::array<float, 12>;

Numbers numbersOf(const VxT2DAxis& axis) {
    return {axis.centre.x,  axis.centre.y,     axis.scaleX,    axis.scaleY,
            axis.rotation,  axis.aspect,       axis.lastPen.x, axis.lastPen.y,
            axis.lastAngle, axis.scaleUniform, axis.dragSin,   axis.dragCos};
}

Numbers numbersOf(const AxisTwin& twin) {
    return {twin.centreX,   twin.centreY,      twin.scaleX,  twin.scaleY,
            twin.rotation,  twin.aspect,       twin.lastX,   twin.lastY,
            twin.lastAngle, twin.scaleUniform, twin.dragSin, twin.dragCos};
}

/// Equal in value, or both not a number.
bool areSame(const Numbers& a, const Numbers& b) {
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (a[i] != b[i] && !(std::isnan(a[i]) && std::isnan(b[i]))) return false;
    }
    return true;
}

/// The bounds are those that the twin's numbers give.
void expectBoundsOf(const VxT2DAxis& axis, const AxisTwin& twin) {
    float extent[4];
    twin.extent(false, extent);
    const std::array<float, 4> found = {axis.position.x, axis.size.x, axis.position.y, axis.size.y};
    const std::array<float, 4> expected = {extent[0], extent[1] - extent[0], extent[2],
                                           extent[3] - extent[2]};
    for (std::size_t i = 0; i < found.size(); ++i) {
        const bool areBothNone = std::isnan(found[i]) && std::isnan(expected[i]);
        ASSERT_TRUE(found[i] == expected[i] || areBothNone)
            << "handle " << twin.active << ": " << found[i] << ", " << expected[i];
    }
}

TEST(AxisProperty, ADragIsThatOfTheTwinForAllHandles) {
    Random random(12);
    for (int i = 0; i < 20000; ++i) {
        AxisTwin twin = randomTwin(random);
        twin.handles = 127;
        const std::uint32_t handles[] = {0, 1, 2, 3, 4, 8, 16, 32, 64};
        twin.active = handles[random.below(std::size(handles))];
        if (random.below(20) == 0) twin.scaleX = 0;
        if (random.below(20) == 0) twin.scaleUniform = 0;
        VxT2DAxis axis("axis", 127);
        give(axis, twin);
        const VxPosition start = randomPen(random, twin);
        EXPECT_EQ(axis.penDown(start), twin.active ? 1 : 0);
        if (twin.active) twin.press(start.x, start.y);
        for (int step = 0; step < 4; ++step) {
            const VxPosition pen = randomPen(random, twin);
            EXPECT_EQ(axis.drag(pen), 1);
            twin.drag(pen.x, pen.y);
            ASSERT_TRUE(areSame(numbersOf(axis), numbersOf(twin)))
                << "case " << i << ", handle " << twin.active << ", step " << step;
            EXPECT_EQ(axis.axisFlags & 1u, 1u) << "the matrices are out of date";
            if (twin.active) expectBoundsOf(axis, twin);
            axis.rebuild();
        }
    }
}

TEST(AxisProperty, TheExtentIsThatOfTheTwinForAllMasks) {
    Random random(13);
    for (int i = 0; i < 2000; ++i) {
        AxisTwin twin = randomTwin(random);
        twin.handles = static_cast<std::uint32_t>(i) % kMasks;
        const bool showsAll = random.below(4) == 0;
        VxT2DAxis axis("axis", 0);
        if (showsAll) axis.axisFlags |= VxT2DAxis::kShowsAll;
        give(axis, twin);
        float extent[4], expected[4];
        axis.getExtent(extent);
        twin.extent(showsAll, expected);
        ASSERT_EQ(std::to_array(extent), std::to_array(expected)) << twin.handles;
        ASSERT_EQ(axis.position, (VxPosition{extent[0], extent[2]}));
        ASSERT_EQ(axis.size, (VxPosition{extent[1] - extent[0], extent[3] - extent[2]}));
    }
}

TEST(AxisProperty, LocalCoordinatesAreMovedThenTurnedThenScaledBack) {
    Random random(14);
    for (int i = 0; i < 5000; ++i) {
        AxisTwin twin = randomTwin(random);
        twin.aspect = random.real(-0.7f, 0.7f);
        VxT2DAxis axis("axis", 127);
        give(axis, twin);
        const double x = random.real(-100, 100), y = random.real(-100, 100);
        const double radians = twin.rotation * 3.14159265358979 / 180;
        const double px = x - twin.centreX, py = y - twin.centreY;
        const double u = (px * std::cos(radians) + py * std::sin(radians)) / twin.wholeX();
        const double v = (py * std::cos(radians) - px * std::sin(radians)) / twin.wholeY();
        VxPosition local;
        axis.toLocal(local, {static_cast<float>(x), static_cast<float>(y)});
        const double tolerance = 2e-3 * (1 + std::abs(u) + std::abs(v));
        ASSERT_NEAR(local.x, u, tolerance);
        ASSERT_NEAR(local.y, v, tolerance);
    }
}

}  // namespace
}  // namespace ruvex
