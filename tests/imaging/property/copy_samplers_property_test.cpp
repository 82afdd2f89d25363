#include <gtest/gtest.h>

#include "imaging/copy_samplers.h"
#include "tests/imaging/property/imager_case.h"
#include "tests/imaging/twins/sample_twin.h"

namespace ruvex::test {
namespace {

// The source's pixel for (x, y) in the components of `mask`, what was there before in the others.
template <class P>
P copiedTwin(const VxTexture<P>& source, std::int32_t x, std::int32_t y, std::uint32_t mask,
             const P& before) {
    const P from = twin::wholePixelTwin(source, x, y);
    P result = before;
    for (int k = 0; k < componentsOf<P>(); ++k) {
        if (mask & (1u << k)) result.c[k] = from.c[k];
    }
    return result;
}

template <class P, class Sampler>
void checkCopy(Random& random, Sampler& sampler, std::uint32_t mask) {
    ImagerCase<P> given(random);
    checkSampler<P>(given, sampler,
                    [&](std::int32_t x, std::int32_t y, std::int32_t, const P& before) {
                        return copiedTwin(given.source->texture, x, y, mask, before);
                    });
}

template <class P>
class SimpleCopyProperty : public testing::Test {};
using WholePixels = testing::Types<Rgba8, RgbaS214, RgbaInt, ChannelInt>;
TYPED_TEST_SUITE(SimpleCopyProperty, WholePixels);

TYPED_TEST(SimpleCopyProperty, AgreesWithTheTwin) {
    forSeeds(10000, 600, [](Random& random) {
        SimpleCopySampler<TypeParam> sampler;
        checkCopy<TypeParam>(random, sampler, 15);
    });
}

template <class P>
class RgbCopyProperty : public testing::Test {};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(RgbCopyProperty, FramePixels);

TYPED_TEST(RgbCopyProperty, EveryMaskAgreesWithTheTwin) {
    for (std::uint32_t mask = 0; mask < 16; ++mask) {
        SCOPED_TRACE("mask " + std::to_string(mask));
        forSeeds(20000 + 1000 * mask, 60, [mask](Random& random) {
            VxRGBCopySampler<TypeParam> sampler;
            sampler.channels = mask;
            checkCopy<TypeParam>(random, sampler, mask);
        });
    }
}

template <int Component>
void checkChannelCopy() {
    SCOPED_TRACE("component " + std::to_string(Component));
    forSeeds(40000 + 1000 * Component, 150, [](Random& random) {
        ChannelCopySampler<Component> sampler;
        checkCopy<RgbaInt>(random, sampler, 1u << Component);
    });
}

TEST(ChannelCopyProperty, EveryComponentAgreesWithTheTwin) {
    checkChannelCopy<0>();
    checkChannelCopy<1>();
    checkChannelCopy<2>();
    checkChannelCopy<3>();
}

}  // namespace
}  // namespace ruvex::test
