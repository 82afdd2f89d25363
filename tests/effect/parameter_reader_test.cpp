#include "host/base/parameter_reader.h"

#include <algorithm>
#include <gtest/gtest.h>

#include "tests/effect/support/parameter_set.h"

namespace ruvex::test {
namespace {

using Id = ParameterId;

TEST(ParameterReader, RawValuesAreAsTheyAreStoredAndOthersAreClamped) {
    ParameterSet set;
    set.set(Id::MasterBreakup, 150);
    const ParameterReader reader = set.reader();
    EXPECT_EQ(reader.rawReal(Id::MasterBreakup, 0.0), 150.0);
    EXPECT_EQ(reader.real(Id::MasterBreakup, 0.0), 100.0);
    EXPECT_EQ(reader.curve(Id::MasterBreakup).rawAt(0.0), 150.0);
    EXPECT_EQ(reader.curve(Id::MasterBreakup).at(0.0), 100.0);
}

TEST(ParameterReader, KeysAreClampedAfterTheyAreInterpolated) {
    ParameterSet set;
    set.animate(Id::SnowThreshold, {{0.0, -100.0}, {1.0, 300.0}});
    const ParameterReader reader = set.reader();
    const ParameterCurve curve = reader.curve(Id::SnowThreshold);
    for (const double seconds : {-1.0, 0.0, 0.125, 0.25, 0.375, 0.5, 2.0}) {
        const double raw = curve.rawAt(seconds);
        EXPECT_EQ(reader.rawReal(Id::SnowThreshold, seconds), raw);
        EXPECT_EQ(curve.at(seconds), std::clamp(raw, 0.0, 100.0)) << seconds;
        EXPECT_EQ(reader.real(Id::SnowThreshold, seconds), curve.at(seconds));
    }
    EXPECT_EQ(curve.rawAt(2.0), 300.0);
}

TEST(ParameterReader, WithoutAClampBothAreTheSame) {
    ParameterSet set;
    const ParameterReader reader = set.set(Id::PlaySpeed, -1e300).reader();
    EXPECT_EQ(reader.real(Id::PlaySpeed, 1.0), -1e300);
    EXPECT_EQ(reader.rawReal(Id::PlaySpeed, 1.0), -1e300);
}

TEST(ParameterCurve, IsAlwaysAValueOnlyWithoutKeys) {
    ParameterSet set;
    EXPECT_TRUE(set.reader().curve(Id::PlaySpeed).alwaysIs(100.0));
    EXPECT_FALSE(set.reader().curve(Id::PlaySpeed).alwaysIs(99.0));
    set.animate(Id::PlaySpeed, {{0.0, 100.0}});
    EXPECT_FALSE(set.reader().curve(Id::PlaySpeed).alwaysIs(100.0));
}

}  // namespace
}  // namespace ruvex::test
