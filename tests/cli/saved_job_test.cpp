// Renders that are saved as jobs and run later.

#include <fstream>
#include <gtest/gtest.h>

#include "files/read_file.h"
#include "media/stills/raw_frame.h"
#include "media/stills/still_file.h"
#include "tests/cli/run_command.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::cli {
namespace {

using media::Depth;

struct SavedJob : testing::Test {
    static constexpr media::FrameSize kSize{40, 30};

    SavedJob() {
        for (int k = 0; k < 5; ++k) {
            media::writeRawFrame(
                folder.file("in." + std::to_string(k) + ".rgba8"),
                media::noiseFrame(kSize, Depth::Bits8, static_cast<unsigned>(k), true));
        }
    }

    std::string path(const std::string& name) const { return folder.file(name).string(); }
    std::vector<std::byte> bytes(const std::string& name) const {
        return files::readWhole(folder.file(name));
    }

    /// Renders with these arguments, then saves the same render and runs it in the place of the
    /// first result. The bytes of both.
    void expectSame(const Arguments& arguments, const std::vector<std::string>& results) {
        const Outcome direct = ruvex(arguments);
        ASSERT_EQ(direct.status, 0) << direct.err;
        std::vector<std::vector<std::byte>> wanted;
        for (const std::string& name : results) {
            wanted.push_back(bytes(name));
            std::filesystem::remove(folder.file(name));
        }
        Arguments saving = arguments;
        saving.insert(saving.end(), {"--save-job", path("job.json")});
        const Outcome saved = ruvex(saving);
        ASSERT_EQ(saved.status, 0) << saved.err;
        EXPECT_FALSE(std::filesystem::exists(folder.file(results[0]))) << "nothing is rendered yet";
        const Outcome run = ruvex({"run", path("job.json")});
        ASSERT_EQ(run.status, 0) << run.err;
        for (std::size_t i = 0; i < results.size(); ++i) {
            EXPECT_TRUE(bytes(results[i]) == wanted[i]) << results[i];
        }
    }

