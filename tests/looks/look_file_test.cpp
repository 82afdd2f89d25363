#include "looks/look_file.h"

#include <bit>
#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace ruvex::looks {
namespace {

using Changes = std::vector<ParameterChange>;
using Warnings = std::vector<std::string>;

Changes read(const std::string& text) {
    Warnings warnings;
    const Changes changes = parseLookFile("look.json", text, warnings).changes;
    EXPECT_EQ(warnings, Warnings{}) << text;
    return changes;
}

std::string refusal(const std::string& text) {
    Warnings warnings;
    try {
        parseLookFile("look.json", text, warnings);
    } catch (const LookFileError& error) {
        return error.what();
    }
    return "";
}

double valueOf(const std::string& text) {
    const Changes changes = read(text);
    return changes.size() == 1 ? std::get<Setting>(changes[0]).value : NAN;
}

bool sameBits(double a, double b) {
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

void expectSame(const Setting& a, const ParameterChange& b) {
    EXPECT_TRUE(sameBits(a.value, std::get<Setting>(b).value)) << row(a.id).label << ' ' << a.value;
}

void expectSame(const Animation& a, const ParameterChange& b) {
    const auto& keys = std::get<Animation>(b).keys;
    ASSERT_EQ(a.keys.size(), keys.size()) << row(a.id).label;
    for (std::size_t i = 0; i < keys.size(); ++i) {
        EXPECT_TRUE(sameBits(a.keys[i].seconds, keys[i].seconds)) << row(a.id).label;
        EXPECT_TRUE(sameBits(a.keys[i].value, keys[i].value)) << row(a.id).label;
        EXPECT_EQ(a.keys[i].mode, keys[i].mode) << row(a.id).label;
    }
}

/// Values that each parameter takes, and keys on about half of the reals.
class RandomParameters {
public:
    explicit RandomParameters(unsigned seed) : random_(seed) {}

    Changes all() {
        Changes changes;
        for (const ParameterRow& row : parameterTable()) {
            changes.push_back(change(row));
        }
        return changes;
    }

private:
    double real(double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(random_);
    }
    int whole(double low, double high) {
        return std::uniform_int_distribution<int>(static_cast<int>(low),
                                                  static_cast<int>(high))(random_);
    }

    double value(const ParameterRow& row) {
        if (!row.rendered) return row.defaultValue;
        if (isCheckBox(row.kind)) return whole(0, 1);
        if (!row.choices.empty()) return whole(0, static_cast<double>(row.choices.size()) - 1.0);
        Range range = row.enteredRange().value_or(Range{-1e6, 1e6});
        range.high = std::min(range.high, 1e6);
        if (!isReal(row.kind)) return whole(range.low, range.high);
        // The ends, their neighbours and values of many sizes are the hard ones to write.
        switch (whole(0, 5)) {
            case 0:
                return range.low;
            case 1:
                return std::nextafter(range.high, range.low);
            case 2:
                return range.contains(-0.0) ? -0.0 : range.high;
            case 3:
                return range.low + (range.high - range.low) * std::pow(10.0, real(-300, 0));
            default:
                return real(range.low, range.high);
        }
    }

    ParameterChange change(const ParameterRow& row) {
        if (!isReal(row.kind) || whole(0, 1) == 0) return Setting{row.id, value(row)};
        Animation animation{row.id, {}};
        double seconds = real(-10, 10);
        for (int i = whole(1, 6); i > 0; --i) {
            animation.keys.push_back({seconds, value(row), static_cast<KeyMode>(whole(0, 2))});
            seconds += std::pow(10.0, real(-9, 3));
        }
        return animation;
    }

    std::mt19937 random_;
};

TEST(ParameterFile, WhatIsWrittenIsReadBackToTheBit) {
    for (unsigned seed = 0; seed < 200; ++seed) {
        const Changes written = RandomParameters(seed).all();
        const Changes back = read(lookFileText({.changes = written}));
        ASSERT_EQ(back.size(), written.size());
        for (std::size_t i = 0; i < written.size(); ++i) {
            ASSERT_EQ(&rowOf(back[i]), &rowOf(written[i]));
            std::visit([&](const auto& change) { expectSame(change, back[i]); }, written[i]);
        }
    }
}

TEST(ParameterFile, StandsOneLineAParameterUnderItsLabel) {
    constexpr ParameterId kSnow = ParameterId::SnowMax;
    const Changes changes = {Setting{ParameterId::TvType, 1},
                             Animation{kSnow, {{0, -0.5}, {2, 60}}},
                             Setting{ParameterId::FishEye, 1}};
    EXPECT_EQ(lookFileText({.changes = changes}),
              "{\n"
              "  \"TV Type\": \"B & W\",\n"
              "  \"Snow Max\": [{\"seconds\": 0.0, \"value\": -0.5}, "
              "{\"seconds\": 2.0, \"value\": 60.0}],\n"
              "  \"Fish Eye\": true\n"
              "}\n");
}

TEST(ParameterFile, TakesEachKindOfValue) {
    EXPECT_EQ(valueOf(R"({"Resolution": 50})"), 50.0);
    EXPECT_EQ(valueOf(R"({"Resolution": 12.5e0})"), 12.5);
    EXPECT_EQ(valueOf(R"({"master breakup": 5})"), 5.0);
    EXPECT_EQ(valueOf(R"({"Seed": 7})"), 7.0);
    EXPECT_EQ(valueOf(R"({"TV Type": "tint"})"), 2.0);
    EXPECT_EQ(valueOf(R"({"TV Type": 1})"), 1.0);
    EXPECT_EQ(valueOf(R"({"Fish Eye": true})"), 1.0);
    EXPECT_EQ(valueOf(R"({"Fish Eye": false})"), 0.0);
    EXPECT_TRUE(read("{}").empty());
    EXPECT_TRUE(read(" \n{ }\n").empty());
}

TEST(ParameterFile, AModeStandsWhereItIsNotLinear) {
    const Changes changes = {Animation{
        ParameterId::Resolution, {{0, 1, KeyMode::Hold}, {1, 2}, {2, 3, KeyMode::Smooth}, {3, 4}}}};
    const std::string text = lookFileText({.changes = changes});
    EXPECT_EQ(text,
              "{\n  \"Resolution\": [{\"seconds\": 0.0, \"value\": 1.0, \"mode\": \"hold\"}, "
              "{\"seconds\": 1.0, \"value\": 2.0}, "
              "{\"seconds\": 2.0, \"value\": 3.0, \"mode\": \"smooth\"}, "
              "{\"seconds\": 3.0, \"value\": 4.0}]\n}\n");
    EXPECT_EQ(read(text), changes);
    EXPECT_EQ(read(R"({"Resolution": [{"mode": "linear", "seconds": 1, "value": 2}]})"),
              (Changes{Animation{ParameterId::Resolution, {{1, 2}}}}));
}

TEST(ParameterFile, KeysAreSortedByTime) {
    const Changes changes = read(R"({"Resolution": [{"seconds": 2, "value": 30},
                                                    {"value": 100, "seconds": -1}]})");
    const auto& keys = std::get<Animation>(changes.at(0)).keys;
    ASSERT_EQ(keys.size(), 2u);
    EXPECT_EQ(keys[0].seconds, -1.0);
    EXPECT_EQ(keys[1].value, 30.0);
}

