#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>

#include "media/frame_reader.h"
#include "tests/cli/run_command.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::cli {
namespace {

namespace fs = std::filesystem;

/// One line a packet of sound: a check sum of what it holds.
std::vector<std::string> soundOf(const files::TempFolder& folder, const fs::path& file) {
    const fs::path list = folder.file("packets");
    const std::string command =
        "ffprobe -v error -select_streams a -show_packets -show_data_hash MD5 -show_entries "
        "packet=data_hash -of default=nw=1 " +
        media::quoted(file) + " > " + media::quoted(list);
    EXPECT_EQ(std::system(command.c_str()), 0) << command;
    std::vector<std::string> packets;
    std::ifstream lines(list);
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("data_hash=")) {
            packets.push_back(line);
        }
    }
    EXPECT_GT(packets.size(), 10u);
    return packets;
}

double durationOf(const fs::path& file) {
    const std::string said = media::probe(file, "format=duration");
    return std::stod(said.substr(said.find('=') + 1));
}

class Containers : public testing::TestWithParam<const char*> {};

TEST_P(Containers, KeepCountRateDurationTagsAndSound) {
    files::TempFolder folder;
    const fs::path in = folder.file("in.mp4");
    media::runFfmpeg(media::movingPicture("96x64", GetParam(), 2) +
                         " -f lavfi -i sine=frequency=440 -t 2 -pix_fmt yuv420p -c:v libx264 "
                         "-vf setsar=16/11 -colorspace bt709 -color_primaries bt709 -color_trc "
                         "bt709 -c:a aac -shortest",
                     in);
    const std::string entries =
        "stream=width,height,sample_aspect_ratio,r_frame_rate,nb_read_frames,color_space,"
        "color_primaries,color_transfer,color_range";
    for (const char* name : {"out.mp4", "out.mkv", "out.mov"}) {
        const fs::path out = folder.file(name);
        const Outcome outcome = ruvex({"render", in.string(), "-o", out.string(), "--set",
                                       "Resolution=50", "--codec", "h264"});
        ASSERT_EQ(outcome.status, 0) << outcome.err;
        EXPECT_EQ(media::probe(out, entries), media::probe(in, entries)) << name;
        EXPECT_EQ(soundOf(folder, out), soundOf(folder, in)) << name;
        EXPECT_NEAR(durationOf(out), durationOf(in), 0.03) << name;
    }
}

INSTANTIATE_TEST_SUITE_P(Rates, Containers, testing::Values("25", "30000/1001", "24000/1001"));

TEST(Sound, IsCutToTheFrames) {
    files::TempFolder folder;
    const fs::path in = folder.file("in.mkv");
    const fs::path out = folder.file("out.mp4");
    media::runFfmpeg(media::movingPicture("96x64", "25", 4) +
                         " -f lavfi -i sine=frequency=440 -t 4 -c:v libx264 -c:a aac",
                     in);
    const Outcome outcome = ruvex({"render", in.string(), "-o", out.string(), "--frames", "25-74"});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    const auto all = soundOf(folder, in);
    const auto cut = soundOf(folder, out);
    // Two of four seconds, in packets of 1024 of 44100 samples a second.
    EXPECT_NEAR(static_cast<double>(cut.size()), 2 * 44100 / 1024.0, 2);
    const auto first = std::find(all.begin(), all.end(), cut.at(0));
    ASSERT_NE(first, all.end());
    EXPECT_NEAR(static_cast<double>(first - all.begin()), 44100 / 1024.0, 2);
    EXPECT_TRUE(std::equal(cut.begin(), cut.end(), first));
}

TEST(Sound, ThatAContainerCannotHoldIsNamed) {
    files::TempFolder folder;
    const fs::path in = folder.file("in.mkv");
    media::runFfmpeg(media::movingPicture("96x64", "25", 0.4) +
                         " -f lavfi -i sine=frequency=440 -t 0.4 -c:v libx264 -c:a pcm_s16le",
                     in);
    const Outcome outcome = ruvex({"render", in.string(), "-o", folder.file("out.mp4").string()});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_NE(outcome.err.find("pcm_s16le"), std::string::npos) << outcome.err;
}

