#include <fstream>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sstream>

#include "media/stills/raw_frame.h"
#include "parameters/parameter_table.h"
#include "parameters/presets.h"
#include "tests/cli/run_command.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::cli {
namespace {

using Json = nlohmann::json;

/// Files of parameters, and commands that read and write them.
struct ParameterFiles : testing::Test {
    void write(const std::string& name, const std::string& text) {
        std::ofstream(folder.file(name)) << text;
    }
    std::string read(const std::string& name) const {
        std::ostringstream text;
        text << std::ifstream(folder.file(name)).rdbuf();
        return text.str();
    }
    std::string path(const std::string& name) const { return folder.file(name).string(); }

    Outcome level(const Arguments& more) {
        Arguments arguments = {"level", "--frames", "0-9", "--csv"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return ruvex(arguments);
    }
    /// The values in use with these options.
    Json inUse(Arguments options) {
        options.insert(options.end(), {"--save-params", path("saved.json")});
        const Outcome outcome = level(options);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        return Json::parse(read("saved.json"));
    }

    files::TempFolder folder;
};

TEST_F(ParameterFiles, TheDefaultsAreThoseOfTheTable) {
    const Json saved = inUse({});
    EXPECT_EQ(saved.size(), parameterTable().size());
    const auto table = Json::parse(ruvex({"params", "--json"}).out);
    for (const Json& row : table) {
        const Json& value = saved.at(row["label"].get<std::string>());
        if (row["kind"] == "enum") {
            EXPECT_EQ(value, row["choices"].at(row["default"].get<std::size_t>())) << row["label"];
        } else if (row["choices"].empty()) {
            EXPECT_EQ(value, row["default"]) << row["label"];
        }
    }
}

TEST_F(ParameterFiles, APresetChangesWhatItsColumnSaysAndNothingElse) {
    const Json before = inUse({});
    for (int preset = 0; preset < kPresetCount; ++preset) {
        Json wanted = before;
        for (const PresetRow& line : presetTable()) {
            const auto value = line.value(preset);
            const ParameterRow& parameter = row(line.id);
            if (!value) continue;
            Json& member = wanted[std::string(parameter.label)];
            if (isCheckBox(parameter.kind)) {
                member = *value != 0.0;
            } else if (!parameter.choices.empty()) {
                member = parameter.choices[static_cast<std::size_t>(*value)].label;
            } else {
                member = *value;
            }
        }
        const std::string name(presetNames()[static_cast<std::size_t>(preset)]);
        EXPECT_EQ(inUse({"--preset", name}), wanted) << name;
    }
}

TEST_F(ParameterFiles, PresetParamsSetAndKeyGoOverEachOtherInThisOrder) {
    write("look.json", R"({"Seed": 1, "Snow Max": 1, "Line Angle": 1, "Resolution": 1})");
    write("more.json", R"({"Snow Max": 2, "Line Angle": [{"seconds": 0, "value": 2}],
                           "Resolution": 2})");
    const Json saved = inUse({"--key", "Resolution=0:4", "--set", "Line Angle=3", "--params",
                              path("more.json"), "--preset", path("look.json")});
    EXPECT_EQ(saved["Seed"], 1);
    EXPECT_EQ(saved["Snow Max"], 2);
    EXPECT_EQ(saved["Line Angle"], 3);
    EXPECT_EQ(saved["Resolution"], Json::parse(R"([{"seconds": 0, "value": 4}])"));
}

TEST_F(ParameterFiles, KeysReplaceTheValueOfSet) {
    const Json saved = inUse({"--key", "Snow Max=0:0 1:90", "--set", "Snow Max=90"});
    EXPECT_EQ(saved["Snow Max"],
              Json::parse(R"([{"seconds": 0, "value": 0}, {"seconds": 1, "value": 90}])"));
    const Outcome twice = level({"--key", "Snow Max=0:0", "--key", "snow max=1:90"});
    EXPECT_EQ(twice.status, 2);
    EXPECT_NE(twice.err.find("given twice"), std::string::npos) << twice.err;
}

TEST_F(ParameterFiles, ModesOfKeysAreSaved) {
    const Json saved = inUse({"--key", "Snow Max=0:0:hold 1:90:smooth 2:5"});
    EXPECT_EQ(saved["Snow Max"], Json::parse(R"([{"seconds": 0, "value": 0, "mode": "hold"},
                                                 {"seconds": 1, "value": 90, "mode": "smooth"},
                                                 {"seconds": 2, "value": 5}])"));
}

TEST_F(ParameterFiles, AnOffsetShiftsTheKeysOfTheLookAlone) {
    write("look.json", R"({"Seed": 3, "Snow Max": [{"seconds": 0, "value": 5, "mode": "hold"},
                                                   {"seconds": 1, "value": 6}]})");
    write("more.json", R"({"Line Angle": [{"seconds": 2, "value": 5}]})");
    const Json saved = inUse({"--preset", path("look.json"), "--params", path("more.json"),
                              "--key-offset", "-1.5", "--key", "Resolution=0:4"});
    EXPECT_EQ(saved["Snow Max"], Json::parse(R"([{"seconds": -1.5, "value": 5, "mode": "hold"},
                                                 {"seconds": -0.5, "value": 6}])"));
    EXPECT_EQ(saved["Line Angle"], Json::parse(R"([{"seconds": 0.5, "value": 5}])"));
    EXPECT_EQ(saved["Resolution"], Json::parse(R"([{"seconds": 0, "value": 4}])"));
    EXPECT_EQ(saved["Seed"], 3);
}

