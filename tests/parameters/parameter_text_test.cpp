#include "parameters/parameter_text.h"

#include <bit>
#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <random>

#include "parameters/parameter_table.h"

namespace ruvex {
namespace {

using Severity = ParsedValue::Severity;
using ::testing::HasSubstr;

ParsedValue parse(ParameterId id, std::string_view text) {
    return parseValue(row(id), text);
}

/// The value of a text that must parse without a word.
double value(ParameterId id, std::string_view text) {
    const ParsedValue parsed = parse(id, text);
    EXPECT_EQ(parsed.severity, Severity::Ok) << parsed.message;
    EXPECT_EQ(parsed.message, "");
    return parsed.value;
}

void expectError(ParameterId id, std::string_view text, const std::string& says) {
    const ParsedValue parsed = parse(id, text);
    EXPECT_EQ(parsed.severity, Severity::Error) << '"' << text << '"';
    EXPECT_FALSE(parsed.usable());
    EXPECT_THAT(parsed.message, HasSubstr(says));
    EXPECT_THAT(parsed.message, HasSubstr(std::string(row(id).label)));
}

TEST(ParseReal, ReadsDecimalNumbers) {
    EXPECT_EQ(value(ParameterId::MasterBreakup, "50"), 50.0);
    EXPECT_EQ(value(ParameterId::MasterBreakup, " 0.1 "), 0.1);
    EXPECT_EQ(value(ParameterId::TvContrast, "-12.5"), -12.5);
    EXPECT_EQ(value(ParameterId::TvContrast, "+12.5"), 12.5);
    EXPECT_EQ(value(ParameterId::TvContrast, ".5"), 0.5);
    EXPECT_EQ(value(ParameterId::LineAngle, "1e2"), 100.0);
    EXPECT_EQ(value(ParameterId::MasterBreakup, "100"), 100.0);
}

TEST(ParseReal, RefusesWhatIsNotOneFiniteNumber) {
    for (const char* text : {"", " ", "abc", "50%", "5 0", "1,5", "--5", "+-5", "++5", "0x10",
                             "inf", "-inf", "nan", "1e999", "."}) {
        expectError(ParameterId::TvContrast, text, "takes a number in -100..100 (%)");
    }
    EXPECT_EQ(value(ParameterId::TvContrast, "5."), 5.0);
}

TEST(ParseReal, OutOfRangeIsAnErrorWhereTheRenderTakesItAsItStands) {
    expectError(ParameterId::SnowMax, "200.5", "-200..200");
    expectError(ParameterId::SnowMax, "-200.5", "-200..200");
    expectError(ParameterId::CropLeft, "-1", "0..100");
    EXPECT_EQ(value(ParameterId::SnowMax, "-200"), -200.0);
}

TEST(ParseReal, OutOfRangeIsAWarningWhereTheRenderClamps) {
    const ParsedValue high = parse(ParameterId::MasterBreakup, "120");
    EXPECT_EQ(high.severity, Severity::Warning);
    EXPECT_TRUE(high.usable());
    EXPECT_EQ(high.value, 120.0);
    EXPECT_EQ(high.message,
              "Master Breakup takes a number in 0..100 (%); 120 lies outside and renders as 100.");

    const ParsedValue low = parse(ParameterId::LineSpacing, "0.25");
    EXPECT_EQ(low.severity, Severity::Warning);
    EXPECT_THAT(low.message, HasSubstr("1..1000"));
    EXPECT_THAT(low.message, HasSubstr("renders as 1."));

    // Held at the low end alone: beyond the high end of the control the render follows.
    EXPECT_THAT(parse(ParameterId::Blur, "25").message, HasSubstr("renders as 25."));
}

TEST(ParseReal, TheWidenedControlTakesItsWiderRange) {
    EXPECT_EQ(value(ParameterId::VertRollSpeedMax, "10000"), 10000.0);
    expectError(ParameterId::VertRollSpeedMax, "10001", "-10000..10000");
}

TEST(ParseInt, ReadsWholeNumbersOnly) {
    EXPECT_EQ(value(ParameterId::Seed, "10000"), 10000.0);
    EXPECT_EQ(value(ParameterId::Seed, "+7"), 7.0);
    for (const char* text : {"", "5.0", "1e3", "five", "10001", "-1", "99999999999"}) {
        expectError(ParameterId::Seed, text, "takes a whole number in 0..10000");
    }
}

TEST(ParseInt, MasksTakeAnyWholeNumber) {
    EXPECT_EQ(value(ParameterId::MaskAlpha, "0"), 0.0);
    EXPECT_EQ(value(ParameterId::MaskAlpha, "-2147483648"), -2147483648.0);
    expectError(ParameterId::MaskAlpha, "2147483648", "takes a whole number");
}

TEST(ParseEnum, TakesLabelsAndNumbers) {
    EXPECT_EQ(value(ParameterId::TvType, "Tint"), 2.0);
    EXPECT_EQ(value(ParameterId::TvType, "tint"), 2.0);
    EXPECT_EQ(value(ParameterId::TvType, "b&w"), 1.0);
    EXPECT_EQ(value(ParameterId::TvType, "B & W"), 1.0);
    EXPECT_EQ(value(ParameterId::TvType, "1"), 1.0);
    EXPECT_EQ(value(ParameterId::ShashType, "Type 1"), 0.0);
    EXPECT_EQ(value(ParameterId::ShashType, "1"), 1.0);
    EXPECT_EQ(value(ParameterId::XEdgeMethod, "wrap"), 3.0);
    EXPECT_EQ(value(ParameterId::Presets, "Bad B&W TV"), 3.0);
}

TEST(ParseEnum, RefusesOthersAndListsTheChoices) {
    for (const char* text : {"", "3", "-1", "1.0", "Sepia"}) {
        expectError(ParameterId::TvType, text, "\"Colour\", \"B & W\", \"Tint\" or 0..2");
    }
}

TEST(ParseBool, TakesTheUsualWords) {
    for (const char* text : {"on", "ON", "true", "Yes", "1", " on "}) {
        EXPECT_EQ(value(ParameterId::FishEye, text), 1.0) << text;
    }
    for (const char* text : {"off", "False", "no", "0"}) {
        EXPECT_EQ(value(ParameterId::HideOverlayControls, text), 0.0) << text;
    }
    for (const char* text : {"", "2", "-1", "maybe", "o"}) {
        expectError(ParameterId::FishEye, text, "takes on or off");
    }
}

TEST(FormatValue, IsShortAndPlain) {
    EXPECT_EQ(formatValue(row(ParameterId::ShashPeriod), 0.5), "0.5");
    EXPECT_EQ(formatValue(row(ParameterId::VertRollSpeedMax), 10000.0), "10000");
    EXPECT_EQ(formatValue(row(ParameterId::VertRollSpeedMax), 1000000.0), "1000000");
    EXPECT_EQ(formatValue(row(ParameterId::TvContrast), 0.1), "0.1");
    EXPECT_EQ(formatValue(row(ParameterId::TvContrast), -0.0), "-0");
    EXPECT_EQ(formatValue(row(ParameterId::TvType), 1.0), "B & W");
    EXPECT_EQ(formatValue(row(ParameterId::TvType), 7.0), "7");
    EXPECT_EQ(formatValue(row(ParameterId::TvType), -1.0), "-1");
    EXPECT_EQ(formatValue(row(ParameterId::FishEye), 1.0), "on");
    EXPECT_EQ(formatValue(row(ParameterId::FishEye), 0.0), "off");
    EXPECT_EQ(formatNumber(1e300), "1e+300");
    EXPECT_EQ(formatNumber(std::numeric_limits<double>::denorm_min()), "5e-324");
}

TEST(TextRoundTrip, EveryDefaultReadsBack) {
    for (const ParameterRow& row : parameterTable()) {
        const ParsedValue parsed = parseValue(row, formatValue(row, row.defaultValue));
        EXPECT_EQ(parsed.severity, Severity::Ok) << parsed.message;
        EXPECT_EQ(parsed.value, row.defaultValue) << row.label;
    }
}

TEST(TextRoundTrip, EveryChoiceReadsBack) {
    for (const ParameterRow& row : parameterTable()) {
        for (std::size_t i = 0; i < row.choices.size(); ++i) {
            const double index = static_cast<double>(i);
            EXPECT_EQ(parseValue(row, formatValue(row, index)).value, index) << row.label;
            EXPECT_EQ(parseValue(row, std::to_string(i)).value, index) << row.label;
        }
    }
}

TEST(TextRoundTrip, RandomValuesReadBackBitForBit) {
    std::mt19937_64 random(1);
    for (const ParameterRow& row : parameterTable()) {
        if (!row.controlRange) continue;
        std::uniform_real_distribution<double> inRange(row.controlRange->low,
                                                       row.controlRange->high);
        for (int i = 0; i < 200; ++i) {
            double value = inRange(random);
            if (!isReal(row.kind)) value = std::floor(value);
            const ParsedValue parsed = parseValue(row, formatValue(row, value));
            EXPECT_EQ(parsed.severity, Severity::Ok) << parsed.message;
            EXPECT_EQ(parsed.value, value) << row.label;
        }
    }
}

TEST(TextRoundTrip, AnyFiniteDoubleReadsBack) {
    std::mt19937_64 random(2);
    for (int i = 0; i < 20000; ++i) {
        const double value = std::bit_cast<double>(random());
        if (!std::isfinite(value)) continue;
        // Gun Align clamps, so that any number is at most warned about.
        EXPECT_EQ(parse(ParameterId::GunAlignRedX, formatNumber(value)).value, value);
    }
}

}  // namespace
}  // namespace ruvex
