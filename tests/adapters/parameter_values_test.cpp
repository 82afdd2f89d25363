#include "adapters/frei0r/parameter_values.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <gtest/gtest.h>

#include "parameters/parameter_table.h"

namespace ruvex::frei0r {
namespace {

int indexOf(std::string_view name) {
    const auto list = parameterList();
    const auto found = std::ranges::find(list, name, &ListedParameter::name);
    EXPECT_NE(found, list.end()) << name;
    return static_cast<int>(found - list.begin());
}

void set(ParameterValues& values, std::string_view name, double value) {
    values.set(indexOf(name), &value);
}

void set(ParameterValues& values, std::string_view name, Colour value) {
    values.set(indexOf(name), &value);
}

void set(ParameterValues& values, std::string_view name, const char* value) {
    values.set(indexOf(name), &value);
}

double number(const ParameterValues& values, std::string_view name) {
    double value = -1.0;
    values.get(indexOf(name), &value);
    return value;
}

std::string text(const ParameterValues& values, std::string_view name) {
    const char* value = nullptr;
    values.get(indexOf(name), &value);
    return value;
}

using Settings = std::vector<looks::Setting>;

TEST(ParameterValues, AreTheDefaultsAtFirst) {
    const ParameterValues values;
    EXPECT_EQ(number(values, "master-breakup"), 0.5);
    EXPECT_EQ(number(values, "mask-red"), 1.0);
    EXPECT_EQ(text(values, "tv-type"), "Colour");
    EXPECT_EQ(values.look(), "");
    EXPECT_EQ(values.framesPerSecond(), 25.0);
    EXPECT_EQ(values.timeUnit(), TimeUnit::Auto);
    EXPECT_FALSE(values.effectAlpha());
    EXPECT_EQ(values.valuesOverLook(), Settings{});
}

TEST(ParameterValues, NumbersAreHeldToZeroAndOne) {
    ParameterValues values;
    set(values, "blur", 7.5);
    EXPECT_EQ(number(values, "blur"), 1.0);
    set(values, "blur", -HUGE_VAL);
    EXPECT_EQ(number(values, "blur"), 0.0);
    set(values, "fish-eye", 0.5);
    EXPECT_EQ(number(values, "fish-eye"), 1.0);
    set(values, "fish-eye", 0.49);
    EXPECT_EQ(number(values, "fish-eye"), 0.0);
}

TEST(ParameterValues, WhatIsNoValueIsIgnored) {
    ParameterValues values;
    set(values, "blur", 0.25);
    set(values, "blur", std::nan(""));
    EXPECT_EQ(number(values, "blur"), 0.25);
    set(values, "tint-colour", Colour{0.5f, 0.5f, NAN});
    EXPECT_EQ(values.valuesOverLook(), (Settings{{ParameterId::Blur, 5.0}}));
    set(values, "look", static_cast<const char*>(nullptr));
    const std::string tooLong(kLongestString + 1, 'x');
    set(values, "look", tooLong.c_str());
    EXPECT_EQ(values.look(), "");
    const double value = 1.0;
    for (const int index : {-1, 1000, INT_MIN, INT_MAX}) values.set(index, &value);
    values.set(0, nullptr);
    values.get(0, nullptr);
    values.get(-1, nullptr);
}

TEST(ParameterValues, OnlyOtherValuesThanTheDefaultsGoOverTheLook) {
    ParameterValues values;
    set(values, "master-breakup", 0.5);
    set(values, "shash-period", 0.0050004);
    set(values, "tv-type", "colour");
    set(values, "tint-colour", Colour{64 / 255.0f, 166 / 255.0f, 77 / 255.0f});
    EXPECT_EQ(values.valuesOverLook(), Settings{});
    set(values, "tv-type", "");
    EXPECT_EQ(values.valuesOverLook(), Settings{});
    set(values, "master-breakup", 0.75);
    set(values, "tv-type", "B & W");
    set(values, "tint-colour", Colour{1.0f, 0.65f, 0.3f});
    set(values, "seed", 0.0006);
    EXPECT_EQ(values.valuesOverLook(), (Settings{{ParameterId::MasterBreakup, 75.0},
                                                 {ParameterId::Seed, 6.0},
                                                 {ParameterId::TvType, 1.0},
                                                 {ParameterId::TintColourR, 100.0},
                                                 {ParameterId::TintColourG, 65.0},
                                                 {ParameterId::TintColourB, 30.0}}));
}

TEST(ParameterValues, OverrideNamesValuesThatCountAtTheirDefaults) {
    ParameterValues values;
    set(values, "override", "Master Breakup, mask-red,nothing");
    EXPECT_EQ(values.valuesOverLook(),
              (Settings{{ParameterId::MasterBreakup, 50.0}, {ParameterId::MaskRed, 1.0}}));
    set(values, "override", "all");
    Settings settings = values.valuesOverLook();
    std::size_t rendered = 0;
    for (const ParameterRow& row : parameterTable()) rendered += row.rendered ? 1 : 0;
    EXPECT_EQ(settings.size(), rendered);
    for (const looks::Setting& setting : settings) {
        EXPECT_NEAR(setting.value, row(setting.id).defaultValue, 1e-9);
    }
}

TEST(ParameterValues, ChoicesAreLabelsOrNumbers) {
    ParameterValues values;
    set(values, "tv-type", "2");
    EXPECT_EQ(values.valuesOverLook(), (Settings{{ParameterId::TvType, 2.0}}));
    testing::internal::CaptureStderr();
    set(values, "tv-type", "Plasma");
    EXPECT_EQ(values.valuesOverLook(), Settings{});
    EXPECT_NE(testing::internal::GetCapturedStderr().find("TV Type"), std::string::npos);
}

TEST(ParameterValues, ALookFileComesBeforeALook) {
    ParameterValues values;
    set(values, "look", "None");
    EXPECT_EQ(values.look(), "");
    set(values, "look", "Storm");
    EXPECT_EQ(values.look(), "Storm");
    set(values, "look-file", "/home/me/own.json");
    EXPECT_EQ(values.look(), "/home/me/own.json");
}

TEST(ParameterValues, RateAndUnitHaveDefaultsForWhatTheyDoNotKnow) {
    ParameterValues values;
    set(values, "fps", "29.97");
    EXPECT_EQ(values.framesPerSecond(), 30.0 * 1000.0 / 1001.0);
    set(values, "time-unit", "Milliseconds");
    EXPECT_EQ(values.timeUnit(), TimeUnit::Milliseconds);
    testing::internal::CaptureStderr();
    set(values, "fps", "many");
    set(values, "time-unit", "hours");
    EXPECT_EQ(values.framesPerSecond(), 25.0);
    EXPECT_EQ(values.timeUnit(), TimeUnit::Auto);
    const std::string printed = testing::internal::GetCapturedStderr();
    EXPECT_NE(printed.find("'many'"), std::string::npos);
    EXPECT_NE(printed.find("'hours'"), std::string::npos);
    set(values, "fps", "");
    EXPECT_EQ(values.framesPerSecond(), 25.0);
}

}  // namespace
}  // namespace ruvex::frei0r
