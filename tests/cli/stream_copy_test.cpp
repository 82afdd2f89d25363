#include <algorithm>
#include <cmath>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <sstream>

#include "tests/cli/run_command.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::cli {
namespace {

namespace fs = std::filesystem;

constexpr const char* kSubtitles =
    "1\n00:00:00,500 --> 00:00:01,500\none\n\n2\n00:00:02,000 --> 00:00:03,800\ntwo\n";
constexpr const char* kChapters =
    ";FFMETADATA1\n"
    "[CHAPTER]\nTIMEBASE=1/1000\nSTART=0\nEND=1500\ntitle=First\n"
    "[CHAPTER]\nTIMEBASE=1/1000\nSTART=1500\nEND=4000\ntitle=Second\n";

std::ptrdiff_t lines(const std::string& text) {
    return std::count(text.begin(), text.end(), '\n');
}

/// The numbers of a comma-separated list.
std::vector<double> numbersIn(std::string text) {
    std::replace(text.begin(), text.end(), ',', ' ');
    std::istringstream words(text);
    std::vector<double> numbers;
    for (double number = 0; words >> number;) {
        numbers.push_back(number);
    }
    return numbers;
}

/// Times of the subtitles in seconds: begin and duration of each.
std::vector<double> subtitlesOf(const fs::path& file) {
    return numbersIn(
        media::listed(file, "-select_streams s -show_entries packet=pts_time,duration_time"));
}

/// Times of the chapters in seconds: begin and end of each.
std::vector<double> chaptersOf(const fs::path& file) {
    return numbersIn(media::listed(file, "-show_entries chapter=start_time,end_time"));
}

std::string titlesOf(const fs::path& file) {
    return media::listed(file, "-show_entries chapter_tags=title");
}

void expectNear(const std::vector<double>& found, const std::vector<double>& wanted,
                double tolerance) {
    ASSERT_EQ(found.size(), wanted.size());
    for (std::size_t i = 0; i < found.size(); ++i) {
        EXPECT_NEAR(found[i], wanted[i], tolerance) << i;
    }
}

class StreamCopies : public testing::Test {
protected:
    void SetUp() override {
        std::ofstream(folder.file("s.srt")) << kSubtitles;
        std::ofstream(folder.file("chapters")) << kChapters;
        std::ofstream(folder.file("notes.bin")) << std::string(300, 'n');
        media::runFfmpeg("-f lavfi -i color=red:size=32x32 -frames:v 1", folder.file("cover.png"));
    }

    /// Four seconds of video with subtitles in `coding`, chapters, and what `more` says.
    fs::path clip(const std::string& name, const std::string& coding, const std::string& more) {
        media::runFfmpeg(
            media::movingPicture("64x48", "25", 4) + " -i " + media::quoted(folder.file("s.srt")) +
                " -i " + media::quoted(folder.file("chapters")) +
                " -t 4 -map 0 -map 1 -map_chapters 2 -c:v libx264 -c:s " + coding + more,
            folder.file(name));
        return folder.file(name);
    }
    std::string attachment() const {
        return " -attach " + media::quoted(folder.file("notes.bin")) +
               " -metadata:s:t mimetype=application/octet-stream "
               "-metadata:s:t filename=notes.bin";
    }
    Outcome render(const fs::path& in, const std::string& out, const Arguments& more = {}) {
        Arguments all = {"render", in, "-o", folder.file(out)};
        all.insert(all.end(), more.begin(), more.end());
        return ruvex(all);
    }

    files::TempFolder folder;
};

TEST_F(StreamCopies, SubtitlesChaptersAndAttachmentsAreCopied) {
    const fs::path in = clip("in.mkv", "srt", attachment());
    const Outcome outcome = render(in, "out.mkv");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.messages(), "");
    const fs::path out = folder.file("out.mkv");
    expectNear(subtitlesOf(out), {0.5, 1.0, 2.0, 1.8}, 0.001);
    expectNear(chaptersOf(out), {0, 1.5, 1.5, 4}, 0.001);
    EXPECT_EQ(titlesOf(out), "First\nSecond\n");
    EXPECT_EQ(media::listed(out, "-select_streams t -show_entries stream_tags=filename,mimetype"),
              "notes.bin,application/octet-stream\n");
    // Dumping the attachment is done while the file is opened.
    const fs::path dumped = folder.file("dumped");
    const std::string command = "ffmpeg -nostdin -v quiet -y -dump_attachment:t " +
                                media::quoted(dumped) + " -i " + media::quoted(out);
    std::ignore = std::system(command.c_str());
    std::ifstream stream(dumped);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(stream), {}), std::string(300, 'n'));
}

TEST_F(StreamCopies, SubtitlesAndChaptersAreCutToTheFrames) {
    const fs::path in = clip("in.mkv", "srt", "");
    EXPECT_EQ(render(in, "out.mkv", {"--frames", "25-74"}).status, 0);
    expectNear(subtitlesOf(folder.file("out.mkv")), {0, 0.5, 1.0, 1.0}, 0.001);
    expectNear(chaptersOf(folder.file("out.mkv")), {0, 0.5, 0.5, 2}, 0.001);
    EXPECT_EQ(render(in, "out.mp4", {"--frames", "50-99"}).status, 0);
    expectNear(chaptersOf(folder.file("out.mp4")), {0, 2}, 0.001);
    EXPECT_EQ(titlesOf(folder.file("out.mp4")), "Second\n");
}

