// Snow, measured on the picture.

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

#include "tests/effect/support/broken_signal.h"

namespace ruvex::test {
namespace {

using Id = ParameterId;

template <class P>
class SnowArtefact : public testing::Test {};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(SnowArtefact, FramePixels);

/// What snow adds to a grey, in parts of white, red alone; rows one after the other.
template <class P>
std::vector<double> snowOn(double grey, std::initializer_list<Setting> settings) {
    FaultySet set(120, 90, settings);
    const int level = static_cast<int>(grey * kWhiteOf<P>);
    const auto shown = set.frame(plain(120, 90, colourOf<P>(level, level, level, level)), 3);
    std::vector<double> added;
    for (const P& pixel : shown.pixels) {
        added.push_back((pixel.c[0] - level) / double{kWhiteOf<P>});
    }
    return added;
}

double meanOf(const std::vector<double>& values) {
    double sum = 0.0;
    for (const double v : values) sum += v;
    return sum / static_cast<double>(values.size());
}
double deviationOf(const std::vector<double>& values) {
    double sum = 0.0;
    const double mean = meanOf(values);
    for (const double v : values) sum += (v - mean) * (v - mean);
    return std::sqrt(sum / static_cast<double>(values.size()));
}
/// How alike each value is to the one `step` places on, from -1 to 1.
double alikeness(const std::vector<double>& values, std::size_t step) {
    double sum = 0.0;
    const double mean = meanOf(values);
    for (std::size_t i = 0; i + step < values.size(); ++i) {
        sum += (values[i] - mean) * (values[i + step] - mean);
    }
    const double deviation = deviationOf(values);
    return sum / static_cast<double>(values.size() - step) / (deviation * deviation);
}

// Half the level above no threshold: half of the maximum. The grain is even from -a to a.
TYPED_TEST(SnowArtefact, ReachesItsAmountEvenlyOnBothSides) {
    const auto snow = snowOn<TypeParam>(0.5, {{Id::SnowThreshold, 0},
                                              {Id::SnowMax, 80},
                                              {Id::SnowSoftness, 0},
                                              {Id::SnowSparseness, 0}});
    const auto [low, high] = std::minmax_element(snow.begin(), snow.end());
    EXPECT_NEAR(*low, -0.4, 0.005);
    EXPECT_NEAR(*high, 0.4, 0.005);
    EXPECT_NEAR(meanOf(snow), 0.0, 0.01);
    EXPECT_NEAR(deviationOf(snow), 0.4 / std::sqrt(3.0), 0.01);
    EXPECT_NEAR(alikeness(snow, 1), 0.0, 0.04);
    EXPECT_NEAR(alikeness(snow, 120), 0.0, 0.04);
}

TYPED_TEST(SnowArtefact, SparsenessIsTheShareOfPixelsWithoutASpeck) {
    for (const double sparseness : {25.0, 60.0, 95.0}) {
        const auto snow = snowOn<TypeParam>(0.5, {{Id::SnowThreshold, 0},
                                                  {Id::SnowMax, 80},
                                                  {Id::SnowSoftness, 0},
                                                  {Id::SnowSparseness, sparseness}});
        // A step of the storage counts as none: what is added to it is truncated.
        const double step = 1.01 / kWhiteOf<TypeParam>;
        const auto silent =
            std::count_if(snow.begin(), snow.end(), [&](double v) { return std::fabs(v) < step; });
        EXPECT_NEAR(static_cast<double>(silent) / static_cast<double>(snow.size()),
                    sparseness / 100.0, 0.02);
        EXPECT_NEAR(*std::max_element(snow.begin(), snow.end()), 0.4, 0.02) << "as strong as ever";
    }
}

TYPED_TEST(SnowArtefact, NegativeSnowIsTheNegativeOfSnow) {
    const auto positive =
        snowOn<TypeParam>(0.5, {{Id::SnowThreshold, 0}, {Id::SnowMax, 80}, {Id::SnowSoftness, 0}});
    const auto negative =
        snowOn<TypeParam>(0.5, {{Id::SnowThreshold, 0}, {Id::SnowMax, -80}, {Id::SnowSoftness, 0}});
    for (std::size_t i = 0; i < positive.size(); ++i) {
        ASSERT_NEAR(negative[i], -positive[i], 2.0 / kWhiteOf<TypeParam>);
    }
    EXPECT_GT(deviationOf(negative), 0.1);
}

TYPED_TEST(SnowArtefact, SoftnessDrawsSpecksOutAlongTheirRowsOnly) {
    const auto soft = snowOn<TypeParam>(0.5, {{Id::SnowThreshold, 0},
                                              {Id::SnowMax, 160},
                                              {Id::SnowSoftness, 6},
                                              {Id::SnowSparseness, 0}});
    EXPECT_GT(alikeness(soft, 1), 0.6);
    EXPECT_NEAR(alikeness(soft, 15), 0.0, 0.1);
    EXPECT_NEAR(alikeness(soft, 120), 0.0, 0.06) << "the row above";
    EXPECT_NEAR(meanOf(soft), 0.0, 0.02);
}

}  // namespace
}  // namespace ruvex::test
