// Results that are rendered at the input's size and scaled afterwards.

#include <fstream>
#include <gtest/gtest.h>

#include "media/frame_reader.h"
#include "media/pixels/alpha.h"
#include "media/pixels/area_scaler.h"
#include "media/stills/still_file.h"
#include "tests/cli/run_command.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::cli {
namespace {

using media::Depth;
using media::Frame;

constexpr media::FrameSize kFullSize{96, 64};

class OutputSize : public testing::Test {
protected:
    OutputSize() {
        Frame picture = media::noiseFrame(kFullSize, Depth::Bits8, 8);
        media::writeStill(folder.file("alpha.png"), picture);
        media::makeOpaque(picture);
        media::writeStill(folder.file("opaque.jpg"), picture);
        media::runFfmpeg(media::movingPicture("96x64", "25", 0.2), folder.file("clip.mp4"));
    }

    Outcome run(const std::string& command, const std::string& in, const std::string& out,
                const Arguments& more) const {
        Arguments line = {command,    folder.file(in), "-o",        folder.file(out),
                          "--preset", "Bad Colour TV", "--workers", "2"};
        line.insert(line.end(), more.begin(), more.end());
        return ruvex(line);
    }

    Frame render(const std::string& in, const std::string& out, const Arguments& more,
                 const std::string& command = "render") const {
        const Outcome outcome = run(command, in, out, more);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        Frame frame;
        EXPECT_TRUE(media::openReader(folder.file(out))->read(0, frame));
        return frame;
    }

    files::TempFolder folder;
};

TEST_F(OutputSize, IsTheFullRenderScaled) {
    for (const char* in : {"opaque.jpg", "alpha.png"}) {
        const Frame full = render(in, "full.png", {});
        for (const media::FrameSize size :
             {media::FrameSize{48, 32}, {30, 20}, {96, 10}, {120, 64}}) {
            EXPECT_TRUE(render(in, "small.png", {"--output-size", toText(size)}) ==
                        media::areaScaled(full, size))
                << in << ' ' << toText(size);
        }
    }
}

TEST_F(OutputSize, LeavesThePictureWhereItIsTheInputs) {
    EXPECT_TRUE(render("alpha.png", "same.png", {"--output-size", "96x64"}) ==
                render("alpha.png", "full.png", {}));
}

TEST_F(OutputSize, IsThatOfBothPicturesOfAComparison) {
    const Frame full = render("opaque.jpg", "full.png", {}, "compare");
    ASSERT_EQ(full.size(), (media::FrameSize{192, 64}));
    EXPECT_TRUE(render("opaque.jpg", "small.png", {"--output-size", "96x32"}, "compare") ==
                media::areaScaled(full, {96, 32}));
}

TEST_F(OutputSize, WhereNoAlphaIsStoredColoursAreNotWeighedByIt) {
    media::Frame half({2, 1}, Depth::Bits8);
    const std::uint8_t pixels[] = {200, 200, 200, 255, 100, 100, 100, 0};
    std::ranges::copy(pixels, half.row8(0));
    media::writeStill(folder.file("half.png"), half);
    const Outcome outcome = ruvex({"render", folder.file("half.png"), "-o", folder.file("out.jpg"),
                                   "--preset", "Good TV", "--output-size", "1x1"});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    const Frame one = media::readStill(folder.file("out.jpg")).frame;
    EXPECT_NEAR(one.row8(0)[0], 150, 2);
}

TEST_F(OutputSize, KeepsTheShapeOfThePicture) {
    render("clip.mp4", "out.mkv", {"--output-size", "48x64"});
    EXPECT_TRUE(holds(media::probe(folder.file("out.mkv"), "stream=sample_aspect_ratio"), "=2:1"));
    render("clip.mp4", "out.mkv", {"--output-size", "31x21"});
    EXPECT_TRUE(holds(media::probe(folder.file("out.mkv"), "stream=sample_aspect_ratio"), "=1:1"));
}

TEST_F(OutputSize, IsInTheSavedJob) {
    const Frame direct = render("clip.mp4", "direct.mkv", {"--output-size", "48x32"});
    ASSERT_EQ(run("render", "clip.mp4", "out.mkv",
                  {"--output-size", "48x32", "--result-alpha", "effect", "--save-job",
                   folder.file("job.json")})
                  .status,
              0);
    std::ifstream file(folder.file("job.json"));
    const std::string job{std::istreambuf_iterator<char>(file), {}};
    EXPECT_TRUE(holds(job, R"("resultAlpha": "effect")")) << job;
    ASSERT_EQ(ruvex({"run", folder.file("job.json")}).status, 0);
    Frame again;
    ASSERT_TRUE(media::openReader(folder.file("out.mkv"))->read(0, again));
    EXPECT_EQ(again.size(), direct.size());
}

TEST_F(OutputSize, WrongSizesAreRefused) {
    for (const char* size : {"0x10", "10", "70000x40000"}) {
        EXPECT_EQ(run("render", "opaque.jpg", "out.png", {"--output-size", size}).status, 2)
            << size;
    }
    EXPECT_FALSE(std::filesystem::exists(folder.file("out.png")));
}

}  // namespace
}  // namespace ruvex::cli