TEST(ParameterFile, EveryRefusalNamesTheFileAndWhatIsWrong) {
    const std::pair<const char*, const char*> cases[] = {
        {R"({"Resoluton": 5})", "'Resolution'"},
        {R"({"Resolution": "half"})", "Resolution takes a number"},
        {R"({"Resolution": "50"})", "not \"50\""},
        {R"({"Resolution": null})", "not null"},
        {R"({"Resolution": true})", "not true"},
        {R"({"Resolution": {"value": 5}})", "Resolution takes"},
        {R"({"Seed": 1.5})", "a whole number"},
        {R"({"Seed": 10001})", "0..10000"},
        {R"({"Seed": 99999999999999999999})", "0..10000"},
        {R"({"Snow Max": 300})", "-200..200"},
        {R"({"Snow Max": 1e999})", "1e999"},
        {R"({"Fish Eye": 1})", "true or false"},
        {R"({"Fish Eye": "on"})", "true or false"},
        {R"({"TV Type": "Green"})", "B & W"},
        {R"({"TV Type": 7})", "TV Type takes"},
        {R"({"TV Type": true})", "TV Type takes"},
        {R"({"Seed": [{"seconds": 0, "value": 1}]})", "cannot be animated"},
        {R"({"Resolution": []})", "no keys"},
        {R"({"Resolution": [50]})", "is not a key"},
        {R"({"Resolution": [{"seconds": 0}]})", "is not a key"},
        {R"({"Resolution": [{"seconds": "0", "value": 1}]})", "is not a key"},
        {R"({"Resolution": [{"seconds": 0, "value": 1, "ease": 2}]})", "is not a key"},
        {R"({"Resolution": [{"seconds": 0, "value": "x"}]})", "Resolution takes"},
        {R"({"Resolution": [{"seconds": 0, "value": 1, "mode": "fast"}]})",
         "Write linear, hold or smooth"},
        {R"({"Resolution": [{"seconds": 0, "value": 1, "mode": 1}]})", "linear, hold or smooth"},
        {R"({"Resolution": [{"seconds": 0, "value": 1, "mode": "hold", "ease": 2}]})",
         "is not a key"},
        {R"({"Snow Max": [{"seconds": 0, "value": 201}]})", "-200..200"},
        {R"({"Resolution": [{"seconds": 1, "value": 1}, {"seconds": 1.0, "value": 2}]})",
         "two keys at 1 s"},
        {R"({"Resolution": 5, "Resolution": 6})", "twice"},
        {R"({"Resolution": 5, "resolution ": 6})", "twice"},
        {R"({"Resolution": [{"seconds": 0, "seconds": 1, "value": 6}]})", "twice"},
        {R"([{"Resolution": 5}])", "one object"},
        {"50", "one object"},
        {"", "line 1"},
        {"\n\n{\"Resolution\": }", "line 3, column 16"},
        {R"({"Resolution": 5,})", "line 1"},
        {R"({"Resolution": 5} and more)", "line 1"},
        {R"({Resolution: 5})", "line 1"},
        {R"({"Resolution": NaN})", "line 1"},
        {"{\"Resol\xFFution\": 5}", "UTF-8"},
    };
    for (const auto& [text, part] : cases) {
        const std::string sentence = refusal(text);
        EXPECT_TRUE(sentence.starts_with("look.json: ")) << text << '\n' << sentence;
        EXPECT_NE(sentence.find(part), std::string::npos) << text << '\n' << sentence;
        EXPECT_EQ(sentence.find("json.exception"), std::string::npos) << sentence;
    }
}

