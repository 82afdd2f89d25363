// Results for other programs: their codecs, their sound, and what is refused before rendering.

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

#include "tests/cli/run_command.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::cli {
namespace {

/// A clip with sound, of one picture in 1/25 s and less than ten of them.
void makeClip(const std::filesystem::path& file, const std::string& size,
              const std::string& rate = "25") {
    media::runFfmpeg(media::movingPicture(size, rate, 0.3) +
                         " -f lavfi -i sine=frequency=440:sample_rate=44100 -t 0.3 "
                         "-c:v libx264 -qp 5 -c:a aac",
                     file);
}

std::string streamsOf(const std::filesystem::path& file) {
    return media::listed(file, "-show_entries stream=codec_name");
}

TEST(Delivery, WritesWhatEditorsTake) {
    files::TempFolder folder;
    const auto in = folder.file("in.mp4");
    makeClip(in, "256x144");
    for (const auto& [name, codec, streams] : {std::tuple<std::string, std::string, std::string>{
                                                   "a.mov", "prores-422-hq", "prores\naac\n"},
                                               {"a.mov", "dnxhr-sq", "dnxhd\naac\n"},
                                               {"a.mxf", "dnxhr-hq", "dnxhd\npcm_s24le\n"},
                                               {"a.mxf", "prores-422-lt", "prores\npcm_s24le\n"}}) {
        const auto out = folder.file(name);
        const Outcome outcome = ruvex({"render", in, "-o", out, "--codec", codec});
        ASSERT_EQ(outcome.status, 0) << outcome.err;
        EXPECT_EQ(streamsOf(out), streams);
        EXPECT_EQ(media::probe(out, "stream=nb_read_frames"),
                  media::probe(in, "stream=nb_read_frames"));
        EXPECT_EQ(holds(outcome.err, "is converted to PCM"), name == "a.mxf") << outcome.err;
    }
}

TEST(Delivery, RefusesWhatAFormatCannotHoldBeforeRendering) {
    files::TempFolder folder;
    makeClip(folder.file("slow.mp4"), "256x144", "15");
    makeClip(folder.file("small.mp4"), "128x96");
    media::runFfmpeg(media::movingPicture("256x144", "25", 0.2) +
                         " -vf crop=255:143:exact=1 "
                         "-pix_fmt yuv444p -c:v ffv1",
                     folder.file("odd.mkv"));
    for (const auto& [in, out, codec, said] :
         {std::tuple<std::string, std::string, std::string, std::string>{
              "slow.mp4", "o.mxf", "dnxhr-hq", "MXF cannot hold 15 frames a second"},
          {"small.mp4", "o.mov", "dnxhr-hq", "at least 256x120"},
          {"odd.mkv", "o.mov", "prores-422", "even width"},
          {"small.mp4", "o.mkv", "dnxhr-hq", "not a codec for this kind of file"}}) {
        const Outcome outcome =
            ruvex({"render", folder.file(in), "-o", folder.file(out), "--codec", codec});
        EXPECT_EQ(outcome.status, 2) << outcome.err;
        EXPECT_TRUE(holds(outcome.err, said)) << outcome.err;
        EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
        EXPECT_FALSE(std::filesystem::exists(folder.file(out)));
    }
}

TEST(Delivery, ChoicesThatDoNotApplyAreWrongCommandLines) {
    files::TempFolder folder;
    const auto in = folder.file("in.png");
    media::runFfmpeg(media::movingPicture("16x16", "25", 0.04) + " -frames:v 1", in);
    const auto status = [&](const std::string& out, const Arguments& more) {
        Arguments all = {"render", in, "-o", folder.file(out)};
        all.insert(all.end(), more.begin(), more.end());
        return ruvex(all).status;
    };
    EXPECT_EQ(status("o.mov", {"--encoder-speed", "fast"}), 2);
    EXPECT_EQ(status("o.mp4", {"--encoder-speed", "fastest"}), 2);
    EXPECT_EQ(status("o.mp4", {"--encoder-speed", "ultrafast"}), 0);
    EXPECT_EQ(status("o.mp4", {"--encoder-threads", "2"}), 0);
    EXPECT_EQ(status("o.mp4", {"--encoder-threads", "0"}), 2);
    EXPECT_EQ(status("o.mp4", {"--encoder-threads", "65"}), 2);
    EXPECT_EQ(status("o.jpg", {"--encoder-threads", "2"}), 2);
    EXPECT_EQ(status("o.png", {"--exr-pixels", "half"}), 2);
    EXPECT_EQ(status("o.exr", {"--exr-pixels", "double"}), 2);
    EXPECT_EQ(status("o.exr", {"--exr-pixels", "half"}), 0);
    EXPECT_EQ(status("o.exr", {"--exr-compression", "zip"}), 2);
    EXPECT_EQ(status("o.exr", {"--exr-compression", "zip1"}), 0);
    EXPECT_EQ(status("o.mov", {"--codec", "prores-422", "--quality", "50"}), 2);
}

TEST(Quality, ThatLooksLikeARateFactorIsQuestioned) {
    files::TempFolder folder;
    makeClip(folder.file("in.mp4"), "64x48");
    const auto said = [&](const std::string& quality) {
        return ruvex({"render", folder.file("in.mp4"), "-o", folder.file("out.mp4"), "--quality",
                      quality, "--frames", "0-1"})
            .messages();
    };
    EXPECT_TRUE(holds(said("18"), "--quality: 18 is a low quality")) << said("18");
    EXPECT_TRUE(holds(said("18"), "For what encoders call CRF 18, give 64."));
    EXPECT_EQ(said("64"), "");
    EXPECT_TRUE(holds(said("0"), "100 is the best")) << said("0");
}

TEST(Mute, LeavesTheSoundOutWithoutAWord) {
    files::TempFolder folder;
    const auto in = folder.file("in.mp4");
    makeClip(in, "256x144");
    for (const char* name : {"out.mp4", "out.mov", "out.mkv", "out.mxf", "out.y4m"}) {
        const Outcome outcome = ruvex({"render", in, "-o", folder.file(name), "--mute"});
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.messages(), "") << name;
        EXPECT_EQ(media::listed(folder.file(name), "-show_entries stream=codec_type"), "video\n");
    }
}

