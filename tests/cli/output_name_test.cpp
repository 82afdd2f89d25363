// Names that results can have, and what messages make of them.

#include <filesystem>
#include <gtest/gtest.h>

#include "files/whole_file.h"
#include "files/words.h"
#include "media/stills/still_file.h"
#include "tests/cli/run_command.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::cli {
namespace {

namespace fs = std::filesystem;

class OutputName : public testing::Test {
protected:
    OutputName() {
        media::writeStill(folder.file("in.png"), media::noiseFrame({8, 6}, media::Depth::Bits8, 1),
                          {});
    }

    Outcome render(const std::string& in, const std::string& out) const {
        return ruvex({"render", folder.file(in), "-o", folder.file(out), "--rate", "25"});
    }

    void expectWritten(const std::string& in, const std::string& out, const std::string& file) {
        const Outcome outcome = render(in, out);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        EXPECT_TRUE(fs::exists(folder.file(file))) << file;
    }

    files::TempFolder folder;
};

TEST_F(OutputName, ALinkIsWrittenThrough) {
    fs::create_directory(folder.file("disk"));
    for (const std::string ending : {".png", ".exr", ".mkv", ".y4m", ".rgba8"}) {
        SCOPED_TRACE(ending);
        const std::string link = "link" + ending;
        fs::create_symlink("disk/target" + ending, folder.file(link));
        expectWritten("in.png", link, "disk/target" + ending);
        EXPECT_TRUE(fs::is_symlink(folder.file(link)));
        EXPECT_GT(fs::file_size(folder.file(link)), 0u);
    }
    fs::create_symlink("disk/look", folder.file("look.json"));
    EXPECT_EQ(ruvex({"level", "--frames", "0-0", "--save-params", folder.file("look.json")}).status,
              0);
    EXPECT_TRUE(fs::is_symlink(folder.file("look.json")));
    EXPECT_TRUE(fs::exists(folder.file("disk/look")));
}

TEST_F(OutputName, CanBeAsLongAsTheFileSystemAllows) {
    constexpr std::size_t kLongest = 255;
    for (const std::string ending : {".png", ".mkv", ".mp4", ".y4m"}) {
        const std::string name = std::string(kLongest - ending.size(), 'n') + ending;
        expectWritten("in.png", name, name);
    }
}

TEST_F(OutputName, ADoubledPercentSignIsOne) {
    expectWritten("in.png", "a%%d.png", "a%d.png");
    expectWritten("a%%d.png", "b%%d.%d.png", "b%d.0.png");
    expectWritten("in.png", "c%%d.mkv", "c%d.mkv");
    expectWritten("c%%d.mkv", "d.%d.png", "d.0.png");
    expectWritten("in.png", "e%d.mkv", "e%d.mkv");
}

TEST_F(OutputName, WithADoubledPercentSignIsContinued) {
    expectWritten("in.png", "a%%d.%d.png", "a%d.0.png");
    const auto before = fs::last_write_time(folder.file("a%d.0.png"));
    const Outcome again = ruvex({"render", folder.file("in.png"), "-o", folder.file("a%%d.%d.png"),
                                 "--resume", "--dry-run"});
    EXPECT_TRUE(holds(again.out, "1 exist already")) << again.out << again.err;
    EXPECT_EQ(fs::last_write_time(folder.file("a%d.0.png")), before);
}

// What a terminal gets holds no byte that it could take as a command.
TEST_F(OutputName, ControlCharactersDoNotReachTheTerminal) {
    const std::string name =
        "\x1B[31m\x07\n\r\x9B"
        "2J";
    fs::copy_file(folder.file("in.png"), folder.file(name + ".png"));
    const std::string in = folder.file(name + ".png");
    const std::vector<Arguments> lines = {
        {"render", folder.file(name), "-o", folder.file("out.png")},
        {"render", in, "-o", folder.file(name)},
        {"render", in, "-o", in},
        {"render", in, "-o", folder.file(name + ".mkv"), "--dry-run"},
        {"render", in, "-o", folder.file("out.png"), "--verbose"},
        {"render", in, "-o", folder.file("out.png"), "--mask", in, "--dry-run"},
        {"render", in, "-o", folder.file("out.png"), "--mask", folder.file(name + "x.png")},
        {"render", in, "-o", folder.file("out.png"), "--params", folder.file(name)},
        {"render", in, "-o", folder.file("out.png"), "--set", name},
        {"run", folder.file(name)},
        {"level", folder.file(name)},
        {"presets", "--sheet", folder.file(name), "-o", folder.file("sheet.png")},
        {name},
        {"render", "--" + name},
    };
    for (const Arguments& arguments : lines) {
        const Outcome outcome = ruvex(arguments);
        for (const std::string& text : {outcome.out, outcome.err}) {
            std::string flat = text;
            std::erase(flat, '\n');
            EXPECT_TRUE(files::isPrintable(flat)) << files::printable(text);
        }
        EXPECT_FALSE(holds(outcome.out + outcome.err, "\n\r")) << arguments[0];
    }
}

}  // namespace
}  // namespace ruvex::cli
