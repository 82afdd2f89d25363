// The alpha of a result, by what the input has and what is asked for.

#include <gtest/gtest.h>

#include "media/frame_reader.h"
#include "media/pixels/alpha.h"
#include "media/stills/raw_frame.h"
#include "media/stills/still_file.h"
#include "tests/cli/run_command.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::cli {
namespace {

using media::Depth;
using media::Frame;

constexpr media::FrameSize kStillSize{64, 48};

/// A picture without alpha, a clip of it, and the same with alpha.
class ResultAlphaOf : public testing::Test {
protected:
    ResultAlphaOf() {
        Frame picture = media::noiseFrame(kStillSize, Depth::Bits8, 5);
        media::writeStill(folder.file("alpha.png"), picture);
        media::makeOpaque(picture);
        media::writeStill(folder.file("opaque.jpg"), picture);
        media::runFfmpeg(media::movingPicture("64x48", "25", 0.2), folder.file("clip.mp4"));
    }

    /// The first frame of the result.
    Frame render(const std::string& in, const std::string& out, const Arguments& more = {}) const {
        Arguments line = {"render",   folder.file(in), "-o",        folder.file(out),
                          "--preset", "Cable Out",     "--workers", "2"};
        line.insert(line.end(), more.begin(), more.end());
        const Outcome outcome = ruvex(line);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        media::ReadOptions options;
        if (media::rawDepth(media::fileKind(out))) options.size = kStillSize;
        Frame frame;
        EXPECT_TRUE(media::openReader(folder.file(out), options)->read(0, frame));
        return frame;
    }

    files::TempFolder folder;
};

/// Alpha of ProRes is stored in 16 bits, of the rest exactly.
bool isOpaque(const Frame& frame) {
    Frame opaque = frame;
    media::makeOpaque(opaque);
    return opaque == frame;
}

TEST_F(ResultAlphaOf, APictureWithoutAlphaIsFullInEveryFormat) {
    for (const char* ending : {"png", "tif", "dpx", "exr", "mov", "mkv"}) {
        const std::string out = std::string("out.") + ending;
        EXPECT_TRUE(isOpaque(render("opaque.jpg", out))) << ending;
        EXPECT_FALSE(isOpaque(render("opaque.jpg", out, {"--result-alpha", "effect"}))) << ending;
    }
}

TEST_F(ResultAlphaOf, AClipWithoutAlphaIsFull) {
    EXPECT_TRUE(isOpaque(render("clip.mp4", "out.mkv")));
    EXPECT_FALSE(isOpaque(render("clip.mp4", "out.mkv", {"--result-alpha", "effect"})));
}

TEST_F(ResultAlphaOf, ColoursAreThoseThatTheEffectGives) {
    Frame effect = render("opaque.jpg", "effect.png", {"--result-alpha", "effect"});
    media::makeOpaque(effect);
    EXPECT_TRUE(render("opaque.jpg", "out.png") == effect);
    Frame deep = render("opaque.jpg", "effect.tif", {"--result-alpha", "effect", "--depth", "16"});
    media::makeOpaque(deep);
    EXPECT_TRUE(render("opaque.jpg", "out.tif", {"--depth", "16"}) == deep);
}

TEST_F(ResultAlphaOf, APictureWithAlphaIsAsTheEffectGivesIt) {
    const Frame usual = render("alpha.png", "out.png");
    EXPECT_FALSE(isOpaque(usual));
    EXPECT_TRUE(render("alpha.png", "out.png", {"--result-alpha", "effect"}) == usual);
    Frame opaque = usual;
    media::makeOpaque(opaque);
    EXPECT_TRUE(render("alpha.png", "out.png", {"--result-alpha", "opaque"}) == opaque);
}

TEST_F(ResultAlphaOf, RawFramesAreAsTheEffectGivesThem) {
    const Frame effect = render("opaque.jpg", "out.rgba8");
    EXPECT_FALSE(isOpaque(effect));
    EXPECT_TRUE(render("opaque.jpg", "out.rgba8", {"--result-alpha", "effect"}) == effect);
    EXPECT_TRUE(isOpaque(render("opaque.jpg", "out.rgba8", {"--result-alpha", "opaque"})));
    media::writeRawFrame(folder.file("in.rgba8"), effect);
    EXPECT_FALSE(isOpaque(render("in.rgba8", "out.png", {"--size", "64x48"})));
}

TEST_F(ResultAlphaOf, ASheetOfPresetsIsFull) {
    const Outcome outcome = ruvex({"presets", "--sheet", folder.file("opaque.jpg"), "-o",
                                   folder.file("sheet.png"), "--workers", "2"});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_TRUE(isOpaque(media::readStill(folder.file("sheet.png")).frame));
}

TEST_F(ResultAlphaOf, AnotherWordIsRefused) {
    const Outcome outcome = ruvex({"render", folder.file("opaque.jpg"), "-o",
                                   folder.file("out.png"), "--result-alpha", "full"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_TRUE(holds(outcome.err, "write effect or opaque")) << outcome.err;
}

}  // namespace
}  // namespace ruvex::cli