TEST(Mute, IsKeptInASavedJob) {
    files::TempFolder folder;
    const auto in = folder.file("in.mp4");
    makeClip(in, "256x144");
    const auto job = folder.file("job.json");
    ASSERT_EQ(ruvex({"render", in, "-o", folder.file("out.mov"), "--mute", "--codec",
                     "prores-422-lt", "--save-job", job})
                  .status,
              0);
    const Outcome outcome = ruvex({"run", job});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(media::listed(folder.file("out.mov"), "-show_entries stream=codec_name,profile"),
              "prores,LT\n");
}

TEST(SoundDrift, IsToldWhereThereIsSoundToKeep) {
    files::TempFolder folder;
    const auto in = folder.file("in.mp4");
    makeClip(in, "64x48");
    const auto said = [&](const std::string& out, const Arguments& more) {
        Arguments all = {"render", in, "-o", folder.file(out)};
        all.insert(all.end(), more.begin(), more.end());
        return ruvex(all).messages();
    };
    const std::string warning = "Play Speed moves the pictures";
    EXPECT_TRUE(holds(said("a.mp4", {"--set", "Play Speed=50"}), warning));
    EXPECT_TRUE(holds(said("a.mp4", {"--key", "Play Speed=0:100 1:0"}), warning));
    EXPECT_TRUE(holds(said("a.mp4", {"--set", "Play Speed=50"}), "See --mute."));
    EXPECT_EQ(said("a.mp4", {"--set", "Play Speed=50", "--mute"}), "");
    EXPECT_EQ(said("a.mp4", {"--set", "Repeat Frames=5"}), "") << "0.16 s";
    EXPECT_TRUE(
        holds(said("a.mp4", {"--set", "Repeat Frames=11"}), "up to 0.4 s after their sound"));
    EXPECT_EQ(said("a.%d.png", {"--set", "Play Speed=50"}), "");
}

}  // namespace
}  // namespace ruvex::cli
