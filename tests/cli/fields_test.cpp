// Each field rendered as a picture of its own.

#include "media/pixels/fields.h"

#include <gtest/gtest.h>

#include "looks/presets.h"
#include "looks/ruvex_control.h"
#include "looks/session_look.h"
#include "media/stills/raw_frame.h"
#include "media/stills/still_file.h"
#include "parameters/presets.h"
#include "runtime/images.h"
#include "tests/cli/run_command.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::cli {
namespace {

using media::Depth;
using media::Field;
using media::FieldOrder;
using media::Frame;
using media::FrameSize;

const Arguments kNoBreakup = {"--set", "Master Breakup=0", "--set",    "Breakup Variation=0",
                              "--set", "Play Mode=DVD",    "--fields", "--workers",
                              "2"};
const Arguments kTop = {"--field-order", "top"};
const Arguments kBottom = {"--field-order", "bottom"};

/// Numbered raw frames of noise; an odd height, so that the fields differ in theirs.
class Fields : public testing::TestWithParam<Depth> {
protected:
    static constexpr FrameSize kSize{24, 17};
    static constexpr int kFrames = 7;

    Fields() {
        for (int k = 0; k < kFrames; ++k) {
            media::writeRawFrame(file("in", k), input(k));
        }
    }

    std::string ending() const { return GetParam() == Depth::Bits8 ? ".rgba8" : ".s214"; }
    std::string file(const std::string& name, int k) const {
        return folder.file(name + "." + std::to_string(k) + ending());
    }
    Frame input(int k) const {
        return media::noiseFrame(kSize, GetParam(), static_cast<unsigned>(k), true);
    }
    Frame field(int k, Field field) const {
        Frame picture;
        media::takeField(input(k), field, picture);
        return picture;
    }

    Outcome run(const std::string& out, const Arguments& more) const {
        return ruvex(Arguments{"render", folder.file("in.%d" + ending()), "-o",
                               folder.file(out + ".%d" + ending()), "--size", "24x17"} +
                     more);
    }
    void render(const std::string& out, const Arguments& more) const {
        const Outcome outcome = run(out, more);
        ASSERT_EQ(outcome.status, 0) << outcome.err;
    }
    Frame result(const std::string& out, int k) const {
        return media::readRawFrame(file(out, k), kSize, GetParam());
    }

    files::TempFolder folder;
};

INSTANTIATE_TEST_SUITE_P(Depths, Fields, testing::Values(Depth::Bits8, Depth::S214));

TEST_P(Fields, AreWovenAsTheyWere) {
    for (const Arguments& order : {kTop, kBottom}) {
        render("out", kNoBreakup + order);
        for (int k = 0; k < kFrames; ++k) {
            EXPECT_EQ(result("out", k), input(k)) << k;
        }
    }
}

/// The effect as another host would run it: a picture of half the height that fills the project's
/// frame, and fields of the same kind at the times of other frames.
class Host {
public:
    Host(const Frame& whole, const Arguments& parameters)
        : project_{whole.width(), whole.height(), 1.0, 25.0}, depth_(whole.depth()) {
        session_.emplace(
            runtime::EffectSession::Setup{.module = runtime::Module::load(RUVEX_MODULE_FILE),
                                          .project = project_,
                                          .provider = frames_});
        looks::ruvexControl(*session_).setWorkerCount(2);
        looks::applyChanges(*session_, looks::presetChanges(*findPreset(parameters.at(1))));
    }

    Frame render(const Frame& picture, double seconds) {
        const GUID& format = depth_ == Depth::Bits8 ? MFIF_RGBA_RAW_32 : MFIF_RGBA_S2_14;
        const auto image = [&](const Frame& pixels) {
            auto made =
                runtime::makeProjectImage(project_, pixels.width(), pixels.height(), format);
            std::copy(pixels.bytes().begin(), pixels.bytes().end(), made->bytes());
            return made;
        };
        frames_->image = [&] { return image(picture); };
        Frame result(picture.size(), depth_);
        const auto output = image(result);
        runtime::RenderRequest request;
        request.seconds = seconds;
        request.input = image(picture);
        request.output = output;
        session_->render(request);
        std::copy_n(output->bytes(), result.bytes().size(), result.bytes().begin());
        return result;
    }

private:
    /// At the usual speed no other frame is asked for than the one whose field is rendered.
    struct Frames : runtime::InputProvider {
        ComPtr<IDSImage> imageAt(double) override { return image(); }
        std::function<ComPtr<IDSImage>()> image;
    };