TEST(ParameterFile, BracketsWithoutEndAreRefused) {
    for (const std::string open : {"[", "{\"a\":"}) {
        std::string text = "{\"Resolution\": ";
        for (int i = 0; i < 200000; ++i) text += open;
        EXPECT_NE(refusal(text).find("too deep"), std::string::npos);
        for (int i = 0; i < 200000; ++i) text += open == "[" ? "]" : "}";
        EXPECT_NE(refusal(text + "}").find("too deep"), std::string::npos);
    }
}

TEST(ParameterFile, RefusalsHoldNothingThatATerminalObeys) {
    const std::string said = refusal(R"({"\u001b[2J\u0000Resolution": 1})");
    EXPECT_NE(said.find("'\\x1B[2J\\x00Resolution'"), std::string::npos) << said;
    EXPECT_NE(said.find("Did you mean"), std::string::npos) << said;
    for (const char* text : {R"({"X Edge Method": "\u009b2J"})", "{\"Resolution\": \x1B}",
                             R"({"\u0007": 1, "\u0007": 2})", "{\"Resolution\xFF\": 1}"}) {
        const std::string refused = refusal(text);
        EXPECT_NE(refused, "") << text;
        for (const char* bad : {"\x1B", "\x07", "\xC2", "\xFF"}) {
            EXPECT_EQ(refused.find(bad), std::string::npos) << refused;
        }
    }
}

TEST(ParameterFile, RefusalsAreShortWhateverTheFileHolds) {
    const std::string longText(4000000, 'a');
    for (const std::string& text :
         {"{\"" + longText + "\": 1}", "{\"Resolution\": \"" + longText + "\"}",
          "{\"X Edge Method\": \"" + longText + "\"}", "{\"" + longText}) {
        const std::string said = refusal(text);
        EXPECT_TRUE(said.starts_with("look.json: ")) << said.substr(0, 100);
        EXPECT_LT(said.size(), 1200u);
    }
}

TEST(ParameterFile, NoBeginningOfAFileIsAFile) {
    const std::string text = lookFileText({.changes = RandomParameters(1).all()});
    const std::size_t end = text.find_last_of('}');
    for (std::size_t length = 0; length <= end; ++length) {
        EXPECT_NE(refusal(text.substr(0, length)), "") << length;
    }
}

/// What a look file is made of, in any order: whatever comes, it is read or refused.
TEST(ParameterFile, RandomTextIsReadOrRefused) {
    const std::string parts[] = {"{",    "}",   "[",  "]",           ":",         ",",
                                 "\"",   "1e9", "-",  "\"Seed\"",    "\"\\u",     "true",
                                 "null", "\n",  "\\", "\"seconds\"", "\"value\"", "\"Snow Max\"",
                                 "\xC3", "0",   "[[["};
    std::mt19937 random(7);
    std::uniform_int_distribution<std::size_t> pick(0, std::size(parts) - 1);
    for (int i = 0; i < 20000; ++i) {
        std::string text = "{";
        for (int k = 0; k < 12; ++k) {
            text += parts[pick(random)];
        }
        const std::string sentence = refusal(text);
        EXPECT_TRUE(sentence.empty() || sentence.starts_with("look.json: ")) << text;
    }
}

TEST(ParameterFile, ValuesThatTheRenderHoldsAreWarnedOfWithTheFile) {
    Warnings warnings;
    EXPECT_EQ(parseLookFile("look.json", R"({"Resolution": 150})", warnings).changes.size(), 1u);
    ASSERT_EQ(warnings.size(), 1u);
    EXPECT_TRUE(warnings[0].starts_with("look.json: ")) << warnings[0];
    EXPECT_NE(warnings[0].find("0..100"), std::string::npos) << warnings[0];
}

TEST(LookFile, MayDescribeTheLook) {
    Warnings warnings;
    const Look look = parseLookFile("look.json", R"({
        "name": "Wet Street", "Seed": 3, "author": "A. Nother", "description": "rain; \u00e9",
        "projectSize": {"height": 540, "width": 65536}})",
                                    warnings);
    const Look wanted{.name = "Wet Street",
                      .description = "rain; \xC3\xA9",
                      .author = "A. Nother",
                      .projectSize = ProjectSize{65536, 540},
                      .changes = {Setting{ParameterId::Seed, 3}}};
    EXPECT_EQ(look, wanted);
    EXPECT_EQ(parseLookFile("look.json", lookFileText(look), warnings), look);
    const Look texts{.name = "Only a Name"};
    EXPECT_EQ(parseLookFile("look.json", lookFileText(texts), warnings), texts);
    EXPECT_EQ(parseLookFile("look.json", "{}", warnings), Look());
    EXPECT_EQ(warnings, Warnings{});
    EXPECT_EQ(lookFileText(wanted).substr(0, 24), "{\n  \"name\": \"Wet Street\"");
}