// The libraries list these among what such files hold, and then refuse to begin one.
TEST(Sound, ThatAContainerRefusesDoesNotEndTheRender) {
    files::TempFolder folder;
    const auto in = folder.file("in.mkv");
    for (const auto& [coding, name] :
         {std::pair<std::string, std::string>{"libopus", "opus"}, {"flac", "flac"}}) {
        media::runFfmpeg("-f lavfi -i sine=d=0.2:r=48000 " +
                             media::movingPicture("64x48", "25", 0.2) + " -c:v ffv1 -c:a " + coding,
                         in);
        const auto out = folder.file("out.mov");
        const Outcome outcome = ruvex({"render", in, "-o", out});
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        EXPECT_NE(outcome.err.find(name + " is left out"), std::string::npos) << outcome.err;
        EXPECT_EQ(media::probe(out, "stream=codec_name"), "codec_name=prores\n");
    }
}

// Codings that Matroska takes by other containers' names, and one that is new to .mp4.
TEST(Sound, IsCopiedWhereverItsContainerTakesIt) {
    files::TempFolder folder;
    const auto in = folder.file("in.mkv");
    for (const auto& [coding, to] : {std::pair<std::string, std::string>{"wmav2", "out.mkv"},
                                     {"adpcm_ms", "out.mkv"},
                                     {"pcm_mulaw", "out.mkv"},
                                     {"flac", "out.mp4"}}) {
        media::runFfmpeg("-f lavfi -i sine=d=2:r=44100 " + media::movingPicture("64x48", "25", 2) +
                             " -c:v ffv1 -c:a " + coding,
                         in);
        const Outcome outcome = ruvex({"render", in, "-o", folder.file(to)});
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        EXPECT_EQ(outcome.messages(), "") << coding;
        EXPECT_EQ(soundOf(folder, folder.file(to)), soundOf(folder, in)) << coding;
    }
}

/// Makes a clip of 3 s with the pictures of `rate` frames a second that `select` chooses.
void makeUneven(const fs::path& file, const std::string& rate, const std::string& select) {
    media::runFfmpeg(media::movingPicture("96x64", rate, 3) +
                         " -f lavfi -i sine=frequency=440 -t 3 -vf \"select='" + select +
                         "'\" -vsync vfr -c:v libx264 -c:a aac",
                     file);
}

/// The frames that differ from the one before them, as a render reads them.
int changesIn(const fs::path& file, const media::ReadOptions& options = {}) {
    const auto reader = media::openReader(file, options);
    media::Frame frame;
    media::Frame before;
    int changes = 0;
    for (std::int64_t k = 0; reader->read(k, frame); ++k) {
        changes += frame == before ? 0 : 1;
        before = frame;
    }
    return changes;
}

TEST(UnevenVideo, IsSaidAndKeepsItsDuration) {
    files::TempFolder folder;
    const fs::path in = folder.file("in.mkv");
    const fs::path out = folder.file("out.mp4");
    makeUneven(in, "30", "lt(n,30)+not(mod(n,3))");
    const Outcome outcome = ruvex({"render", in.string(), "-o", out.string()});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_NE(outcome.err.find("uneven"), std::string::npos) << outcome.err;
    EXPECT_NEAR(durationOf(out), durationOf(in), 0.1);
    EXPECT_EQ(soundOf(folder, out), soundOf(folder, in));
}

struct UnevenClip {
    const char* rate;    ///< Of the clip that the pictures are taken from.
    const char* select;  ///< Which of its pictures.
    int pictures;
    const char* rendered;  ///< The rate of the result.
};

class UnevenClips : public testing::TestWithParam<UnevenClip> {};

