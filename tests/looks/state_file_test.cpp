#include "looks/state_file.h"

#include <bit>
#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>

#include "files/file_error.h"
#include "looks/look_writing.h"
#include "parameters/parameter_table.h"
#include "tests/support/temp_folder.h"

namespace ruvex::looks {
namespace {

using runtime::PropertyState;
using runtime::sameBits;
using ::testing::HasSubstr;
using ::testing::StartsWith;
using PropertyStates = std::vector<PropertyState>;

constexpr GUID kAmount = guidFromText("77A1C006-0000-4000-8000-00000000000A");
constexpr GUID kCount = guidFromText("77A1C006-0000-4000-8000-00000000000B");
constexpr GUID kSwitch = guidFromText("77A1C006-0000-4000-8000-00000000000C");
constexpr GUID kCommands = guidFromText("77A1C006-0000-4000-8000-00000000000D");

const CDSParamDef* findTestProperty(const GUID& id) {
    static const CDSParamDef definitions[] = {
        {kAmount, nullptr, 0, DSCAPS_ANIMATABLE, VT_R8, 0, 0, 0},
        {kCount, nullptr, 0, DSCAPS_PLAIN, VT_I4, 0, 0, 0},
        {kSwitch, nullptr, 0, DSCAPS_PLAIN, VT_BOOL, 0, 0, 0},
        {kCommands, nullptr, 0, DSCAPS_USER_INTERFACE, VT_I4, 0, 0, 0},
    };
    for (const CDSParamDef& definition : definitions) {
        if (definition.id == id) return &definition;
    }
    return nullptr;
}

PropertyStates parse(const std::string& text) {
    return parseStateFile("my.state", text, findTestProperty);
}

bool sameStates(const PropertyStates& a, const PropertyStates& b) {
    return std::ranges::equal(
        a, b, [](const PropertyState& x, const PropertyState& y) { return sameBits(x, y); });
}

double anyReal(std::mt19937_64& random) {
    for (;;) {
        const double value = std::bit_cast<double>(random());
        if (std::isfinite(value)) return value;
    }
}

TEST(StateFile, HasOneLineForEachProperty) {
    const PropertyStates states = {
        {kAmount,
         DSVariantFromReal(-0.0),
         {{-1.0, 5e-324, DSKeyMode::Hold}, {0.1, 12.0, DSKeyMode::Smooth}, {2.0, 1.0}}},
        {kCount, DSVariantFromLong(-7), {}},
        {kSwitch, DSVariantFromBool(true), {}}};
    const std::string text = stateFileText(states);
    EXPECT_EQ(text,
              "{\n"
              "  \"ruvexState\": 1,\n"
              "  \"77A1C006-0000-4000-8000-00000000000A\": {\"real\": -0.0, \"keys\": ["
              "{\"seconds\": -1.0, \"value\": 5e-324, \"mode\": \"hold\"}, "
              "{\"seconds\": 0.1, \"value\": 12.0, \"mode\": \"smooth\"}, "
              "{\"seconds\": 2.0, \"value\": 1.0, \"mode\": \"linear\"}]},\n"
              "  \"77A1C006-0000-4000-8000-00000000000B\": {\"integer\": -7},\n"
              "  \"77A1C006-0000-4000-8000-00000000000C\": {\"boolean\": true}\n"
              "}\n");
    EXPECT_TRUE(sameStates(parse(text), states));
}

TEST(StateFile, RandomBitsComeBack) {
    std::mt19937_64 random(5);
    for (int round = 0; round < 3000; ++round) {
        PropertyStates states = {{kAmount, DSVariantFromReal(anyReal(random)), {}},
                                 {kCount, DSVariantFromLong(static_cast<LONG>(random())), {}},
                                 {kSwitch, DSVariantFromBool(random() % 2 == 0), {}}};
        std::vector<DSKey>& keys = states[0].keys;
        for (auto count = random() % 5; count > 0; --count) {
            keys.push_back(
                {anyReal(random), anyReal(random), static_cast<DSKeyMode>(random() % 3)});
        }
        std::ranges::sort(keys, {}, &DSKey::time);
        ASSERT_TRUE(sameStates(parse(stateFileText(states)), states)) << stateFileText(states);
    }
}

TEST(StateFile, TakesWhatAPersonMayWrite) {
    const auto states = parse(R"({"77a1c006-0000-4000-8000-00000000000a":
        {"keys": [{"mode": "hold", "value": 2, "seconds": 3},
                  {"seconds": 1, "value": 4, "mode": "linear"}], "real": 5}, "ruvexState": 1})");
    ASSERT_EQ(states.size(), 1u);
    EXPECT_EQ(states[0].id, kAmount);
    EXPECT_EQ(states[0].plain.dblVal, 5.0);
    EXPECT_EQ(states[0].keys, (std::vector<DSKey>{{1.0, 4.0}, {3.0, 2.0, DSKeyMode::Hold}}));
    EXPECT_TRUE(parse(R"({"ruvexState": 1})").empty());
}

/// The sentence with which a file is refused.
std::string refusalOf(const std::string& text) {
    try {
        parse(text);
    } catch (const StateFileError& error) {
        return error.what();
    }
    return "it was taken";
}

std::string refusalOfState(const std::string& id, const std::string& state) {
    return refusalOf("{\"ruvexState\": 1, \"77A1C006-0000-4000-8000-0000000000" + id +
                     "\": " + state + "}");
}

TEST(StateFile, RefusesOtherFilesAndVersions) {
    EXPECT_THAT(refusalOf("[]"), StartsWith("my.state: this is not a state file"));
    EXPECT_THAT(refusalOf("{}"), HasSubstr("'ruvexState'"));
    EXPECT_THAT(refusalOf("{"), HasSubstr("not valid JSON"));
    EXPECT_THAT(refusalOf(R"({"ruvexState": 0})"), HasSubstr("there is no version 0."));
    EXPECT_THAT(refusalOf(R"({"ruvexState": "1"})"), HasSubstr("there is no version \"1\"."));
    EXPECT_THAT(refusalOf(R"({"ruvexState": 1.0})"), HasSubstr("there is no version 1.0."));
    EXPECT_THAT(refusalOf(R"({"ruvexState": 2})"), HasSubstr("is of version 2"));
    EXPECT_THAT(refusalOf(R"({"ruvexState": 18446744073709551615})"), HasSubstr("is of version"));
}

TEST(StateFile, RefusesUnknownProperties) {
    EXPECT_THAT(refusalOf(R"({"ruvexState": 1, "Snow": {"real": 1}})"),
                HasSubstr("'Snow' is not the identifier of a property."));
    EXPECT_THAT(refusalOfState("FF", R"({"real": 1})"), HasSubstr("the effect has no property"));
    EXPECT_THAT(refusalOfState("0D", R"({"integer": 1})"), HasSubstr("is not part of a state."));
    EXPECT_THAT(refusalOf(R"({"ruvexState": 1,
                    "77A1C006-0000-4000-8000-00000000000A": {"real": 1},
                    "77a1c006-0000-4000-8000-00000000000a": {"real": 2}})"),
                HasSubstr("occurs twice."));
}