    Arguments sequence(const Arguments& more) const {
        Arguments arguments = {
            "render", path("in.%d.rgba8"), "-o", path("out.%d.rgba8"), "--size",
            "40x30",  "--workers",         "2",  "--preset",           "Bad Colour TV"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return arguments;
    }

    files::TempFolder folder;
};

const std::vector<std::string> kResults = {"out.0.rgba8", "out.1.rgba8", "out.2.rgba8",
                                           "out.3.rgba8", "out.4.rgba8"};

TEST_F(SavedJob, OfASequenceRendersTheSame) {
    expectSame(sequence({"--key", "Master Breakup=0:0 0.1:100", "--rate", "30000/1001"}), kResults);
}

TEST_F(SavedJob, WithFieldsRendersTheSame) {
    expectSame(sequence({"--fields", "--field-order", "bottom"}), kResults);
}

TEST_F(SavedJob, WithAMaskRendersTheSame) {
    media::writeStill(folder.file("mask.png"), media::noiseFrame(kSize, Depth::Bits8, 9, true));
    expectSame(sequence({"--mask", path("mask.png"), "--project-size", "80x60", "--pixel-aspect",
                         "1.4587", "--region", "2,3,30,20", "--ends", "loop"}),
               kResults);
}

TEST_F(SavedJob, OfAVideoRendersTheSame) {
    media::runFfmpeg(media::movingPicture("96x64", "25", 0.6) + " -c:v libx264",
                     folder.file("in.mp4"));
    expectSame({"render", path("in.mp4"), "-o", path("out.mkv"), "--workers", "2", "--set",
                "Resolution=40", "--frames", "3-11"},
               {"out.mkv"});
}

TEST_F(SavedJob, OfAComparisonRendersTheSame) {
    Arguments arguments = sequence({"--split-at", "0.3"});
    arguments[0] = "compare";
    expectSame(arguments, kResults);
}

TEST_F(SavedJob, HoldsTheValuesAndNotTheNamesOfLooks) {
    std::ofstream(folder.file("look.json")) << "{\"Resolution\": 30}";
    Arguments saving = sequence({"--params", path("look.json"), "--save-job", path("job.json")});
    ASSERT_EQ(ruvex(saving).status, 0);
    std::filesystem::remove(folder.file("look.json"));
    EXPECT_EQ(ruvex({"run", path("job.json")}).status, 0);
    EXPECT_TRUE(std::filesystem::exists(folder.file("out.4.rgba8")));
}

TEST_F(SavedJob, MovesWithItsFolder) {
    ASSERT_EQ(ruvex(sequence({"--save-job", path("job.json")})).status, 0);
    const files::TempFolder other;
    // Absolute names stay; the job is written again with relative ones.
    std::string text;
    std::getline(std::ifstream(folder.file("job.json")) >> std::ws, text, '\0');
    for (auto at = text.find(folder.path().string()); at != std::string::npos;
         at = text.find(folder.path().string())) {
        text.erase(at, folder.path().string().size() + 1);
    }
    std::ofstream(folder.file("job.json")) << text;
    for (const std::string& name : folder.names()) {
        std::filesystem::rename(folder.file(name), other.file(name));
    }
    const Outcome run = ruvex({"run", other.file("job.json").string()});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_TRUE(std::filesystem::exists(other.file("out.4.rgba8")));
}

TEST_F(SavedJob, TheBytesOfAFileNameSurvive) {
    const std::string name = "caf\xE9 \x01.rgba8";
    std::filesystem::copy(folder.file("in.0.rgba8"), folder.file(name));
    const std::string result = "r\xFF.rgba8";
    expectSame({"render", path(name), "-o", path(result), "--size", "40x30", "--workers", "1"},
               {result});
}

TEST_F(SavedJob, RunsOnlyTheFramesThatAreAskedFor) {
    ASSERT_EQ(ruvex(sequence({"--save-job", path("job.json")})).status, 0);
    ASSERT_EQ(ruvex({"run", path("job.json"), "--frames", "2-3"}).status, 0);
    EXPECT_FALSE(std::filesystem::exists(folder.file("out.1.rgba8")));
    EXPECT_TRUE(std::filesystem::exists(folder.file("out.2.rgba8")));
    EXPECT_TRUE(std::filesystem::exists(folder.file("out.3.rgba8")));
    EXPECT_FALSE(std::filesystem::exists(folder.file("out.4.rgba8")));
    const Outcome again = ruvex({"run", path("job.json"), "--resume", "--verbose"});
    EXPECT_EQ(again.status, 0);
    EXPECT_TRUE(holds(again.err, "2 exist already")) << again.err;
}

TEST_F(SavedJob, MistakesAreOneSentence) {
    const auto run = [&](const std::string& text) {
        std::ofstream(folder.file("job.json")) << text;
        return ruvex({"run", path("job.json")});
    };
    const std::string start =
        "{\"ruvexJob\": 1, \"input\": \"in.%d.rgba8\", "
        "\"output\": \"out.%d.rgba8\", \"size\": {\"width\": 40, "
        "\"height\": 30}";
    const Outcome unknown = run(start + ", \"speed\": 1}");
    EXPECT_EQ(unknown.status, 1);
    EXPECT_EQ(unknown.err, "ruvex: " + path("job.json") + ": a render job has no field 'speed'.\n");
    const Outcome later = run("{\"ruvexJob\": 99}");
    EXPECT_EQ(later.status, 1);
    EXPECT_TRUE(holds(later.err, "version 99")) << later.err;
    const Outcome outside = run(start + ", \"frames\": {\"first\": 3, \"last\": 7}}");
    EXPECT_EQ(outside.status, 2);
    EXPECT_TRUE(holds(outside.err, "ruvex: frames: ")) << outside.err;
    const Outcome missing = ruvex({"run", path("none.json")});
    EXPECT_EQ(missing.status, 1);
    EXPECT_TRUE(holds(missing.err, "none.json: there is no such file")) << missing.err;
    std::filesystem::remove(folder.file("in.2.rgba8"));
    const Outcome input = run(start + "}");
    EXPECT_EQ(input.status, 1);
    EXPECT_TRUE(holds(input.err, "ruvex run " + path("job.json") + " --frames 2")) << input.err;
    EXPECT_EQ(ruvex(sequence({"--save-job", path("job.txt")})).status, 2);
}

}  // namespace
}  // namespace ruvex::cli
