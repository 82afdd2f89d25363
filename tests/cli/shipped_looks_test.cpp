// Each look of the library on a small clip, and what "Clean" promises.

#include <algorithm>
#include <cstdio>
#include <gtest/gtest.h>
#include <sstream>

#include "media/stills/raw_frame.h"
#include "tests/cli/own_looks.h"
#include "tests/cli/run_command.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::cli {
namespace {

using media::Depth;
using media::Frame;

constexpr media::FrameSize kClipSize{48, 36};

/// Six frames of noise, at a rate that spreads them over three seconds.
struct ShippedLook : testing::Test {
    ShippedLook() {
        for (int k = 0; k < kFrames; ++k) {
            frames.push_back(media::noiseFrame(kClipSize, Depth::Bits8, static_cast<unsigned>(k)));
            media::writeRawFrame(folder.file("in." + std::to_string(k) + ".rgba8"), frames.back());
        }
    }

    /// The frames that come out.
    std::vector<Frame> render(const Arguments& more) const {
        Arguments arguments = {"render",  folder.file("in.%d.rgba8").string(),
                               "-o",      folder.file("out.%d.rgba8").string(),
                               "--size",  "48x36",
                               "--rate",  "2",
                               "--ends",  "hold",
                               "--depth", "8"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        const Outcome outcome = ruvex(arguments);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        EXPECT_EQ(outcome.messages(), "");
        std::vector<Frame> results;
        for (int k = 0; k < kFrames; ++k) {
            results.push_back(media::readRawFrame(
                folder.file("out." + std::to_string(k) + ".rgba8"), kClipSize, Depth::Bits8));
        }
        return results;
    }
    /// How many of the frames are changed.
    int changed(const Arguments& more) const {
        const std::vector<Frame> results = render(more);
        int count = 0;
        for (std::size_t k = 0; k < results.size(); ++k) {
            count += std::ranges::equal(results[k].bytes(), frames[k].bytes()) ? 0 : 1;
        }
        return count;
    }

    static constexpr int kFrames = 6;
    OwnLooks own;
    files::TempFolder folder;
    std::vector<Frame> frames;
};

TEST_F(ShippedLook, EachChangesThePictureExceptClean) {
    std::istringstream names(ruvex({"presets", "--names", "--group", "looks"}).out);
    for (std::string name; std::getline(names, name);) {
        const int count = changed({"--preset", name});
        EXPECT_EQ(count > 0, name != "Clean") << name;
    }
}

TEST_F(ShippedLook, CleanKeepsEveryBit) {
    EXPECT_EQ(changed({"--preset", "Clean"}), 0);
    EXPECT_EQ(changed({"--preset", "Clean", "--workers", "5"}), 0);
    const Frame deep = media::noiseFrame(kClipSize, Depth::S214, 3, true);
    media::writeRawFrame(folder.file("in.s214"), deep);
    const Outcome outcome =
        ruvex({"render", folder.file("in.s214").string(), "-o", folder.file("out.s214").string(),
               "--size", "48x36", "--preset", "Clean"});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    const Frame out = media::readRawFrame(folder.file("out.s214"), kClipSize, Depth::S214);
    EXPECT_TRUE(std::ranges::equal(out.bytes(), deep.bytes()));
}

/// The amounts of the artefacts at a level of 1, with one setting over Clean: those that are not 0.
std::vector<std::string> actingWith(const std::string& setting) {
    const Outcome outcome =
        ruvex({"level", "--frames", "0-0", "--csv", "--preset", "Clean", "--set", setting});
    std::istringstream lines(outcome.out);
    std::string names;
    std::string values;
    std::getline(lines, names);
    std::getline(lines, values);
    std::istringstream nameWords(names);
    std::istringstream valueWords(values);
    std::vector<std::string> acting;
    for (std::string name, value; std::getline(nameWords, name, ',');) {
        std::getline(valueWords, value, ',');
        if (std::stod(value) != 0) acting.push_back(name);
    }
    return acting;
}

/// How many of a look's frames from `first` to `last` show another frame of the clip.
int framesOutOfStep(const std::string& look, int first, int last) {
    const Outcome outcome =
        ruvex({"level", "--frames", std::to_string(first) + "-" + std::to_string(last), "--rate",
               "25", "--csv", "--preset", look});
    std::istringstream lines(outcome.out);
    std::string line;
    std::getline(lines, line);
    EXPECT_TRUE(line.starts_with("frame,time,play_time,source_frame,")) << line;
    int count = 0;
    while (std::getline(lines, line)) {
        int frame = -1;
        int source = -1;
        std::sscanf(line.c_str(), "%d,%*[^,],%*[^,],%d", &frame, &source);
        count += frame == source ? 0 : 1;
    }
    return count;
}

// The sound of a clip is copied as it is.
TEST_F(ShippedLook, PlaysInStepWithTheSound) {
    EXPECT_EQ(framesOutOfStep("Tracking Error", 0, 5000), 0);
    EXPECT_GT(framesOutOfStep("Freeze and Tear", 0, 70), 20);
    EXPECT_EQ(framesOutOfStep("Freeze and Tear", 75, 5000), 0);
}

struct OneFault {
    const char* setting;
    const char* amount;  ///< Its column of `ruvex level`.
};

constexpr OneFault kFaults[] = {{"Colour Degrade Max=30", "colour_degrade"},
                                {"Ghosting Distance Max=600", "ghost_distance"},
                                {"Edge Distortion Max=600", "edge_distortion"},
                                {"Snow Max=40", "snow"},
                                {"Line Threshold=0", "line_speed"},
                                {"Vert Offset Max=300", "vertical_offset"},
                                {"Vert Roll Speed Max=300", "roll_speed"},
                                {"Shash Amount Max=50", "shash"}};

TEST_F(ShippedLook, EachMaximumOverCleanShowsItsFaultAlone) {
    EXPECT_EQ(actingWith("Seed=5"), std::vector<std::string>{"level"});
    for (const OneFault& fault : kFaults) {
        EXPECT_GT(changed({"--preset", "Clean", "--set", fault.setting}), 0) << fault.setting;
        // What a roll or an offset adds up to is not a fault of its own.
        std::vector<std::string> acting = actingWith(fault.setting);
        std::erase(acting, "vertical_sum");
        EXPECT_EQ(acting, (std::vector<std::string>{"level", fault.amount})) << fault.setting;
    }
}

}  // namespace
}  // namespace ruvex::cli
