#include <fstream>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "media/stills/raw_frame.h"
#include "parameters/parameter_table.h"
#include "tests/cli/run_command.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::cli {
namespace {

using files::TempFolder;

TEST(Command, SaysItsVersionAndHelp) {
    EXPECT_EQ(ruvex({"--version"}).status, 0);
    EXPECT_TRUE(holds(ruvex({"--version"}).out, "ruvex "));
    EXPECT_EQ(ruvex({"--help"}).status, 0);
    const Outcome help = ruvex({"render", "--help"});
    EXPECT_EQ(help.status, 0);
    for (const char* option :
         {"--set", "--key", "--frames", "--rate", "--size", "--depth", "--workers",
          "--project-size", "--pixel-aspect", "--region", "--mask", "--ends", "-o"}) {
        EXPECT_TRUE(holds(help.out, option)) << option;
    }
    const Outcome levelHelp = ruvex({"level", "--help"});
    EXPECT_EQ(levelHelp.status, 0);
    for (const char* option :
         {"INPUT", "--set", "--key", "--frames", "--rate", "--size", "--csv", "--plot"}) {
        EXPECT_TRUE(holds(levelHelp.out, option)) << option;
    }
}

TEST(Command, AWrongCommandLineEndsWithTwo) {
    for (const Arguments& arguments :
         std::vector<Arguments>{{},
                                {"rendr"},
                                {"render"},
                                {"render", "a.mp4"},
                                {"render", "-o", "b.mp4"},
                                {"render", "a.mp4", "-o", "b.mp4", "--nonsense"},
                                {"render", "", "-o", "b.mp4"},
                                {"render", "a.mp4", "-o", ""},
                                {"params", "--xml"},
                                {"--set"}}) {
        const Outcome outcome = ruvex(arguments);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_TRUE(holds(outcome.err, "ruvex: ")) << outcome.err;
        EXPECT_EQ(outcome.out, "");
    }
}

TEST(Command, SaysWhichWordIsNoCommand) {
    EXPECT_TRUE(holds(ruvex({"rendr"}).err, "There is no command 'rendr'"));
    EXPECT_TRUE(holds(ruvex({}).err, "required"));
}

TEST(Command, ListsEveryParameter) {
    const Outcome text = ruvex({"params"});
    const Outcome json = ruvex({"params", "--json"});
    EXPECT_EQ(text.status, 0);
    EXPECT_EQ(json.status, 0);
    const auto table = nlohmann::json::parse(json.out);
    ASSERT_EQ(table.size(), parameterTable().size());
    for (std::size_t i = 0; i < table.size(); ++i) {
        const ParameterRow& row = parameterTable()[i];
        EXPECT_TRUE(holds(text.out, std::string(row.label).insert(0, 1, '\n'))) << row.label;
        EXPECT_EQ(table[i]["label"], row.label);
        EXPECT_EQ(table[i]["animated"], isReal(row.kind));
    }
}

TEST(Command, AnUnknownPresetIsNamedWithASimilarOne) {
    const Outcome outcome = ruvex({"level", "--frames", "0-0", "--preset", "Bad Color TV"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_TRUE(holds(outcome.err, "'Bad Color TV'"));
    EXPECT_TRUE(holds(outcome.err, "Did you mean 'Bad Colour TV'?"));
}

TEST(Command, SettingsAndKeysGoOverAPreset) {
    const auto level = [](Arguments more) {
        Arguments arguments = {"level", "--frames", "0-1", "--rate", "1", "--csv"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return ruvex(arguments).out;
    };
    // "Cable Out" has no variation: its level is Master Breakup's alone.
    const std::string alone = level({"--preset", "cable out"});
    EXPECT_EQ(alone, level({"--set", "Master Breakup=100", "--preset", "Cable Out"}));
    EXPECT_NE(alone, level({"--preset", "Cable Out", "--set", "Master Breakup=30"}));
    EXPECT_NE(alone, level({"--preset", "Cable Out", "--key", "Master Breakup=0:100 1:20"}));
}

TEST(Command, SaysWhenAListCannotBeWritten) {
    const std::string command = RUVEX_COMMAND " params >/dev/full 2>/dev/null";
    const int status = std::system(command.c_str());
    EXPECT_EQ(WEXITSTATUS(status), 1);
}

/// A folder with one 4x3 raw frame, and renders of it.
struct OneFrame : testing::Test {
    OneFrame() { media::writeRawFrame(in, media::noiseFrame({4, 3}, media::Depth::Bits8, 1)); }

    Outcome render(const Arguments& more, const std::string& output = "out.rgba8") {
        Arguments arguments = {"render", in.string(), "-o", folder.file(output).string(),
                               "--size", "4x3"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return ruvex(arguments);
    }

    TempFolder folder;
    std::filesystem::path in = folder.file("in.rgba8");
};

TEST_F(OneFrame, WrongValuesEndWithTwoAndLeaveNothing) {
    for (const Arguments& more :
         std::vector<Arguments>{{"--set", "Resoluton=5"},
                                {"--set", "Seed=10001"},
                                {"--set", "Resolution"},
                                {"--key", "Seed=0:1"},
                                {"--key", "Resolution=5"},
                                {"--frames", "1-1"},
                                {"--frames", "16777216-16777216"},
                                {"--frames", "2-1"},
                                {"--depth", "12"},
                                {"--workers", "0"},
                                {"--workers", "1000000"},
                                {"--project-size", "0x4"},
                                {"--project-size", "65537x4"},
                                {"--pixel-aspect", "0"},
                                {"--pixel-aspect", "11"},
                                {"--region", "0,0,5,3"},
                                {"--region", "0,1,4,3"},
                                {"--region", "0,0,0,0"},
                                {"--rate", "-1"},
                                {"--size", "0x3"},
                                {"--key", "Resolution=0:1", "--key", "Resolution=1:1"}}) {
        const Outcome outcome = render(more);
        EXPECT_EQ(outcome.status, 2) << more[1] << outcome.err;
        EXPECT_TRUE(holds(outcome.err, "ruvex: ")) << outcome.err;
        EXPECT_FALSE(holds(outcome.err, "terminate")) << outcome.err;
    }
    EXPECT_EQ(folder.names(), std::vector<std::string>{"in.rgba8"});
}

TEST_F(OneFrame, SizesThatTheChainCannotHoldAreRefused) {
    for (const char* size : {"0x0", "536870912x1", "23171x23171", "2147483647x2147483647"}) {
        const Outcome outcome =
            ruvex({"render", in.string(), "-o", folder.file("o.rgba8").string(), "--size", size});
        EXPECT_EQ(outcome.status, 2) << size << outcome.err;
    }
    // Half that size already, in the format with twice the bytes.
    const Outcome deep = ruvex({"render", in.string(), "-o", folder.file("o.s214").string(),
                                "--size", "268435456x1", "--depth", "16"});
    EXPECT_EQ(deep.status, 2) << deep.err;
}

TEST_F(OneFrame, AnOutputThatCannotBeMeantEndsWithTwo) {
    for (const char* name : {"out.avi", "out", "in.rgba8"}) {
        EXPECT_EQ(render({}, name).status, 2) << name;
    }
    EXPECT_EQ(folder.names(), std::vector<std::string>{"in.rgba8"});
}

TEST_F(OneFrame, AFailedJobEndsWithOne) {
    EXPECT_EQ(render({}, "none/out.mp4").status, 1);
    EXPECT_EQ(ruvex({"render", folder.file("no.mp4").string(), "-o", folder.file("o.mp4").string()})
                  .status,
              1);
    std::filesystem::resize_file(in, 47);
    const Outcome cut = render({});
    EXPECT_EQ(cut.status, 1);
    EXPECT_TRUE(holds(cut.err, "47")) << cut.err;
    EXPECT_TRUE(holds(cut.err, "48")) << cut.err;
    EXPECT_EQ(folder.names(), std::vector<std::string>{"in.rgba8"});
}

TEST_F(OneFrame, AValueThatTheRenderHoldsIsOnlyWarnedOf) {
    const Outcome outcome = render({"--set", "Resolution=150"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_TRUE(holds(outcome.err, "warning")) << outcome.err;
    EXPECT_TRUE(holds(outcome.err, "0..100")) << outcome.err;
}

TEST_F(OneFrame, IsSilentWhenAllIsWell) {
    const Outcome outcome = render({});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.out, "");
}

TEST_F(OneFrame, SeveralFramesNeedAPattern) {
    std::filesystem::copy(in, folder.file("s.3.rgba8"));
    std::filesystem::copy(in, folder.file("s.4.rgba8"));
    const std::string pattern = folder.file("s.%d.rgba8").string();
    const auto into = [&](const std::string& name, const Arguments& more) {
        Arguments arguments = {"render", pattern, "-o", folder.file(name).string(),
                               "--size", "4x3"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return ruvex(arguments).status;
    };
    EXPECT_EQ(into("out.png", {}), 2);
    EXPECT_EQ(into("out.png", {"--frames", "4-4"}), 0);
    EXPECT_EQ(into("out.%d.png", {}), 0);
    EXPECT_TRUE(std::filesystem::exists(folder.file("out.3.png")));
    EXPECT_TRUE(std::filesystem::exists(folder.file("out.4.png")));
}

}  // namespace
}  // namespace ruvex::cli
