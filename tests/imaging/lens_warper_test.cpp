#include "imaging/warp/lens_warper.h"

#include <cmath>
#include <gtest/gtest.h>

namespace ruvex {
namespace {

VxLensWarper lensOf(float exponent, float radiusX = 10.0f, float radiusY = 10.0f) {
    VxLensWarper lens;
    lens.radiusX = radiusX;
    lens.radiusY = radiusY;
    lens.inverseRadiusX = radiusX == 0.0f ? 0.0f : 1.0f / radiusX;
    lens.inverseRadiusY = radiusY == 0.0f ? 0.0f : 1.0f / radiusY;
    lens.centreX = 50.0f;
    lens.centreY = 40.0f;
    lens.exponent = exponent;
    lens.prepare();
    return lens;
}

float distance(const WarpPoint& p) {
    return std::hypot(p.x - 50.0f, p.y - 40.0f);
}

TEST(LensWarper, AnExponentOfOneLeavesAllPointsInPlace) {
    const VxLensWarper lens = lensOf(1.0f);
    for (float x = 38.0f; x < 62.0f; x += 0.37f) {
        WarpPoint point{x, 43.0f};
        lens.warp(point);
        EXPECT_NEAR(point.x, x, 1e-5f);
        EXPECT_NEAR(point.y, 43.0f, 1e-5f);
    }
}

TEST(LensWarper, BelowOneTheSourceLiesNearerTheCentreAndAboveFurtherOut) {
    for (const float x : {52.0f, 55.0f, 59.0f, 44.0f}) {
        WarpPoint nearer{x, 41.0f}, further{x, 41.0f};
        const float before = distance(nearer);
        lensOf(0.5f).warp(nearer);
        lensOf(2.0f).warp(further);
        EXPECT_LT(distance(nearer), before);
        EXPECT_GT(distance(further), before);
    }
}

TEST(LensWarper, TheFactorHasAClosedForm) {
    for (const float k : {0.1f, 0.67f, 1.5f, 40.0f}) {
        for (const float r : {0.1f, 0.5f, 0.9f}) {
            WarpPoint point{50.0f + 10.0f * r, 40.0f};
            const float amount = lensOf(k).warp(point);
            const float t = k / (1.0f - r * r + k * r * r);
            EXPECT_NEAR(point.x, 50.0f + 10.0f * r * t, 2e-4f);
            EXPECT_NEAR(amount, t * r * r, 1e-5f);
        }
    }
}

TEST(LensWarper, TheBorderAndAllBeyondStay) {
    for (const float k : {0.2f, 5.0f}) {
        for (const float x : {60.0f, 40.0f, 61.0f, -500.0f}) {
            WarpPoint point{x, 40.0f};
            EXPECT_EQ(lensOf(k).warp(point), 1.0f);
            EXPECT_EQ(point.x, x);
        }
        WarpPoint justInside{59.999f, 40.0f};
        lensOf(k).warp(justInside);
        EXPECT_NEAR(justInside.x, 59.999f, 0.01f) << "the picture stays in one piece";
    }
}

TEST(LensWarper, TheCentreStays) {
    WarpPoint centre{50.0f, 40.0f};
    EXPECT_EQ(lensOf(3.0f).warp(centre), 0.0f);
    EXPECT_EQ(centre.x, 50.0f);
    EXPECT_EQ(centre.y, 40.0f);
    EXPECT_EQ(lensOf(3.0f).warpAmount(centre, 1.0f), 0.0f);
}

TEST(LensWarper, ARadiusOfZeroWarpsNothing) {
    for (const auto& lens : {lensOf(3.0f, 0.0f, 10.0f), lensOf(3.0f, 10.0f, 0.0f)}) {
        WarpPoint point{51.0f, 40.0f};
        lens.warp(point);
        EXPECT_EQ(point.x, 51.0f);
        WarpSpan span{7.0f, 9.0f};
        lens.rowSpan(span, 40);
        EXPECT_EQ(span.first, 0.0f);
        EXPECT_EQ(span.last, 0.0f);
    }
}

TEST(LensWarper, ExtremeExponentsAreDefined) {
    for (const float k : {0.0f, INFINITY, 1e38f, 1e-38f}) {
        WarpPoint point{53.0f, 41.0f};
        lensOf(k).warp(point);
        float x, y;
        lensOf(k).warpRow(52, 40, 1, &x, &y);
    }
    WarpPoint pulledIn{53.0f, 41.0f};
    lensOf(0.0f).warp(pulledIn);
    EXPECT_EQ(distance(pulledIn), 0.0f);
}

TEST(LensWarper, BoundsAreABoxAroundTheLargerHalfAxis) {
    WarpBounds bounds;
    lensOf(2.0f, 10.0f, 4.0f).bounds(bounds);
    EXPECT_EQ(bounds.minX, 40.0f);
    EXPECT_EQ(bounds.maxX, 60.0f);
    EXPECT_EQ(bounds.minY, 30.0f);
    EXPECT_EQ(bounds.maxY, 50.0f);
}

TEST(LensWarper, ARowSpanIsTheChordOfTheEllipse) {
    WarpSpan span;
    lensOf(2.0f).rowSpan(span, 45);
    EXPECT_NEAR(span.first, 50.0f - std::sqrt(100.0f - 5.5f * 5.5f), 1e-3f);
    EXPECT_NEAR(span.last, 50.0f + std::sqrt(100.0f - 5.5f * 5.5f), 1e-3f);
    // The ellipse is as high as it was and half as wide in a picture of tall pixels.
    VxLensWarper tall = lensOf(2.0f);
    tall.aspect = 2.0f;
    tall.prepare();
    tall.rowSpan(span, 45);
    EXPECT_NEAR(span.last - 50.0f, std::sqrt(100.0f - 5.5f * 5.5f) / 2.0f, 1e-3f);
}

TEST(LensWarper, ARowThatMissesTheEllipseHasNoSpan) {
    for (const int y : {29, 50, 1000, -1000}) {
        WarpSpan span{7.0f, 9.0f};
        lensOf(2.0f).rowSpan(span, y);
        EXPECT_EQ(span.first, 0.0f) << y;
        EXPECT_EQ(span.last, 0.0f) << y;
    }
}

TEST(LensWarper, ARotationTurnsTheEllipse) {
    VxLensWarper lens = lensOf(3.0f, 10.0f, 2.0f);
    WarpPoint above{50.0f, 45.0f};
    EXPECT_EQ(lens.warp(above), 1.0f);
    lens.rotation = 1.5707964f;
    lens.prepare();
    EXPECT_LT(lens.warp(above), 1.0f);
    WarpPoint beside{55.0f, 40.0f};
    EXPECT_EQ(lens.warp(beside), 1.0f);
}

TEST(LensWarper, AnAmountFadesTheStrength) {
    const VxLensWarper lens = lensOf(4.0f);
    WarpPoint none{54.0f, 42.0f}, half = none, all = none, whole = none;
    lens.warpAmount(none, 0.0f);
    lens.warpAmount(half, 0.5f);
    lens.warpAmount(all, 1.0f);
    lens.warp(whole);
    EXPECT_NEAR(none.x, 54.0f, 1e-4f);
    EXPECT_GT(half.x, none.x);
    EXPECT_GT(all.x, half.x);
    EXPECT_NEAR(all.x, whole.x, 1e-4f);
    // Faded to exactly nothing, the point stays.
    WarpPoint gone{54.0f, 42.0f};
    EXPECT_EQ(lensOf(0.0f).warpAmount(gone, 1.0f), 0.0f);
    EXPECT_EQ(gone.x, 54.0f);
}

TEST(LensWarper, NormalsAreThoseOfADome) {
    WarpNormal normal;
    WarpPoint centre{50.0f, 40.0f};
    EXPECT_EQ(lensOf(3.0f).warpNormal(centre, normal), 0.0f);
    EXPECT_EQ(normal.x, 0.0f);
    EXPECT_EQ(normal.y, 0.0f);
    EXPECT_EQ(normal.z, 1.0f);
    for (const bool faded : {false, true}) {
        WarpPoint point{56.0f, 40.0f};
        const float w = faded ? lensOf(3.0f).warpAmountNormal(point, normal, 0.7f)
                              : lensOf(3.0f).warpNormal(point, normal);
        EXPECT_NEAR(normal.x, -w, 1e-6f) << "moved outwards";
        EXPECT_EQ(normal.y, 0.0f);
        EXPECT_NEAR(normal.x * normal.x + normal.z * normal.z, 1.0f, 1e-6f);
    }
    WarpPoint outside{70.0f, 40.0f};
    lensOf(3.0f).warpNormal(outside, normal);
    EXPECT_EQ(normal.z, 0.0f) << "the rim stands upright";
}

// A warp that says nothing of normals or rows.
struct Shift : VxWarper {
    void bounds(WarpBounds& result) const override { result = {0, 1, 0, 1}; }
    void rowSpan(WarpSpan& result, std::int32_t) const override { result = {0, 1}; }
    float warpAmount(WarpPoint& point, float amount) const override {
        point.x += amount;
        return amount;
    }
    float warp(WarpPoint& point) const override { return warpAmount(point, 1.0f); }
};

TEST(Warper, ByDefaultSurfacesAreFlat) {
    WarpNormal normal{};
    WarpPoint point{3.0f, 4.0f};
    EXPECT_EQ(Shift().warpNormal(point, normal), 1.0f);
    EXPECT_EQ(point.x, 4.0f);
    EXPECT_EQ(normal.z, 1.0f);
    normal = {};
    EXPECT_EQ(Shift().warpAmountNormal(point, normal, 0.5f), 0.0f);
    EXPECT_EQ(normal.z, 1.0f);
    EXPECT_EQ(point.x, 4.0f);
}

TEST(Warper, ByDefaultARowGoesPointByPoint) {
    float x[3], y[3];
    Shift().warpRow(7, 2, 3, x, y);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(x[i], static_cast<float>(8 + i) + 0.5f);
        EXPECT_EQ(y[i], 2.5f);
    }
}

}  // namespace
}  // namespace ruvex
