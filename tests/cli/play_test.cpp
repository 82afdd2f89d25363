// Play Speed, Repeat Frames and the ends of a clip, on a clip whose frames carry their number.

#include <cmath>

#include "tests/cli/csv_table.h"
#include "tests/cli/numbered_clip.h"

namespace ruvex::cli {
namespace {

constexpr int kFrames = 90;
/// At 20 frames a second: normal for a second, slower for one, still for one, then back, ever
/// faster for one.
const Arguments kSlowStopRewind = {"--rate", "20", "--key",
                                   "Play Speed=0:100 1:100 2:0 3:0 4:-200"};

/// Play Speed at a moment, in frames of the clip a frame of the output.
double speedAt(double seconds) {
    if (seconds <= 1.0) return 1.0;
    if (seconds <= 2.0) return 2.0 - seconds;
    if (seconds <= 3.0) return 0.0;
    return seconds <= 4.0 ? 6.0 - 2.0 * seconds : -2.0;
}

/// Where the tape is at a frame, in frames: stepped through the time line frame by frame. The
/// moments are single precision, so that the last step may be cut in two, or left to what remains.
double positionAt(int frame) {
    constexpr double kStep = 1.0 / 20.0;
    const double end = frame * kStep;
    double position = 0.0;
    float moment = 0.0f;
    while (end >= moment + kStep) {
        position += speedAt(moment);
        moment = static_cast<float>(moment + kStep);
    }
    return end > moment ? position + speedAt(end) * (end - moment) / kStep : position;
}

/// The frames of the clip that are due: a hundredth short of a frame is that frame.
std::vector<int> dueFrames() {
    std::vector<int> due;
    for (int k = 0; k < kFrames; ++k) {
        due.push_back(static_cast<int>(std::floor(positionAt(k) + 0.01)));
    }
    return due;
}

class Play : public NumberedClip {
protected:
    void play(const Arguments& more) {
        Arguments arguments = kSlowStopRewind;
        arguments.insert(arguments.end(), more.begin(), more.end());
        render(arguments);
    }
};

TEST_F(Play, SlowsDownStopsAndRewinds) {
    make(kFrames);
    play({});
    const std::vector<int> due = dueFrames();
    // The plan itself: normal, the still frame, and back beyond the start.
    EXPECT_EQ(due[20], 20);
    EXPECT_EQ(due[40], 30);
    EXPECT_EQ(due[60], 30);
    EXPECT_LT(due[kFrames - 1], 0);
    for (int k = 0; k < kFrames; ++k) {
        const int frame = due[static_cast<std::size_t>(k)];
        // Before the first frame the request is refused: blank, and the job goes on.
        EXPECT_EQ(shown(k), frame < 0 ? std::nullopt : std::optional(frame)) << k;
    }
}

TEST_F(Play, TheLevelsTableTellsTheSameFrames) {
    Arguments arguments = {"level", "--frames", "0-89", "--csv"};
    arguments.insert(arguments.end(), kSlowStopRewind.begin(), kSlowStopRewind.end());
    const CsvTable table = readCsv(ruvex(arguments).out);
    const std::vector<int> due = dueFrames();
    for (std::size_t k = 0; k < due.size(); ++k) {
        EXPECT_EQ(table.at("source_frame")[k], std::to_string(due[k])) << k;
        EXPECT_EQ(table.at("shown_frame")[k], std::to_string(due[k])) << k;
    }
}

TEST_F(Play, HoldShowsTheNearestFrame) {
    make(kFrames);
    play({"--ends", "hold"});
    const std::vector<int> due = dueFrames();
    for (int k = 80; k < kFrames; ++k) {
        EXPECT_EQ(shown(k), std::max(due[static_cast<std::size_t>(k)], 0)) << k;
    }
    render({"--set", "Play Speed=200", "--ends", "hold"});
    for (int k = 0; k < kFrames; ++k) {
        EXPECT_EQ(shown(k), std::min(2 * k, kFrames - 1)) << k;
    }
}

TEST_F(Play, LoopStartsTheClipOver) {
    make(kFrames);
    play({"--ends", "loop"});
    const std::vector<int> due = dueFrames();
    for (int k = 80; k < kFrames; ++k) {
        const int frame = due[static_cast<std::size_t>(k)];
        EXPECT_EQ(shown(k), frame < 0 ? frame + kFrames : frame) << k;
    }
    render({"--set", "Play Speed=200", "--ends", "loop"});
    for (int k = 0; k < kFrames; ++k) {
        EXPECT_EQ(shown(k), 2 * k % kFrames) << k;
    }
}

TEST_F(Play, BlankIsTheUsualEnd) {
    make(4);
    render({"--set", "Play Speed=200", "--ends", "blank"});
    EXPECT_EQ(shown(1), 2);
    EXPECT_EQ(shown(2), std::nullopt);
    EXPECT_EQ(shown(3), std::nullopt);
}

// The clip is all of the input, however few of its frames are rendered.
TEST_F(Play, TheEndsAreThoseOfTheInput) {
    make(6);
    render({"--set", "Play Speed=200", "--ends", "hold", "--frames", "2-3"});
    EXPECT_EQ(shown(2), 4);
    EXPECT_EQ(shown(3), 5);
}

TEST_F(Play, RepeatFramesShowsEachThirdFrameThreeTimes) {
    make(7);
    render({"--set", "Repeat Frames=3"});
    const int expected[] = {0, 0, 0, 3, 3, 3, 6};
    for (int k = 0; k < 7; ++k) {
        EXPECT_EQ(shown(k), expected[k]) << k;
    }
}

TEST_F(Play, HalfSpeedShowsEachFrameTwice) {
    make(9);
    render({"--set", "Play Speed=50"});
    for (int k = 0; k < 9; ++k) {
        EXPECT_EQ(shown(k), k / 2) << k;
    }
}

TEST_F(Play, AnUnknownEndIsAWrongCommandLine) {
    make(1);
    const Outcome outcome = ruvex({"render", folder.file("in.%d.rgba8"), "-o",
                                   folder.file("out.%d.rgba8"), "--size", "6x4", "--ends", "stop"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_NE(outcome.err.find("'stop'"), std::string::npos) << outcome.err;
}

}  // namespace
}  // namespace ruvex::cli