    runtime::Project project_;
    Depth depth_;
    std::shared_ptr<Frames> frames_ = std::make_shared<Frames>();
    std::optional<runtime::EffectSession> session_;
};

TEST_P(Fields, AreRenderedAtTheirOwnTimes) {
    const Arguments look = {"--preset", "Bad Colour TV"};
    for (const auto& [order, first, second] :
         {std::tuple{kTop, Field::Top, Field::Bottom}, {kBottom, Field::Bottom, Field::Top}}) {
        render("out", look + order + Arguments{"--fields", "--workers", "2"});
        Host host(input(0), look);
        for (int k = 0; k < kFrames; ++k) {
            Frame woven(kSize, GetParam());
            media::putField(host.render(field(k, first), k / 25.0), first, woven);
            media::putField(host.render(field(k, second), (k + 0.5) / 25.0), second, woven);
            EXPECT_EQ(result("out", k), woven) << k;
        }
        EXPECT_NE(result("out", 3), input(3));
    }
}

TEST_P(Fields, OfFramesThatAreHeldAreBothHeld) {
    render("out", kNoBreakup + kTop + Arguments{"--set", "Repeat Frames=3"});
    for (int k = 0; k < kFrames; ++k) {
        EXPECT_EQ(result("out", k), input(k - k % 3)) << k;
    }
}

// A frame at half the speed, so that both fields of two frames come from one.
TEST_P(Fields, OfClipsThatArePlayedSlowlyStayOnTheirLines) {
    render("out", kNoBreakup + kBottom + Arguments{"--set", "Play Speed=50"});
    for (int k = 0; k < kFrames; ++k) {
        EXPECT_EQ(result("out", k), input(k / 2)) << k;
    }
}

TEST_P(Fields, AreComparedAsFrames) {
    const Outcome outcome =
        ruvex(Arguments{"compare", folder.file("in.%d" + ending()), "-o",
                        folder.file("both.%d" + ending()), "--size", "24x17", "--frames", "2-2"} +
              kNoBreakup + kTop);
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    const Frame both = media::readRawFrame(file("both", 2), {48, 17}, GetParam());
    for (int row = 0; row < kSize.height; ++row) {
        const std::byte* after = both.row(row) + both.rowBytes() / 2;
        EXPECT_TRUE(std::equal(after, after + both.rowBytes() / 2, input(2).row(row))) << row;
    }
}

TEST_P(Fields, AreTheSameWithSeveralJobs) {
    const Arguments look = {"--preset", "Bad Colour TV", "--fields", "--field-order",
                            "top",      "--workers",     "1"};
    render("one", look);
    render("many", look + Arguments{"--jobs", "3"});
    for (int k = 0; k < kFrames; ++k) {
        EXPECT_EQ(result("one", k), result("many", k)) << k;
    }
}

TEST_P(Fields, HaveTheirLinesOfTheRegion) {
    const Arguments look = kNoBreakup + kTop;
    for (const auto& [y, height] : {std::pair{0, 17}, {3, 8}, {4, 7}, {5, 1}, {6, 1}, {15, 2}}) {
        const std::string region = "2," + std::to_string(y) + ",9," + std::to_string(height);
        render("out", look + Arguments{"--region", region});
        Frame expected(kSize, GetParam());
        const Frame source = input(1);
        for (int row = y; row < y + height; ++row) {
            const auto pixel = static_cast<std::ptrdiff_t>(media::bytesPerPixel(GetParam()));
            std::copy_n(source.row(row) + 2 * pixel, 9 * pixel, expected.row(row) + 2 * pixel);
        }
        EXPECT_EQ(result("out", 1), expected) << region;
    }
}

TEST_P(Fields, HaveTheirLinesOfTheMask) {
    const Arguments look = kNoBreakup + kTop + Arguments{"--set", "Scanline Width=6"};
    render("plain", look);
    Frame mask(kSize, Depth::Bits8);
    for (int row = 0; row < kSize.height; ++row) {
        const bool through = row % 3 == 0;
        std::fill_n(mask.row(row), mask.rowBytes(), through ? std::byte{255} : std::byte{});
    }
    media::writeStill(folder.file("mask.png"), mask);
    render("out", look + Arguments{"--mask", folder.file("mask.png")});
    for (int k = 0; k < kFrames; ++k) {
        Frame expected = input(k);
        const Frame effect = result("plain", k);
        EXPECT_NE(effect, expected);
        for (int row = 0; row < kSize.height; row += 3) {
            std::copy_n(effect.row(row), effect.rowBytes(), expected.row(row));
        }
        EXPECT_EQ(result("out", k), expected) << k;
    }
}

TEST_P(Fields, NeedAnOrder) {
    EXPECT_EQ(run("out", {"--fields"}).status, 2);
    EXPECT_EQ(run("out", {"--fields", "--field-order", "none"}).status, 2);
    EXPECT_EQ(run("out", {"--fields", "--field-order", "upper"}).status, 2);
    EXPECT_NE(run("out", {"--fields"}).err.find("--field-order"), std::string::npos);
    const Outcome told = run("out", {"--fields", "--field-order", "bottom", "--dry-run"});
    EXPECT_EQ(told.status, 0);
    EXPECT_NE(told.out.find("each field by itself, bottom field first"), std::string::npos)
        << told.out;
}

TEST(FieldsOfOneLine, AreRefused) {
    files::TempFolder folder;
    media::writeRawFrame(folder.file("a.rgba8"), Frame({4, 1}, Depth::Bits8));
    EXPECT_EQ(ruvex({"render", folder.file("a.rgba8"), "-o", folder.file("b.rgba8"), "--size",
                     "4x1", "--fields", "--field-order", "top"})
                  .status,
              2);
}

TEST(FieldsOfVideo, AreFoundByItsMarks) {
    files::TempFolder folder;
    media::runFfmpeg(
        media::movingPicture("96x64", "25", 0.4) + " -c:v mpeg2video -flags +ildct+ilme -top 0",
        folder.file("in.mkv"));
    const Arguments job = {"render", folder.file("in.mkv"), "-o", folder.file("out.mkv"),
                           "--set",  "Master Breakup=70"};
    const Outcome whole = ruvex(job);
    EXPECT_EQ(whole.status, 0);
    EXPECT_NE(whole.err.find("bottom field first"), std::string::npos) << whole.err;
    const Outcome fields = ruvex(job + Arguments{"--fields"});
    EXPECT_EQ(fields.status, 0);
    EXPECT_EQ(fields.messages(), "");
    EXPECT_EQ(media::probe(folder.file("out.mkv"), "stream=field_order,nb_read_frames"),
              "field_order=bb\nnb_read_frames=10\n");
    ASSERT_EQ(ruvex(job + Arguments{"--field-order", "none"}).status, 0);
    EXPECT_EQ(media::probe(folder.file("out.mkv"), "stream=field_order"), "field_order=unknown\n");
}

}  // namespace
}  // namespace ruvex::cli