TEST(StateFile, RefusesValuesOfOtherTypes) {
    EXPECT_THAT(refusalOfState("0A", R"({"integer": 1})"), HasSubstr("takes its value as 'real'"));
    EXPECT_THAT(refusalOfState("0A", "5"), HasSubstr("takes its value as 'real', not 5."));
    EXPECT_THAT(refusalOfState("0A", R"({"real": "1"})"), HasSubstr("takes a number, not \"1\"."));
    EXPECT_THAT(refusalOfState("0A", R"({"real": null})"), HasSubstr("takes a number, not null."));
    EXPECT_THAT(refusalOfState("0A", R"({"real": 1e999})"), HasSubstr("not valid JSON"));
    for (const char* number :
         {"1.0", "2147483648", "-2147483649", "18446744073709551615", "true"}) {
        EXPECT_THAT(refusalOfState("0B", std::string("{\"integer\": ") + number + "}"),
                    HasSubstr("takes a 32-bit integer, not " + std::string(number) + "."));
    }
    EXPECT_THAT(refusalOfState("0C", R"({"boolean": 1})"),
                HasSubstr("takes true or false, not 1."));
    EXPECT_THAT(refusalOfState("0A", R"({"real": 1, "note": 2})"), HasSubstr("unknown members"));
}

TEST(StateFile, RefusesWrongKeys) {
    const auto ofKeys = [](const std::string& keys) {
        return refusalOfState("0A", "{\"real\": 1, \"keys\": " + keys + "}");
    };
    EXPECT_THAT(ofKeys("5"), HasSubstr("takes a list of keys, not 5."));
    const char* const wrong[] = {
        "[5]",
        "[{}]",
        R"([{"seconds": 1, "value": 2}])",
        R"([{"seconds": "1", "value": 2, "mode": "hold"}])",
        R"([{"seconds": 1, "value": true, "mode": "hold"}])",
        R"([{"seconds": 1, "value": 2, "mode": "cubic"}])",
        R"([{"seconds": 1, "value": 2, "mode": 0}])",
        R"([{"seconds": 1, "value": 2, "mode": "hold", "more": 3}])",
    };
    for (const char* keys : wrong) EXPECT_THAT(ofKeys(keys), HasSubstr("is not a key of")) << keys;
    EXPECT_THAT(ofKeys(R"([{"seconds": 0, "value": 2, "mode": "hold"},
                           {"seconds": -0.0, "value": 2, "mode": "hold"}])"),
                HasSubstr("has two keys at"));
    EXPECT_THAT(refusalOfState("0B", R"({"integer": 1, "keys": []})"),
                HasSubstr("cannot have keys."));
}

runtime::EffectSession newEffect() {
    return runtime::EffectSession({.module = runtime::Module::loadDefault(),
                                   .project = {.width = 720, .height = 576, .frameRate = 25.0}});
}

TEST(StateFile, CarriesTheWholeStateOfAnEffectToAnother) {
    const files::TempFolder folder;
    const auto file = folder.file("effect.state");
    runtime::EffectSession source = newEffect();
    source.setValue(row(ParameterId::TvType).identifier, 2);
    source.setValue(row(ParameterId::FishEye).identifier, 1);
    source.setValue(row(ParameterId::SnowMax).identifier, 0.1 + 0.2);
    source.setKeys(row(ParameterId::SnowMax).identifier,
                   {{0.1, 5.0, DSKeyMode::Smooth}, {2.0, 7.0}});
    const PropertyStates saved = runtime::readStates(source.properties());
    saveState(source, file);
    runtime::EffectSession target = newEffect();
    const PropertyStates read = readStateFile(target, file);
    EXPECT_TRUE(sameStates(read, saved));
    runtime::writeStates(target.properties(), read);
    EXPECT_TRUE(sameStates(runtime::readStates(target.properties()), saved));
    EXPECT_EQ(target.value(row(ParameterId::SnowMax).identifier, 2.0), 7.0);
    EXPECT_THROW(readStateFile(target, folder.file("absent.state")), files::FileError);
}

}  // namespace
}  // namespace ruvex::looks
