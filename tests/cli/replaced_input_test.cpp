// No command replaces a file that it reads, however the file is spelled.

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>

#include "cli/shell_text.h"
#include "files/read_file.h"
#include "media/stills/still_file.h"
#include "tests/cli/run_command.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::cli {
namespace {

namespace fs = std::filesystem;

/// A sequence a.0.png, a.1.png, a.2.png, a folder that leads back, a mask and a look.
class ReplacedInput : public testing::Test {
protected:
    static constexpr media::FrameSize kSize{8, 6};

    ReplacedInput() {
        for (unsigned k = 0; k < 3; ++k) {
            writeStill("a." + std::to_string(k) + ".png", k);
        }
        writeStill("mask.png", 3);
        std::ofstream(folder.file("look.json")) << R"({"Resolution": 50})";
        fs::create_directory_symlink(folder.path(), folder.file("linked"));
        before = contents();
    }

    void writeStill(const std::string& name, unsigned seed) const {
        media::writeStill(folder.file(name), media::noiseFrame(kSize, media::Depth::Bits8, seed),
                          {});
    }

    std::map<std::string, std::string> contents() const {
        std::map<std::string, std::string> all;
        for (const std::string& name : folder.names()) {
            const bool file = fs::is_regular_file(folder.file(name));
            all[name] = file ? files::readText(folder.file(name)) : "";
        }
        return all;
    }

    /// The path of a name in the folder.
    std::string place(const std::string& name) const { return folder.file(name).string(); }

    void expectRefused(const Arguments& arguments, const std::string& input) const {
        const Outcome outcome = ruvex(arguments);
        EXPECT_EQ(outcome.status, 2) << outcome.err;
        EXPECT_TRUE(holds(outcome.err, "would replace the " + input)) << outcome.err;
        EXPECT_TRUE(contents() == before);
    }

    void expectRefused(const std::string& in, const std::string& out, Arguments more = {}) const {
        Arguments arguments = {"render", place(in), "-o", place(out)};
        arguments.insert(arguments.end(), more.begin(), more.end());
        SCOPED_TRACE(in + " to " + out);
        expectRefused(arguments, "input");
    }

