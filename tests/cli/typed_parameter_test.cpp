#include "cli/typed_parameter.h"

#include <gtest/gtest.h>

#include "cli/usage_error.h"

namespace ruvex::cli {
namespace {

using Warnings = std::vector<std::string>;

looks::Setting setting(const std::string& text) {
    Warnings warnings;
    const looks::Setting parsed = parseSetting(text, warnings);
    EXPECT_EQ(warnings, Warnings{}) << text;
    return parsed;
}

std::string refusal(const std::string& text, bool key) {
    Warnings warnings;
    try {
        key ? void(parseAnimation(text, warnings)) : void(parseSetting(text, warnings));
    } catch (const UsageError& error) {
        return error.what();
    }
    return "";
}

TEST(Setting, TakesEachKindOfParameter) {
    EXPECT_EQ(setting("Resolution=50").value, 50.0);
    EXPECT_EQ(setting("Resolution=12.5").value, 12.5);
    EXPECT_EQ(setting("Snow Max=-100").value, -100.0);
    EXPECT_EQ(setting("TV Type=B & W").value, 1.0);
    EXPECT_EQ(setting("TV Type=2").value, 2.0);
    EXPECT_EQ(setting("Fish Eye=on").value, 1.0);
    EXPECT_EQ(setting("Fish Eye=0").value, 0.0);
    EXPECT_EQ(setting("Seed=7").value, 7.0);
    EXPECT_EQ(row(setting("Resolution=50").id).label, "Resolution");
}

TEST(Setting, AnUnknownNameIsAnsweredWithTheNearest) {
    EXPECT_NE(refusal("Resoluton=50", false).find("'Resolution'"), std::string::npos);
    EXPECT_NE(refusal("Master Brekup=50", false).find("'Master Breakup'"), std::string::npos);
}

TEST(Setting, AnotherWordIsNoSlipOfTheNearest) {
    for (const char* text : {"Foo=1", "Sharpness=50"}) {
        const std::string said = refusal(text, false);
        EXPECT_NE(said.find("ruvex params"), std::string::npos) << said;
        EXPECT_EQ(said.find("Did you mean"), std::string::npos) << said;
    }
}

TEST(Setting, ValuesOutOfRangeAreRefusedUnlessTheRenderHoldsThem) {
    EXPECT_NE(refusal("Seed=10001", false).find("0..10000"), std::string::npos);
    EXPECT_NE(refusal("Snow Max=300", false).find("-200..200"), std::string::npos);
    Warnings warnings;
    EXPECT_EQ(parseSetting("Resolution=150", warnings).value, 150.0);
    ASSERT_EQ(warnings.size(), 1u);
    EXPECT_NE(warnings[0].find("0..100"), std::string::npos) << warnings[0];
}

TEST(Setting, TextThatIsNoSettingIsRefused) {
    for (const char* text :
         {"", "Resolution", "=50", "Resolution=", "Resolution=half", "Resolution=nan",
          "Resolution=inf", "Fish Eye=maybe", "TV Type=Green", "TV Type=7", "Seed=1.5"}) {
        EXPECT_NE(refusal(text, false), "") << text;
    }
}

TEST(Setting, AParameterThatNoRenderReadsIsOnlyWarnedOf) {
    Warnings warnings;
    parseSetting("Hide Overlay Controls=on", warnings);
    EXPECT_EQ(warnings.size(), 1u);
}

TEST(Animation, KeysAreSortedByTime) {
    Warnings warnings;
    const looks::Animation animation = parseAnimation("Resolution=2:30  -1:100 0.5:75", warnings);
    ASSERT_EQ(animation.keys.size(), 3u);
    EXPECT_EQ(animation.keys[0].seconds, -1.0);
    EXPECT_EQ(animation.keys[1].seconds, 0.5);
    EXPECT_EQ(animation.keys[1].value, 75.0);
    EXPECT_EQ(animation.keys[2].value, 30.0);
}

TEST(Animation, AKeyCanNameItsMode) {
    Warnings warnings;
    const looks::Animation animation =
        parseAnimation("Resolution=0:1 1:2:hold 2:3:smooth 3:4:linear", warnings);
    const std::vector<looks::Key> wanted = {
        {0, 1}, {1, 2, looks::KeyMode::Hold}, {2, 3, looks::KeyMode::Smooth}, {3, 4}};
    EXPECT_EQ(animation.keys, wanted);
}

TEST(Animation, AnUnknownModeIsRefusedWithTheOnesThatThereAre) {
    for (const char* text : {"Resolution=0:1:fast", "Resolution=0:1:", "Resolution=0:1:Hold",
                             "Resolution=0:1:hold:smooth"}) {
        const std::string said = refusal(text, true);
        EXPECT_NE(said.find("linear, hold or smooth"), std::string::npos) << text << said;
    }
}

TEST(Animation, OnlyRealParametersHaveKeys) {
    EXPECT_NE(refusal("Seed=0:1 1:2", true).find("--set"), std::string::npos);
    EXPECT_NE(refusal("TV Type=0:1", true), "");
    EXPECT_NE(refusal("Fish Eye=0:1", true), "");
}

TEST(Animation, TextThatIsNoKeyIsRefused) {
    for (const char* text : {"Resolution=", "Resolution=50", "Resolution=0:", "Resolution=:50",
                             "Resolution=0:50,1:20", "Resolution=0:50 0:20", "Resolution=inf:5",
                             "Snow Max=0:0 1:999", "Nothing=0:1", "Resolution"}) {
        EXPECT_NE(refusal(text, true), "") << text;
    }
}

}  // namespace
}  // namespace ruvex::cli