TEST(LookFile, ADescriptionOfAnotherTypeOrFormIsRefused) {
    for (const char* member :
         {R"("name": 7)",
          R"("name": "")",
          R"("name": "two\nlines")",
          R"("name": ["a"])",
          R"("name": null)",
          R"("description": {})",
          R"("author": true)",
          R"("author": "\u001b[2J")",
          R"("projectSize": "960x540")",
          R"("projectSize": 960)",
          R"("projectSize": null)",
          R"("projectSize": {"width": 960})",
          R"("projectSize": [960, 540])",
          R"("projectSize": {"width": 960, "height": 540.5})",
          R"("projectSize": {"width": 960, "height": "540"})",
          R"("projectSize": {"width": 960, "height": 540, "depth": 8})",
          R"("projectSize": {"width": 0, "height": 540})",
          R"("projectSize": {"width": 960, "height": -540})",
          R"("projectSize": {"width": 960, "height": 65537})",
          R"("projectSize": {"width": 18446744073709551615, "height": 540})"}) {
        const std::string text = std::string("{") + member + ", \"Seed\": 1}";
        const std::string sentence = refusal(text);
        const std::string name = std::string(member).substr(1, 4);
        EXPECT_TRUE(sentence.starts_with("look.json: " + name)) << member << ": " << sentence;
        EXPECT_TRUE(sentence.ends_with('.')) << sentence;
    }
    EXPECT_NE(refusal("{\"name\": \"" + std::string(61, 'x') + "\"}"), "");
    EXPECT_NE(refusal("{\"description\": \"" + std::string(301, 'x') + "\"}"), "");
    EXPECT_NE(refusal(R"({"name": "a", "name": "a"})"), "");
    EXPECT_NE(refusal(R"({"Name": "a"})"), "");
}

TEST(ParameterFile, WhatNoPictureShowsIsWarnedOfUnlessItIsTheDefault) {
    Warnings warnings;
    parseLookFile("look.json", R"({"Hide Overlay Controls": false})", warnings);
    EXPECT_EQ(warnings.size(), 0u);
    parseLookFile("look.json", R"({"Presets...": "Cable Out"})", warnings);
    EXPECT_EQ(warnings.size(), 1u);
}

}  // namespace
}  // namespace ruvex::looks
