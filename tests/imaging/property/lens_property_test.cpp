// The lens and the render through it, against a twin that moves one point.

#include <bit>
#include <cmath>
#include <gtest/gtest.h>

#include "imaging/warp/lens_warper.h"
#include "tests/imaging/property/imager_case.h"
#include "tests/imaging/twins/lens_twin.h"

namespace ruvex::test {
namespace {

twin::LensTwin randomLens(Random& random) {
    constexpr std::array kAspects{1.0f, 1.0f, 0.9f, 1.422f, 2.0f, 0.5f, 0.001f};
    const auto radius = [&] { return random.chance(4) ? 0.0f : random.real(0.05f, 22.0f); };
    return {.radiusX = radius(),
            .radiusY = radius(),
            .centreX = random.real(-12.0f, 22.0f),
            .centreY = random.real(-12.0f, 22.0f),
            .rotation = random.chance(70) ? 0.0f : random.real(-4.0f, 4.0f),
            .aspect = random.oneOf(kAspects),
            .exponent = random.chance(10) ? 1.0f : std::exp(random.real(-5.0f, 5.0f))};
}

void setUp(VxLensWarper& lens, const twin::LensTwin& like) {
    lens.radiusX = like.radiusX;
    lens.radiusY = like.radiusY;
    lens.inverseRadiusX = like.inverse(like.radiusX);
    lens.inverseRadiusY = like.inverse(like.radiusY);
    lens.centreX = like.centreX;
    lens.centreY = like.centreY;
    lens.rotation = like.rotation;
    lens.exponent = like.exponent;
}

VxLensWarper lensOf(const twin::LensTwin& like) {
    VxLensWarper lens;
    setUp(lens, like);
    lens.aspect = like.aspect;
    lens.prepare();
    return lens;
}

testing::AssertionResult same(float got, float wanted) {
    if (std::bit_cast<std::uint32_t>(got) == std::bit_cast<std::uint32_t>(wanted)) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << got << " instead of " << wanted;
}

TEST(LensProperty, EveryPointIsTheTwins) {
    forSeeds(90000, 3000, [](Random& random) {
        const twin::LensTwin twin = randomLens(random);
        const VxLensWarper lens = lensOf(twin);
        for (int i = 0; i < 30; ++i) {
            WarpPoint point{twin.centreX + random.real(-1.2f, 1.2f) * twin.radiusX,
                            twin.centreY + random.real(-1.2f, 1.2f) * twin.radiusY};
            const auto wanted = twin.warp(point.x, point.y);
            ASSERT_TRUE(same(lens.warp(point), wanted.amount));
            ASSERT_TRUE(same(point.x, wanted.x) && same(point.y, wanted.y));
        }
    });
}

TEST(LensProperty, EveryRowsSpanIsTheTwinsAndHoldsEveryPointThatMoves) {
    forSeeds(91000, 2000, [](Random& random) {
        const twin::LensTwin twin = randomLens(random);
        const VxLensWarper lens = lensOf(twin);
        for (int y = -36; y < 46; ++y) {
            WarpSpan span;
            lens.rowSpan(span, y);
            ASSERT_TRUE(same(span.first, twin.rowSpan(y).first));
            ASSERT_TRUE(same(span.last, twin.rowSpan(y).last));
            const WarpPoint before{twin.centreX + random.real(-1.5f, 1.5f) * twin.radiusX,
                                   static_cast<float>(y) + 0.5f};
            WarpPoint after = before;
            const float amount = lens.warp(after);
            if (amount > 0.0f && amount < 0.999f) {
                ASSERT_GE(before.x, span.first - 1e-3f);
                ASSERT_LE(before.x, span.last + 1e-3f);
            }
        }
    });
}

TEST(LensProperty, ARowIsTheSamePointByPoint) {
    forSeeds(92000, 1000, [](Random& random) {
        const VxLensWarper lens = lensOf(randomLens(random));
        const std::int32_t x = random.whole(-30, 10), y = random.whole(-20, 30);
        constexpr int kCount = 67;
        float sx[kCount], sy[kCount];
        lens.warpRow(x, y, kCount, sx, sy);
        for (int i = 0; i < kCount; ++i) {
            WarpPoint point{static_cast<float>(x + i) + 0.5f, static_cast<float>(y) + 0.5f};
            lens.warp(point);
            ASSERT_TRUE(same(sx[i], point.x) && same(sy[i], point.y)) << "pixel " << i;
        }
    });
}

template <class P>
class WarpProperty : public testing::Test {};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(WarpProperty, FramePixels);

// Gives the render the calls of a sampler.
template <class P>
struct AsSampler : VxWarpRender<P> {
    void process(VxTexture<P>* source, VxTexture<P>* onto) {
        VxWarpRender<P>::process(onto, *source);
    }
};

TYPED_TEST(WarpProperty, EveryPixelIsTheTwins) {
    for (const auto filter : {WarpFilter::Nearest, WarpFilter::Bilinear, WarpFilter::Corners}) {
        SCOPED_TRACE("filter " + std::to_string(static_cast<int>(filter)));
        forSeeds(93000 + 1000 * static_cast<std::uint32_t>(filter), 700, [&](Random& random) {
            ImagerCase<TypeParam> given(random);
            VxTexture<TypeParam>& source = given.source->texture;
            // A place between pixels would make a copied pixel another than a resampled one.
            source.setOrigin(random.whole(-9, 9), random.whole(-9, 9));
            const twin::LensTwin twin = randomLens(random);
            VxLensWarper lens;
            setUp(lens, twin);
            AsSampler<TypeParam> render;
            render.warper = &lens;
            render.filter = filter;
            render.scaleX = twin.aspect;
            checkSampler<TypeParam>(given, render,
                                    [&](std::int32_t x, std::int32_t y, std::int32_t, const auto&) {
                                        return twin::warpedPixelTwin(twin, filter, source, x, y);
                                    });
        });
    }
}

}  // namespace
}  // namespace ruvex::test
