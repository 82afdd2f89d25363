#include <gtest/gtest.h>

#include "media/frame.h"
#include "media/stills/contact_sheet.h"
#include "media/stills/raw_frame.h"
#include "media/stills/still_file.h"
#include "parameters/presets.h"
#include "tests/cli/own_looks.h"
#include "tests/cli/run_command.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::cli {
namespace {

using media::Depth;
using media::Frame;
using media::FrameSize;

constexpr FrameSize kSheetClipSize{48, 36};

/// Three raw frames of noise, and sheets of them.
struct PresetsSheet : testing::Test {
    PresetsSheet() {
        for (int k = 0; k < 3; ++k) {
            media::writeRawFrame(
                folder.file("in." + std::to_string(k) + ".rgba8"),
                media::noiseFrame(kSheetClipSize, Depth::Bits8, static_cast<unsigned>(k)));
        }
    }

    Outcome draw(const Arguments& more, const std::string& output = "sheet.png",
                 const std::string& group = "presets") {
        Arguments arguments = {"presets",
                               "--sheet",
                               folder.file("in.%d.rgba8").string(),
                               "-o",
                               folder.file(output).string(),
                               "--size",
                               "48x36",
                               "--workers",
                               "2",
                               "--group",
                               group};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return ruvex(arguments);
    }

    Frame render(int frame, const Arguments& more) {
        const std::string number = std::to_string(frame);
        Arguments arguments = {"render",    folder.file("in.%d.rgba8").string(),
                               "-o",        folder.file("one.rgba8").string(),
                               "--size",    "48x36",
                               "--workers", "2",
                               "--frames",  number + "-" + number};
        arguments.insert(arguments.end(), more.begin(), more.end());
        const Outcome outcome = ruvex(arguments);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        return media::readRawFrame(folder.file("one.rgba8"), kSheetClipSize, Depth::Bits8);
    }

    /// Whether the picture stands in cell `index` of the sheet, opaque.
    static void expectCell(const Frame& sheet, int index, const Frame& picture,
                           int count = 1 + kPresetCount, int columns = 3) {
        const media::SheetLayout layout(kSheetClipSize, count, columns);
        ASSERT_EQ(sheet.size(), layout.sheet);
        const int left = layout.left(index, kSheetClipSize);
        int different = 0;
        for (int line = 0; line < kSheetClipSize.height; ++line) {
            const int row = media::chainRowOfLine(layout.top(index) + line, sheet.height());
            const std::uint8_t* shown = sheet.row8(row) + left * media::kChannels;
            const std::uint8_t* wanted =
                picture.row8(media::chainRowOfLine(line, kSheetClipSize.height));
            for (int i = 0; i < kSheetClipSize.width * media::kChannels; ++i) {
                different += shown[i] != (i % media::kChannels == 3 ? 255 : wanted[i]);
            }
        }
        EXPECT_EQ(different, 0) << "cell " << index;
    }

    void expectSheetOf(int frame) {
        const Frame sheet = media::readStill(folder.file("sheet.png")).frame;
        expectCell(sheet, 0,
                   media::noiseFrame(kSheetClipSize, Depth::Bits8, static_cast<unsigned>(frame)));
        for (int preset = 0; preset < kPresetCount; ++preset) {
            const std::string name(presetNames()[static_cast<std::size_t>(preset)]);
            expectCell(sheet, preset + 1, render(frame, {"--preset", name}));
        }
    }

    files::TempFolder folder;
};

TEST_F(PresetsSheet, ShowsTheFrameInTheMiddleAsItIsAndWithEachPreset) {
    const Outcome outcome = draw({});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.out, "");
    expectSheetOf(1);
}

TEST_F(PresetsSheet, ShowsTheNamedFrame) {
    const Outcome outcome = draw({"--frame", "2"});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    expectSheetOf(2);
}

