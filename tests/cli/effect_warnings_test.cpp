// Warnings for parameters that cannot change a picture.

#include <fstream>
#include <gtest/gtest.h>

#include "media/stills/raw_frame.h"
#include "tests/cli/run_command.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::cli {
namespace {

struct EffectWarnings : testing::Test {
    EffectWarnings() {
        media::writeRawFrame(folder.file("in.rgba8"),
                             media::noiseFrame({8, 8}, media::Depth::Bits8, 1));
    }

    /// What a command prints to the standard error stream.
    std::string said(const std::string& command, const Arguments& options) {
        Arguments arguments = {command,  folder.file("in.rgba8").string(),
                               "-o",     folder.file("out.rgba8").string(),
                               "--size", "8x8"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        const Outcome outcome = ruvex(arguments);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        return outcome.err;
    }
    std::string rendered(const Arguments& options) { return said("render", options); }
    std::string look(const std::string& text) {
        std::ofstream(folder.file("look.json")) << text;
        return folder.file("look.json").string();
    }

    files::TempFolder folder;
};

bool has(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

TEST_F(EffectWarnings, NameTheMissingParameter) {
    const std::string threshold =
        "ruvex: warning: 'Snow Threshold' has no effect: 'Snow Max' is 0.\n";
    EXPECT_TRUE(has(rendered({"--set", "Snow Max=0", "--set", "Snow Threshold=20"}), threshold));
    EXPECT_TRUE(has(rendered({"--set", "Snow Max=0", "--key", "Snow Threshold=0:0"}), threshold));
    EXPECT_TRUE(has(rendered({"--preset", "Good TV", "--key", "Master Breakup=0:0 1:100"}),
                    "'Master Breakup' has no effect: no artefact"));
    EXPECT_TRUE(has(said("compare", {"--set", "Fish Eye Radius=9"}), "'Fish Eye' is off"));
}

TEST_F(EffectWarnings, ConcernKeysOfALookButNotItsValues) {
    const std::string text =
        look(R"({"Fish Eye Power": 9, "Fish Eye Radius": [{"seconds": 0, "value": 5}]})");
    const std::string err = rendered({"--preset", text});
    EXPECT_TRUE(has(err, "'Fish Eye Radius' has no effect")) << err;
    EXPECT_FALSE(has(err, "'Fish Eye Power'")) << err;
    const std::string more = rendered({"--preset", text, "--set", "Fish Eye=on"});
    EXPECT_FALSE(has(more, "no effect")) << more;
}

TEST_F(EffectWarnings, AreGivenOnceAParameter) {
    const std::string err =
        rendered({"--set", "Fish Eye Radius=9", "--key", "Fish Eye Radius=0:5 1:6"});
    EXPECT_EQ(err.find("no effect"), err.rfind("no effect")) << err;
}

TEST_F(EffectWarnings, AreNotGivenForWhatActs) {
    EXPECT_FALSE(has(rendered({"--set", "Snow Max=90", "--key", "Snow Threshold=0:50"}), "effect"));
    EXPECT_FALSE(has(rendered({"--preset", "Good TV"}), "effect"));
    EXPECT_FALSE(has(rendered({"--set", "Fish Eye Radius=9", "--quiet"}), "effect"));
    EXPECT_FALSE(
        has(ruvex({"level", "--frames", "0", "--set", "Fish Eye Radius=9"}).err, "effect"));
}

}  // namespace
}  // namespace ruvex::cli