    files::TempFolder folder;
    std::map<std::string, std::string> before;
};

TEST_F(ReplacedInput, IsSeenInEverySpelling) {
    expectRefused("a.%d.png", "a.%d.png");
    expectRefused("a.%d.png", "./a.%d.png");
    expectRefused("a.%d.png", "linked/a.%d.png");
    expectRefused("a.%d.png", "linked/../" + folder.path().filename().string() + "/a.%d.png");
    expectRefused("a.%d.png", "a.%01d.png");
    expectRefused({"render", place("a.%d.png"), "-o", fs::relative(place("a.%d.png")).string()},
                  "input");
    expectRefused("a.%d.png", "a.%d.png", {"--resume"});
    expectRefused("a.%d.png", "./a.%01d.png", {"--resume"});
}

TEST_F(ReplacedInput, IsSeenBetweenStillsAndSequences) {
    expectRefused("a.%d.png", "a.2.png", {"--frames", "2-2"});
    expectRefused("a.%d.png", "a.1.png", {"--frames", "2-2"});
    expectRefused("a.0.png", "a.%d.png");
    expectRefused("a.0.png", "linked/a.0.png");
}

TEST_F(ReplacedInput, IsSeenThroughLinks) {
    fs::create_symlink("a.1.png", folder.file("b.2.png"));
    fs::create_hard_link(folder.file("a.1.png"), folder.file("c.0.png"));
    before = contents();
    expectRefused("a.%d.png", "b.%d.png");
    expectRefused("a.%d.png", "c.%d.png");
}

TEST_F(ReplacedInput, IsSeenWhereTheShellHasOpenedIt) {
    ASSERT_EQ(ruvex({"render", place("a.%d.png"), "-o", place("in.y4m")}).status, 0);
    before = contents();
    const std::string command = shellQuoted(RUVEX_COMMAND) + " render - -o " +
                                shellQuoted(place("./in.y4m")) + " < " +
                                shellQuoted(place("in.y4m")) + " 2>/dev/null";
    EXPECT_NE(std::system(command.c_str()), 0);
    EXPECT_TRUE(contents() == before);
}

TEST_F(ReplacedInput, MayBeTheMask) {
    fs::create_symlink("mask.png", folder.file("out.1.png"));
    before = contents();
    const auto expectMaskKept = [&](const char* out, const char* frames) {
        SCOPED_TRACE(out);
        expectRefused({"render", place("a.%d.png"), "-o", place(out), "--mask", place("mask.png"),
                       "--frames", frames},
                      "mask");
    };
    expectMaskKept("mask.png", "1-1");
    expectMaskKept("linked/mask.png", "1-1");
    expectMaskKept("out.%d.png", "0-2");
}

TEST_F(ReplacedInput, MayBeTheFileOfTheParameters) {
    fs::create_symlink("look.json", folder.file("out.png"));
    fs::create_symlink("look.json", folder.file("out.svg"));
    before = contents();
    const std::string look = place("./look.json");
    for (const char* option : {"--preset", "--params"}) {
        SCOPED_TRACE(option);
        for (const char* command : {"render", "compare"}) {
            expectRefused({command, place("a.0.png"), "-o", place("out.png"), option, look},
                          "file that the parameters are from");
        }
        expectRefused({"render", place("a.0.png"), "-o", place("b.png"), option, look, "--save-job",
                       place("look.json")},
                      "look file");
        expectRefused({"level", place("a.%d.png"), option, look, "--plot", place("out.svg")},
                      "look file");
        expectRefused({"level", "--frames", "0-1", option, look, "--plot", place("out.svg")},
                      "look file");
    }
}

TEST_F(ReplacedInput, IsSeenByEveryCommand) {
    expectRefused({"compare", place("a.%d.png"), "-o", place("./a.%01d.png")}, "input");
    expectRefused({"presets", "--sheet", place("a.%d.png"), "-o", place("linked/a.1.png")},
                  "input");
    const Outcome saved = ruvex({"render", place("a.%d.png"), "-o", place("./a.%01d.png"),
                                 "--save-job", place("job.json")});
    ASSERT_EQ(saved.status, 0) << saved.err;
    before = contents();
    expectRefused({"run", place("job.json")}, "input");
    expectRefused({"run", place("job.json"), "--resume"}, "input");
}

TEST_F(ReplacedInput, IsSeenInWhatIsWrittenBesideTheResult) {
    fs::create_symlink("a.1.png", folder.file("link.json"));
    fs::create_symlink("a.1.png", folder.file("link.svg"));
    fs::create_symlink("mask.png", folder.file("mask.json"));
    before = contents();
    const std::string in = place("a.%d.png");
    expectRefused({"render", in, "-o", place("b.%d.png"), "--save-params", place("link.json")},
                  "input");
    expectRefused({"render", in, "-o", place("b.%d.png"), "--save-job", place("link.json")},
                  "input");
    for (const char* option : {"--save-params", "--save-job"}) {
        expectRefused({"render", in, "-o", place("b.%d.png"), "--mask", place("mask.png"), option,
                       place("mask.json")},
                      "mask");
    }
    expectRefused({"level", in, "--plot", place("link.svg")}, "input");
    expectRefused({"level", in, "--save-params", place("link.json")}, "input");
}

TEST_F(ReplacedInput, OtherFilesAreReplaced) {
    writeStill("b.0.png", 9);
    const Outcome outcome =
        ruvex({"render", place("a.%d.png"), "-o", place("b.%d.png"), "--frames", "0-1"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_NE(files::readText(folder.file("b.0.png")), "");
    EXPECT_TRUE(fs::exists(folder.file("b.1.png")));
    // The picture that is left out would be replaced; those that are rendered are other files.
    fs::create_symlink("a.2.png", folder.file("c.2.png"));
    EXPECT_EQ(
        ruvex({"render", place("a.%d.png"), "-o", place("c.%d.png"), "--frames", "0-1"}).status, 0);
}

}  // namespace
}  // namespace ruvex::cli
