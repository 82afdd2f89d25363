#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>

#include "adapters/openfx/parameter_values.h"
#include "tests/adapters/openfx_tiny_host.h"

namespace ruvex::openfx {
namespace {

using looks::Animation;
using looks::ParameterChange;
using looks::Setting;
using test::TinyHost;
using test::TinyParameter;

constexpr EffectClock kTenFrames{.firstFrame = 10, .rate = 25.0};

TinyParameter constantOf(double value) {
    return {.value = [value](double) { return HostColour{value, value, value}; }};
}

TinyParameter wholeOf(int value) {
    TinyParameter parameter = constantOf(value);
    parameter.whole = true;
    return parameter;
}

/// The change of one parameter among those of a host.
ParameterChange changeIn(TinyHost& host, ParameterId id, double time) {
    for (const ParameterChange& change : ParameterValues(host.set()).changesAt(time, kTenFrames)) {
        if (looks::rowOf(change).id == id) return change;
    }
    ADD_FAILURE() << "the parameter is not among the changes";
    return {};
}

double valueIn(TinyHost& host, ParameterId id) {
    return std::get<Setting>(changeIn(host, id, 10.0)).value;
}

TEST(OpenFxValues, AHostWithoutParametersGivesTheDefaults) {
    TinyHost host;
    const ParameterValues values(host.set());
    std::size_t rendered = 0;
    for (const ParameterChange& change : values.changesAt(0.0, kTenFrames)) {
        const ParameterRow& row = looks::rowOf(change);
        EXPECT_TRUE(row.rendered) << row.label;
        EXPECT_NEAR(std::get<Setting>(change).value, row.defaultValue, 1e-12) << row.label;
        ++rendered;
    }
    EXPECT_EQ(rendered, static_cast<std::size_t>(std::ranges::count_if(
                            parameterTable(), [](const auto& row) { return row.rendered; })));
    EXPECT_EQ(values.resultAlphaAt(0.0), adapters::ResultAlpha::Automatic);
    EXPECT_EQ(values.firstFrameAt(0.0), 0);
}

TEST(OpenFxValues, RealsAreHeldToWhatCanBeEntered) {
    TinyHost host;
    const auto held = [&](double value) {
        host.parameters["snowMax"] = constantOf(value);
        return valueIn(host, ParameterId::SnowMax);
    };
    EXPECT_EQ(held(12.5), 12.5);
    EXPECT_EQ(held(201.0), 200.0);
    EXPECT_EQ(held(-1e300), -200.0);
    EXPECT_EQ(held(std::numeric_limits<double>::quiet_NaN()), 60.0);
    EXPECT_EQ(held(std::numeric_limits<double>::infinity()), 60.0);
}

TEST(OpenFxValues, WholeNumbersToo) {
    TinyHost host;
    host.parameters["seed"] = wholeOf(-3);
    host.parameters["tvType"] = wholeOf(2);
    host.parameters["shashType"] = wholeOf(77);
    host.parameters["fishEye"] = wholeOf(-1);
    EXPECT_EQ(valueIn(host, ParameterId::Seed), 0.0);
    EXPECT_EQ(valueIn(host, ParameterId::TvType), 2.0);
    EXPECT_EQ(valueIn(host, ParameterId::ShashType), 5.0) << "there is no such choice";
    EXPECT_EQ(valueIn(host, ParameterId::FishEye), 1.0);
}

TEST(OpenFxValues, AFailureGivesTheDefault) {
    TinyHost host;
    host.parameters["snowMax"] = constantOf(12.5);
    host.parameters["snowMax"].status = kOfxStatErrBadHandle;
    EXPECT_EQ(valueIn(host, ParameterId::SnowMax), 60.0);
}

TEST(OpenFxValues, ColoursOfFloatsArePercentages) {
    TinyHost host;
    host.parameters["tintColour"] = {.value =
                                         [](double) {
                                             return HostColour{0.65f, 2.0, -1.0};
                                         },
                                     .colour = true};
    EXPECT_EQ(valueIn(host, ParameterId::TintColourR), 65.0);
    EXPECT_EQ(valueIn(host, ParameterId::TintColourG), 100.0);
    EXPECT_EQ(valueIn(host, ParameterId::TintColourB), 0.0);
}

TEST(OpenFxValues, KeysCountFromTheFirstFrame) {
    TinyHost host;
    host.parameters["masterBreakup"] = {
        .value = [](double time) { return HostColour{std::clamp(time, 10.0, 60.0) - 10.0}; },
        .keys = {10.0, 60.0}};
    const Animation expected{ParameterId::MasterBreakup, {{0.0, 0.0}, {2.0, 50.0}}};
    EXPECT_EQ(changeIn(host, ParameterId::MasterBreakup, 30.0), ParameterChange(expected));
}

TEST(OpenFxValues, AColourWithKeysHasOnesForTheChannelsThatChange) {
    TinyHost host;
    host.parameters["tintColour"] = {
        .value =
            [](double time) {
                const auto slope = static_cast<float>(std::clamp(time - 10.0, 0.0, 50.0) / 50.0);
                return HostColour{slope, 0.5, 1.0 - slope};
            },
        .colour = true,
        .keys = {10.0, 60.0}};
    const Animation expected{ParameterId::TintColourR, {{0.0, 0.0}, {2.0, 100.0}}};
    EXPECT_EQ(changeIn(host, ParameterId::TintColourR, 40.0), ParameterChange(expected));
    EXPECT_EQ(changeIn(host, ParameterId::TintColourG, 40.0),
              ParameterChange(Setting{ParameterId::TintColourG, 50.0}));
}

TEST(OpenFxValues, KeysAtAbsurdTimesAreIgnored) {
    TinyHost host;
    constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
    host.parameters["blur"] = {.value = [](double time) { return HostColour{time < 20 ? 1. : 2.}; },
                               .keys = {20.0, kNone, 10.0, 20.0}};
    const Animation expected{ParameterId::Blur, {{0.0, 1.0, looks::KeyMode::Hold}, {0.4, 2.0}}};
    EXPECT_EQ(changeIn(host, ParameterId::Blur, 15.0), ParameterChange(expected));
}

}  // namespace
}  // namespace ruvex::openfx