TEST_F(StreamCopies, SubtitlesOfMp4StayInMp4) {
    const fs::path in = clip("in.mp4", "mov_text", "");
    for (const char* name : {"out.mp4", "out.mov"}) {
        const Outcome outcome = render(in, name);
        EXPECT_EQ(outcome.messages(), "");
        EXPECT_EQ(subtitlesOf(folder.file(name)), subtitlesOf(in)) << name;
        expectNear(chaptersOf(folder.file(name)), {0, 1.5, 1.5, 4}, 0.001);
    }
    const Outcome other = render(in, "out.mkv");
    EXPECT_EQ(other.status, 0);
    EXPECT_TRUE(holds(other.err, "mov_text are left out")) << other.err;
    EXPECT_EQ(lines(other.messages()), 1) << other.err;
}

TEST_F(StreamCopies, WhatTheContainerCannotHoldIsToldInOneLineEach) {
    const fs::path in = clip("in.mkv", "srt", attachment());
    for (const char* name : {"out.mp4", "out.mov"}) {
        const Outcome outcome = render(in, name);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_TRUE(holds(outcome.err, "subrip are left out")) << outcome.err;
        EXPECT_TRUE(holds(outcome.err, "notes.bin is left out")) << outcome.err;
        EXPECT_EQ(lines(outcome.messages()), 2) << outcome.err;
        expectNear(chaptersOf(folder.file(name)), {0, 1.5, 1.5, 4}, 0.001);
    }
}

TEST_F(StreamCopies, FurtherVideoAndDataAreTold) {
    const fs::path in = clip("in.mp4", "mov_text", " -map 0 -timecode 01:00:00:00");
    const Outcome outcome = render(in, "out.mp4");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_TRUE(holds(outcome.err, "(h264, 64x48) is left out")) << outcome.err;
    // The time code and the titles of chapters are streams too, and kept.
    EXPECT_EQ(lines(outcome.messages()), 1) << outcome.err;
    media::runFfmpeg(media::movingPicture("64x48", "25", 1) + " -f data -i " +
                         media::quoted(folder.file("notes.bin")) +
                         " -t 1 -map 0 -map 1 -c:v mpeg2video -c:d copy",
                     folder.file("in.ts"));
    const Outcome data = render(folder.file("in.ts"), "out.mkv");
    EXPECT_TRUE(holds(data.err, "Data stream 1 (bin_data) is left out")) << data.err;
    EXPECT_EQ(lines(data.messages()), 1) << data.err;
}

TEST_F(StreamCopies, ACoverIsKeptAndNotTakenForTheVideo) {
    const fs::path in = folder.file("in.mp4");
    media::runFfmpeg("-i " + media::quoted(folder.file("cover.png")) + " " +
                         media::movingPicture("64x48", "25", 1) +
                         " -map 0 -map 1 -c:v:0 png -c:v:1 libx264 -disposition:v:0 attached_pic "
                         "-disposition:v:1 0",
                     in);
    for (const char* name : {"out.mp4", "out.mkv"}) {
        const Outcome outcome = render(in, name);
        EXPECT_EQ(outcome.messages(), "");
        EXPECT_EQ(media::probe(folder.file(name), "stream=width,nb_read_frames"),
                  "width=64\nnb_read_frames=25\n");
        EXPECT_EQ(media::listed(folder.file(name),
                                "-select_streams v:1 -show_entries "
                                "stream=codec_name,width:stream_disposition=attached_pic"),
                  "png,32,1\n");
    }
    // From Matroska, where a cover is an attachment, and into QuickTime, which has none.
    EXPECT_EQ(render(folder.file("out.mkv"), "again.mkv").messages(), "");
    EXPECT_EQ(media::listed(folder.file("again.mkv"),
                            "-select_streams v:1 -show_entries stream=codec_name"),
              "png\n");
    EXPECT_TRUE(holds(render(in, "out.mov").err, "The cover picture is left out"));
}

TEST_F(StreamCopies, MusicWithACoverIsNoVideo) {
    for (const char* name : {"music.mp4", "music.mkv"}) {
        media::runFfmpeg("-i " + media::quoted(folder.file("cover.png")) +
                             " -f lavfi -i sine=d=1 -map 0 -map 1 -c:v png -disposition:v "
                             "attached_pic -c:a aac",
                         folder.file(name));
    }
    const Outcome outcome = render(folder.file("music.mp4"), "out.mkv");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(holds(outcome.err, "no video in it")) << outcome.err;
}