TEST_F(PresetsSheet, ShowsTheUsersLooksInTheirProjectFrame) {
    const OwnLooks own;
    own.write(
        "far.json",
        R"({"Master Breakup": 0, "Breakup Variation": 0, "Gun Align Red X": 400, "projectSize": {"width": 960, "height": 720}})");
    own.write("wide.json", R"({"Seed": 8})");
    const Outcome outcome = draw({"--frame", "1"}, "sheet.png", "own");
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    const Frame sheet = media::readStill(folder.file("sheet.png")).frame;
    expectCell(sheet, 1, render(1, {"--preset", "far"}), 3, 2);
    expectCell(sheet, 1,
               render(1, {"--set", "Master Breakup=0", "--set", "Breakup Variation=0", "--set",
                          "Gun Align Red X=20"}),
               3, 2);
    expectCell(sheet, 2, render(1, {"--preset", "wide"}), 3, 2);
}

TEST_F(PresetsSheet, ShowsValuesOfOneParameter) {
    ASSERT_EQ(draw({"--frame", "1", "--vary", "Seed=7..10", "--preset", "Bad B&W TV"}).status, 0);
    Frame sheet = media::readStill(folder.file("sheet.png")).frame;
    for (int i = 0; i < 4; ++i) {
        const std::string seed = "Seed=" + std::to_string(7 + i);
        expectCell(sheet, i, render(1, {"--preset", "Bad B&W TV", "--set", seed}), 4, 2);
    }
    ASSERT_EQ(draw({"--frame", "1", "--vary", "TV Type=B & W, tint"}).status, 0);
    sheet = media::readStill(folder.file("sheet.png")).frame;
    expectCell(sheet, 0, render(1, {"--set", "TV Type=B & W"}), 2, 2);
    expectCell(sheet, 1, render(1, {"--set", "TV Type=Tint"}), 2, 2);
}

TEST_F(PresetsSheet, OfADeepClipIsDrawnToo) {
    const Outcome outcome = draw({"--depth", "16"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(media::readStill(folder.file("sheet.png")).frame.depth(), Depth::Bits8);
}

TEST_F(PresetsSheet, WrongCommandLinesEndWithTwoAndLeaveNothing) {
    const std::vector<std::string> before = folder.names();
    for (const Arguments& more : std::vector<Arguments>{{"--frame", "3"},
                                                        {"--frame", "-1"},
                                                        {"--frame", "x"},
                                                        {"--depth", "9"},
                                                        {"--workers", "0"},
                                                        {"--vary", "Seed"},
                                                        {"--vary", "Seed="},
                                                        {"--vary", "Seed=3..1"},
                                                        {"--vary", "Seed=1..101"},
                                                        {"--vary", "Seed=1,,2"},
                                                        {"--vary", "Sneed=1"},
                                                        {"--preset", "Cable Out"},
                                                        {"more"}}) {
        EXPECT_EQ(draw(more).status, 2) << more.back();
    }
    for (const char* name : {"sheet.mp4", "sheet", "sheet.%d.png", "sheet.rgba8"}) {
        EXPECT_EQ(draw({}, name).status, 2) << name;
    }
    EXPECT_EQ(ruvex({"presets", "--sheet", "a.mp4"}).status, 2);
    EXPECT_EQ(ruvex({"presets", "-o", folder.file("sheet.png").string()}).status, 2);
    EXPECT_EQ(ruvex({"presets", "--frame", "1"}).status, 2);
    EXPECT_EQ(folder.names(), before);
}

TEST_F(PresetsSheet, AClipThatIsNotThereEndsWithOne) {
    EXPECT_EQ(ruvex({"presets", "--sheet", folder.file("no.mp4").string(), "-o",
                     folder.file("sheet.png").string()})
                  .status,
              1);
    EXPECT_EQ(draw({}, "none/sheet.png").status, 1);
}

TEST_F(PresetsSheet, APngMayBeTheInputButNotTheOutputToo) {
    media::writeStill(folder.file("a.png"), media::noiseFrame(kSheetClipSize, Depth::Bits8, 1));
    const std::string still = folder.file("a.png").string();
    EXPECT_EQ(ruvex({"presets", "--sheet", still, "-o", still}).status, 2);
    EXPECT_EQ(ruvex({"presets", "--sheet", still, "-o", folder.file("b.png").string()}).status, 0);
}

}  // namespace
}  // namespace ruvex::cli