TEST_F(ParameterFiles, AnOffsetWithoutKeysIsWarnedOf) {
    const Outcome outcome = level({"--preset", "Good TV", "--key-offset", "3"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_NE(outcome.err.find("--key-offset is ignored"), std::string::npos) << outcome.err;
}

TEST_F(ParameterFiles, AnOffsetThatNoTimeHoldsIsRefused) {
    write("near.json", R"({"Snow Max": [{"seconds": 0, "value": 5},
                                        {"seconds": 1e-9, "value": 6}]})");
    write("far.json", R"({"Snow Max": [{"seconds": 1e308, "value": 5}]})");
    EXPECT_EQ(level({"--params", path("near.json"), "--key-offset", "1e12"}).status, 2);
    EXPECT_EQ(level({"--params", path("far.json"), "--key-offset", "1e308"}).status, 2);
    EXPECT_EQ(level({"--params", path("near.json"), "--key-offset", "soon"}).status, 2);
}

TEST_F(ParameterFiles, AFileChangesOnlyWhatItNames) {
    write("look.json", R"({"Seed": 77})");
    Json wanted = inUse({"--preset", "Cable Out"});
    wanted["Seed"] = 77;
    EXPECT_EQ(inUse({"--preset", "Cable Out", "--params", path("look.json")}), wanted);
}

TEST_F(ParameterFiles, WhatIsSavedGivesTheSameAgain) {
    const Outcome first =
        level({"--preset", "Bad Colour TV", "--set", "Breakup Speed=33.3", "--key",
               "Master Breakup=0.04:1.1 0.2:97.3", "--save-params", path("a.json")});
    const Outcome again = level({"--params", path("a.json"), "--save-params", path("b.json")});
    EXPECT_EQ(first.out, again.out);
    EXPECT_EQ(read("a.json"), read("b.json"));
    EXPECT_NE(level({}).out, first.out);
    // A file may be read and replaced by one command.
    EXPECT_EQ(level({"--params", path("a.json"), "--save-params", path("a.json")}).status, 0);
    EXPECT_EQ(read("a.json"), read("b.json"));
}

TEST_F(ParameterFiles, ARenderWithTheSavedFileIsTheSamePicture) {
    media::writeRawFrame(folder.file("in.rgba8"),
                         media::noiseFrame({64, 48}, media::Depth::Bits8, 1));
    const auto render = [&](const std::string& out, const Arguments& more) {
        Arguments arguments = {"render", path("in.rgba8"), "-o",        path(out),
                               "--size", "64x48",          "--workers", "2"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        const Outcome outcome = ruvex(arguments);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        return read(out);
    };
    const std::string first =
        render("a.rgba8", {"--preset", "Bad B&W TV", "--save-params", path("a.json")});
    EXPECT_EQ(render("b.rgba8", {"--preset", path("a.json")}), first);
    EXPECT_NE(render("c.rgba8", {}), first);
}

TEST_F(ParameterFiles, WrongFilesEndWithOneAndSayWhich) {
    write("cut.json", "{\n  \"Seed\": 7,\n  \"Snow");
    write("unknown.json", R"({"Snowy": 1})");
    write("twice.json", R"({"Seed": 1, "Seed": 2})");
    write("range.json", R"({"Seed": -1})");
    write("empty.json", "");
    std::filesystem::create_directory(folder.file("folder.json"));
    for (const char* name : {"cut.json", "unknown.json", "twice.json", "range.json", "empty.json",
                             "folder.json", "none.json", "none/look.json"}) {
        for (const char* option : {"--preset", "--params"}) {
            const Outcome outcome = level({option, path(name)});
            EXPECT_EQ(outcome.status, 1) << name << outcome.err;
            EXPECT_NE(outcome.err.find(path(name)), std::string::npos) << outcome.err;
            EXPECT_EQ(outcome.out, "");
        }
    }
    const Outcome cut = level({"--params", path("cut.json")});
    EXPECT_NE(cut.err.find("line 3"), std::string::npos) << cut.err;
}

TEST_F(ParameterFiles, AreSavedUnderNamesOfTheirOwnOnly) {
    write("clip.mp4", "precious");
    EXPECT_EQ(level({"--save-params", path("clip.mp4")}).status, 2);
    EXPECT_EQ(read("clip.mp4"), "precious");
    EXPECT_EQ(level({"--save-params", path("none/look.json")}).status, 1);
    // Nothing is saved by a command line that is wrong.
    EXPECT_EQ(level({"--save-params", path("a.json"), "--set", "Seed=-1"}).status, 2);
    EXPECT_FALSE(std::filesystem::exists(folder.file("a.json")));
}

TEST_F(ParameterFiles, ASavedPresetIsThePreset) {
    const Outcome saved = ruvex({"presets", "--save-to", path("looks")});
    ASSERT_EQ(saved.status, 0) << saved.err;
    for (const std::string_view name : presetNames()) {
        const std::string file = path("looks/" + std::string(name) + ".json");
        EXPECT_EQ(inUse({"--preset", file}), inUse({"--preset", std::string(name)})) << name;
    }
}

TEST_F(ParameterFiles, PresetsAreNotSavedWhereThereIsAFile) {
    write("taken", "");
    const Outcome saved = ruvex({"presets", "--save-to", path("taken")});
    EXPECT_EQ(saved.status, 1);
    EXPECT_NE(saved.err.find("taken"), std::string::npos) << saved.err;
}

}  // namespace
}  // namespace ruvex::cli