TEST_F(StreamCopies, MasteringDisplayAndLightLevelsAreKept) {
    const fs::path in = folder.file("in.mkv");
    media::runFfmpeg(media::movingPicture("64x48", "25", 0.2) +
                         " -pix_fmt yuv420p10le -c:v libx265 -x265-params "
                         "'log-level=none:master-display=G(13250,34500)B(7500,3000)R(34000,16000)"
                         "WP(15635,16450)L(10000000,50):max-cll=1000,400' -color_primaries bt2020 "
                         "-color_trc smpte2084 -colorspace bt2020nc",
                     in);
    for (const char* name : {"out.mkv", "out.mp4", "out.mov"}) {
        EXPECT_EQ(render(in, name).messages(), "");
        // Once rendered, also from the container alone, without marks in the pictures.
        EXPECT_EQ(render(folder.file(name), "again.mkv").messages(), "");
        for (const char* file : {name, "again.mkv"}) {
            const std::string data = media::listed(
                folder.file(file), "-select_streams v -show_entries stream_side_data");
            EXPECT_TRUE(holds(data, "Mastering display metadata")) << file << data;
            EXPECT_TRUE(holds(data, "Content light level metadata,1000,400")) << file << data;
        }
    }
}

/// Time stamps by the check sum of a packet of sound. Packets without a time are left out.
std::map<std::string, double> soundTimes(const fs::path& file) {
    constexpr std::size_t kSumLength = 36;  // "MD5:" and 32 digits.
    std::istringstream lines(
        media::listed(file,
                      "-select_streams a -show_packets -show_data_hash MD5 -show_entries "
                      "packet=pts_time,data_hash"));
    std::map<std::string, double> times;
    for (std::string line; std::getline(lines, line);) {
        const auto comma = line.find(",MD5:");
        double time = 0;
        if (comma != std::string::npos && std::istringstream(line) >> time) {
            times.emplace(line.substr(comma + 1, kSumLength), time);
        }
    }
    return times;
}

/// The time stamp of the first picture.
double pictureTime(const fs::path& file) {
    return numbersIn(media::listed(file,
                                   "-select_streams v:0 -show_entries "
                                   "frame=best_effort_timestamp_time"))
        .at(0);
}

/// By how many seconds sound is later in `out` than in `in`, in relation to the pictures.
double soundDelay(const fs::path& in, const fs::path& out) {
    const auto before = soundTimes(in);
    const auto after = soundTimes(out);
    EXPECT_GT(after.size(), 10u);
    double most = 0;
    for (const auto& [packet, time] : after) {
        const auto found = before.find(packet);
        EXPECT_NE(found, before.end());
        const double delay =
            found == before.end() ? 0 : time - pictureTime(out) - found->second + pictureTime(in);
        most = std::abs(delay) > std::abs(most) ? delay : most;
        if (after.size() > 20 && time > 0.2) {
            break;
        }
    }
    return most;
}

/// Sound from time 0, and pictures from `late` seconds on.
void makeLate(const fs::path& file, const std::string& late, const std::string& coding) {
    media::runFfmpeg("-f lavfi -i sine=frequency=440:r=48000 -itsoffset " + late + " " +
                         "-f lavfi -i testsrc2=size=64x48:rate=25 -map 0 -map 1 -t 2 " + coding,
                     file);
}

TEST(SoundBeforeThePicture, IsPlayed) {
    files::TempFolder folder;
    const fs::path in = folder.file("in.mkv");
    makeLate(in, "0.5", "-c:v libx264 -c:a aac");
    for (const char* name : {"out.mp4", "out.mov", "out.mkv"}) {
        const fs::path out = folder.file(name);
        EXPECT_EQ(ruvex({"render", in, "-o", out}).messages(), "");
        EXPECT_NEAR(soundDelay(in, out), 0, 0.001) << name;
        EXPECT_GE(soundTimes(out).size(), soundTimes(in).size()) << name;
        EXPECT_GT(pictureTime(out), 0.45) << name;
        // Packets before time 0 are marked as not to be played.
        EXPECT_FALSE(holds(media::listed(out, "-select_streams a -show_entries packet=flags"), "D"))
            << name;
    }
    EXPECT_EQ(ruvex({"render", in, "-o", folder.file("cut.mp4"), "--frames", "10-20"}).messages(),
              "");
    EXPECT_NEAR(pictureTime(folder.file("cut.mp4")), 0, 0.001);
}

TEST(Sound, KeepsItsTimeToAMillisecond) {
    files::TempFolder folder;
    for (const auto& [name, coding] :
         {std::pair<const char*, const char*>{"opus.mkv", "-c:v libx264 -c:a libopus"},
          {"opus.mp4", "-c:v libx264 -c:a libopus"},
          {"b.avi", "-c:v mpeg4 -bf 2 -c:a mp3"},
          {"a.mkv", "-c:v libx264 -bf 2 -c:a aac"}}) {
        for (const char* late : {"0", "0.311"}) {
            const fs::path in = folder.file(name);
            makeLate(in, late, coding);
            for (const char* container : {"out.mkv", "out.mp4"}) {
                const fs::path out = folder.file(container);
                EXPECT_EQ(ruvex({"render", in, "-o", out}).messages(), "");
                // A millisecond in Matroska is the unit of both files' times.
                EXPECT_NEAR(soundDelay(in, out), 0, 0.00101) << name << late << container;
            }
        }
    }
}

}  // namespace
}  // namespace ruvex::cli
