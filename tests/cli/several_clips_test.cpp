// Several clips in one command, and results in a folder.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

#include "media/frame_reader.h"
#include "media/stills/still_file.h"
#include "tests/cli/run_command.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::cli {
namespace {

namespace fs = std::filesystem;

class SeveralClips : public testing::Test {
protected:
    SeveralClips() {
        for (const char* name : {"a.mp4", "b.avi", "my clip.mp4"}) {
            media::runFfmpeg(media::movingPicture("64x48", "25", 0.2), folder.file(name));
        }
        for (unsigned k = 0; k < 3; ++k) {
            media::writeStill(folder.file("s." + std::to_string(k) + ".png"),
                              media::noiseFrame({16, 12}, media::Depth::Bits8, k));
        }
        std::ofstream(folder.file("broken.mp4")) << "no clip";
    }

    std::string place(const std::string& name) const { return folder.file(name).string(); }

    Outcome render(const std::vector<std::string>& inputs, const std::string& out,
                   const Arguments& more = {}, const std::string& command = "render") const {
        Arguments line = {command};
        for (const std::string& input : inputs) line.push_back(place(input));
        line.insert(line.end(), {"-o", out, "--workers", "2"});
        line.insert(line.end(), more.begin(), more.end());
        return ruvex(line);
    }

    static std::int64_t framesOf(const fs::path& file) {
        const auto reader = media::openReader(file);
        return reader->info().last - reader->info().first + 1;
    }