TEST_P(UnevenClips, LoseNoPicture) {
    files::TempFolder folder;
    const UnevenClip& clip = GetParam();
    for (const char* name : {"in.mkv", "in.mp4"}) {
        makeUneven(folder.file(name), clip.rate, clip.select);
        const fs::path out = folder.file("out.mkv");
        const Outcome outcome = ruvex({"render", folder.file(name), "-o", out});
        ASSERT_EQ(outcome.status, 0) << outcome.err;
        EXPECT_EQ(media::probe(out, "stream=r_frame_rate"),
                  "r_frame_rate=" + std::string(clip.rendered) + "\n");
        EXPECT_EQ(changesIn(folder.file(name)), clip.pictures) << name;
        EXPECT_TRUE(holds(outcome.err, "uneven length")) << outcome.err;
        EXPECT_FALSE(holds(outcome.err, "left out")) << outcome.err;
        EXPECT_EQ(std::ranges::count(outcome.messages(), '\n'), 1) << outcome.err;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Clips, UnevenClips,
    testing::Values(UnevenClip{"60", "between(n,60,119)+not(mod(n,5))", 84, "60/1"},
                    UnevenClip{"30", "not(eq(n,45))", 89, "30/1"},
                    UnevenClip{"30000/1001", "not(eq(n,45))", 89, "30000/1001"},
                    UnevenClip{"30", "not(mod(n,2))*not(between(n,20,40))", 34, "15/1"}));

TEST(UnevenVideo, TakesAnotherRateAndCountsWhatThatLeavesOut) {
    files::TempFolder folder;
    const fs::path in = folder.file("in.mp4");
    makeUneven(in, "60", "between(n,60,119)+not(mod(n,5))");
    const fs::path out = folder.file("out.mkv");
    const Outcome outcome = ruvex({"render", in, "-o", out, "--rate", "30"});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(media::probe(out, "stream=r_frame_rate"), "r_frame_rate=30/1\n");
    const int left = changesIn(in, {.rate = media::Rational{30, 1}});
    EXPECT_LT(left, 84);
    EXPECT_TRUE(holds(outcome.err, std::to_string(84 - left) + " of its 84 pictures are left out"))
        << left << outcome.err;
    // A faster rate than that of the grid is taken too.
    EXPECT_EQ(ruvex({"render", in, "-o", out, "--rate", "240", "--frames", "0-9"}).status, 0);
    EXPECT_EQ(media::probe(out, "stream=r_frame_rate"), "r_frame_rate=240/1\n");
}

TEST(Storage, ChoicesThatDoNotFitAreWrongCommandLines) {
    files::TempFolder folder;
    const std::string in = folder.file("in.png").string();
    media::runFfmpeg(media::movingPicture("16x16", "25", 0.04) + " -frames:v 1", in);
    const auto status = [&](const std::string& out, const Arguments& more) {
        Arguments all = {"render", in, "-o", folder.file(out).string()};
        all.insert(all.end(), more.begin(), more.end());
        return ruvex(all).status;
    };
    EXPECT_EQ(status("o.mp4", {"--codec", "prores"}), 2);
    EXPECT_EQ(status("o.mp4", {"--codec", "theora"}), 2);
    EXPECT_EQ(status("o.mkv", {"--quality", "50"}), 2);
    EXPECT_EQ(status("o.mp4", {"--quality", "0"}), 2);
    EXPECT_EQ(status("o.png", {"--codec", "h264"}), 2);
    EXPECT_EQ(status("o.mov", {"--quality", "50"}), 0);
    EXPECT_EQ(status("o.jpg", {"--quality", "50"}), 0);
    EXPECT_EQ(status("o.mkv", {"--codec", "prores"}), 0);
}

TEST(Containers, KeepTheTimecodeOfTheFramesRendered) {
    files::TempFolder folder;
    media::runFfmpeg(media::movingPicture("64x64", "30000/1001", 2.2) +
                         " -c:v libx264 -timecode '00:00:58;15' -metadata title=Test",
                     folder.file("in.mov"));
    for (const std::string name : {"out.mov", "out.mp4", "out.mkv"}) {
        const Outcome outcome = ruvex({"render", folder.file("in.mov"), "-o", folder.file(name),
                                       "--frames", "45-60", "--set", "Master Breakup=0"});
        ASSERT_EQ(outcome.status, 0) << outcome.err;
        const auto tags = media::openReader(folder.file(name))->info().tags;
        EXPECT_EQ(tags.timecode, "00:01:00;02") << name;
        ASSERT_EQ(tags.words.size(), 1u) << name;
        EXPECT_EQ(tags.words[0].second, "Test");
    }
}

}  // namespace
}  // namespace ruvex::cli