    files::TempFolder folder;
};

TEST_F(SeveralClips, GoIntoAFolderUnderTheirNames) {
    const Outcome outcome = render({"a.mp4", "b.avi", "s.%d.png"}, place("out/"));
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(framesOf(folder.file("out/a.mp4")), 5);
    EXPECT_EQ(framesOf(folder.file("out/b.mp4")), 5) << "AVI cannot be written";
    EXPECT_EQ(framesOf(folder.file("out/s.%d.png")), 3);
}

TEST_F(SeveralClips, AreTheClipsRenderedOneByOne) {
    ASSERT_EQ(render({"a.mp4", "my clip.mp4"}, place("out/"), {"--preset", "Bad Colour TV"}).status,
              0);
    ASSERT_EQ(render({"a.mp4"}, place("alone.mp4"), {"--preset", "Bad Colour TV"}).status, 0);
    media::Frame one;
    media::Frame other;
    ASSERT_TRUE(media::openReader(folder.file("out/a.mp4"))->read(4, one));
    ASSERT_TRUE(media::openReader(folder.file("alone.mp4"))->read(4, other));
    EXPECT_TRUE(one == other);
}

TEST_F(SeveralClips, TakeAnExtensionThatHoldsTheCodec) {
    ASSERT_EQ(render({"a.mp4", "b.avi"}, place("out/"), {"--codec", "prores-422"}).status, 0);
    EXPECT_TRUE(fs::exists(folder.file("out/a.mov")));
    EXPECT_TRUE(fs::exists(folder.file("out/b.mov")));
}

TEST_F(SeveralClips, AFailureEndsNeitherTheOthersNorInStatusZero) {
    const Outcome outcome = render({"broken.mp4", "a.mp4"}, place("out/"));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(holds(outcome.err, place("broken.mp4"))) << outcome.err;
    EXPECT_TRUE(holds(outcome.err, "1 of 2 clips failed")) << outcome.err;
    EXPECT_EQ(framesOf(folder.file("out/a.mp4")), 5);
    EXPECT_FALSE(fs::exists(folder.file("out/broken.mp4")));
}

TEST_F(SeveralClips, EndEachWithALine) {
    const std::string printed = render({"a.mp4", "b.avi"}, place("out/")).err;
    EXPECT_TRUE(holds(printed, place("out/a.mp4") + ": 5 frames in ")) << printed;
    EXPECT_TRUE(holds(printed, place("out/b.mp4") + ": 5 frames in ")) << printed;
}

TEST_F(SeveralClips, OneClipGoesIntoAFolderToo) {
    fs::create_directory(folder.file("there"));
    EXPECT_EQ(render({"a.mp4"}, place("there")).status, 0);
    EXPECT_EQ(framesOf(folder.file("there/a.mp4")), 5);
    EXPECT_EQ(render({"a.mp4"}, place("there"), {"--split"}, "compare").status, 0);
}

TEST_F(SeveralClips, GoIntoAFolderThatIsThereWithoutASlash) {
    fs::create_directory(folder.file("there"));
    const fs::path before = fs::current_path();
    fs::current_path(folder.path());
    const Outcome named = ruvex({"render", "a.mp4", "b.avi", "-o", "there"});
    fs::current_path(folder.file("there"));
    const Outcome here = ruvex({"render", "../s.%d.png", "-o", "."});
    fs::current_path(before);
    EXPECT_EQ(named.status, 0) << named.err;
    EXPECT_EQ(here.status, 0) << here.err;
    EXPECT_TRUE(fs::exists(folder.file("there/b.mp4")));
    EXPECT_TRUE(fs::exists(folder.file("there/s.2.png")));
}

TEST_F(SeveralClips, PicturesOfASequenceAreToldOfOnce) {
    const Outcome folderMeant = render({"s.0.png", "s.1.png", "s.2.png"}, place("out/"));
    EXPECT_EQ(folderMeant.status, 0) << folderMeant.err;
    EXPECT_TRUE(holds(folderMeant.err, "ruvex render " + place("s.%d.png") + " -o"))
        << folderMeant.err;
    EXPECT_EQ(std::ranges::count(folderMeant.err, '\n'), 1) << folderMeant.err;
    const Outcome videoMeant = render({"s.0.png", "s.1.png"}, place("out.mp4"));
    EXPECT_EQ(videoMeant.status, 2);
    EXPECT_TRUE(holds(videoMeant.err, place("s.%d.png"))) << videoMeant.err;
}

TEST_F(SeveralClips, NeedAFolder) {
    const Outcome outcome = render({"a.mp4", "b.avi"}, place("out.mp4"));
    EXPECT_EQ(outcome.status, 2);
    EXPECT_TRUE(holds(outcome.err, "-o results/")) << outcome.err;
    EXPECT_FALSE(fs::exists(folder.file("out.mp4")));
}

TEST_F(SeveralClips, OfOneNameAreRefused) {
    fs::create_directory(folder.file("other"));
    fs::copy_file(folder.file("a.mp4"), folder.file("other/a.mp4"));
    const Outcome outcome = render({"a.mp4", "other/a.mp4"}, place("out/"));
    EXPECT_EQ(outcome.status, 2);
    EXPECT_TRUE(holds(outcome.err, "would both become " + place("out/a.mp4"))) << outcome.err;
    EXPECT_FALSE(fs::exists(folder.file("out")));
}

TEST_F(SeveralClips, DoNotReplaceThemselves) {
    const Outcome outcome = render({"a.mp4", "my clip.mp4"}, folder.path().string());
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(holds(outcome.err, "would replace the input")) << outcome.err;
    EXPECT_EQ(framesOf(folder.file("a.mp4")), 5);
}

TEST_F(SeveralClips, ThatAreNotThereOrCannotBeOneOfSeveralAreRefused) {
    const Outcome missing = render({"a.mp4", "c.mp4"}, place("out/"));
    EXPECT_EQ(missing.status, 2);
    EXPECT_TRUE(holds(missing.err, "There is no file " + place("c.mp4"))) << missing.err;
    EXPECT_EQ(ruvex({"render", "-", place("a.mp4"), "-o", place("out/")}).status, 2);
    EXPECT_EQ(render({"a.mp4", "b.avi"}, place("out/"), {"--save-job", place("job.json")}).status,
              2);
    EXPECT_FALSE(fs::exists(folder.file("out")));
}

TEST_F(SeveralClips, ForgottenQuotationMarksAreStillSeen) {
    const Outcome file = ruvex({"render", place("my"), "clip.mp4", "-o", place("x.mp4")});
    EXPECT_EQ(file.status, 2);
    EXPECT_TRUE(holds(file.err, "quotation marks")) << file.err;
    const Outcome set =
        ruvex({"render", place("a.mp4"), "-o", place("x.mp4"), "--set", "Snow", "Max=9"});
    EXPECT_EQ(set.status, 2);
    EXPECT_TRUE(holds(set.err, "--set 'Snow Max=9'")) << set.err;
    const Outcome output = ruvex({"render", place("a.mp4"), place("x.mp4")});
    EXPECT_EQ(output.status, 2);
    EXPECT_TRUE(holds(output.err, "-o " + place("x.mp4"))) << output.err;
}

}  // namespace
}  // namespace ruvex::cli
