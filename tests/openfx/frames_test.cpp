// Frames of the plug-in against those of `ruvex render`.

#include <fstream>
#include <iterator>

#include "tests/media/test_clips.h"
#include "tests/openfx/built_plug_in.h"
#include "tests/openfx/reference_clip.h"

namespace ruvex::ofxhost::test {
namespace {

/// Results with the effect's alpha, as raw frames of a render have it.
constexpr double kEffectAlpha = 1.0;

Raster rendered(BuiltInstance& built, double time) {
    RenderArgs args;
    args.time = time;
    const RenderResult result = built.instance.render(args);
    EXPECT_EQ(result.status, kOfxStatOK);
    return result.output;
}

TEST(Frames, PresetsOfEightBitsHaveTheBytesOfARender) {
    for (const auto& [width, height] : {std::pair{72, 50}, std::pair{129, 97}}) {
        for (const char* preset : {"Bad Colour TV", "Cable Out"}) {
            const ClipSetup clip = noiseClip(width, height, {}, false);
            const auto expected = ReferenceClip(clip, 4).render(presetNamed(preset));
            BuiltInstance built(clip);
            built.choosePreset(preset);
            built.instance.set("resultAlpha", kEffectAlpha);
            for (const int frame : {0, 1, 2, 3}) {
                EXPECT_EQ(rendered(built, frame).bytes, expected.at(frame).bytes)
                    << preset << " " << width << " frame " << frame;
            }
            EXPECT_NE(expected[0].bytes, clip.picture(0.0, {1.0, 1.0})->bytes);
        }
    }
}

TEST(Frames, AnOpaqueSourceGivesAnOpaqueResultWithTheSameColours) {
    const ClipSetup clip = noiseClip(72, 50);
    const Raster effect = referenceFrame(clip, 2, presetNamed("Bad Colour TV"));
    BuiltInstance built(clip);
    built.choosePreset("Bad Colour TV");
    EXPECT_EQ(rendered(built, 2.0).bytes, withoutAlpha(effect).bytes);
    EXPECT_NE(withoutAlpha(effect).bytes, effect.bytes) << "the preset has transparent parts";
}

TEST(Frames, AnInstanceInTheGeneralContextRendersTheSame) {
    const ClipSetup clip = noiseClip(72, 50);
    InstanceSetup general = setupFor(clip);
    general.context = kOfxImageEffectContextGeneral;
    BuiltInstance filter(clip);
    BuiltInstance other(general);
    EXPECT_EQ(rendered(filter, 3.0).bytes, rendered(other, 3.0).bytes);
}

TEST(Frames, FloatsGoThroughS214) {
    // Steps of 1 / white, so that a raw frame holds the same picture.
    constexpr float kWhite = 16384.0f;
    ClipSetup clip = noiseClip(72, 50, {kOfxBitDepthFloat}, false);
    const auto picture = clip.picture;
    clip.picture = [picture](double time, const OfxPointD& scale) {
        auto raster = picture(time, scale);
        for (std::size_t at = 0; at < raster->bytes.size(); at += sizeof(float)) {
            float sample = 0.0f;
            std::memcpy(&sample, raster->bytes.data() + at, sizeof sample);
            sample = std::floor(sample * kWhite) / kWhite;
            std::memcpy(raster->bytes.data() + at, &sample, sizeof sample);
        }
        return raster;
    };
    BuiltInstance built(clip);
    built.choosePreset("Bad Colour TV");
    built.instance.set("resultAlpha", kEffectAlpha);
    EXPECT_EQ(rendered(built, 2.0).bytes,
              referenceFrame(clip, 2, presetNamed("Bad Colour TV")).bytes);
}

/// The bytes of a file.
std::vector<std::byte> contentOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    const std::vector<char> read{std::istreambuf_iterator<char>(stream), {}};
    std::vector<std::byte> bytes(read.size());
    std::memcpy(bytes.data(), read.data(), read.size());
    return bytes;
}

/// A picture with its rows in the opposite order, as files have them.
Raster turned(const Raster& raster) {
    Raster result = raster;
    for (int y = raster.bounds.y1; y < raster.bounds.y2; ++y) {
        std::memcpy(result.row(raster.bounds.y2 - 1 - y + raster.bounds.y1), raster.row(y),
                    raster.rowBytes());
    }
    return result;
}

/// What the command makes of a still, by way of PNG files; pixels in ffmpeg's format `pixels`.
Raster byTheCommand(const Raster& still, const std::string& pixels, const std::string& options) {
    const files::TempFolder folder;
    const Raster lines = turned(still);
    const std::string raw = "-f rawvideo -pix_fmt " + pixels + " -s " +
                            std::to_string(widthOf(still.bounds)) + "x" +
                            std::to_string(heightOf(still.bounds)) + " -i ";
    std::ofstream(folder.file("in.raw"), std::ios::binary)
        .write(reinterpret_cast<const char*>(lines.bytes.data()),
               static_cast<std::streamsize>(lines.bytes.size()));
    media::runFfmpeg(raw + media::quoted(folder.file("in.raw")), folder.file("in.png"));
    const std::string command =
        media::quoted(RUVEX_COMMAND) + " render " + media::quoted(folder.file("in.png")) + " -o " +
        media::quoted(folder.file("out.png")) + " --workers 8 --quiet " + options;
    EXPECT_EQ(std::system(command.c_str()), 0) << command;
    media::runFfmpeg(
        "-i " + media::quoted(folder.file("out.png")) + " -f rawvideo -pix_fmt " + pixels,
        folder.file("out.raw"));
    Raster result(still.bounds, still.format);
    result.bytes = contentOf(folder.file("out.raw"));
    EXPECT_EQ(result.bytes.size(), still.bytes.size());
    return turned(result);
}

TEST(Frames, TheCommandMakesTheSameOfAStill) {
    for (const auto& [depth, pixels] :
         {std::pair{kOfxBitDepthByte, "rgba"}, std::pair{kOfxBitDepthShort, "rgba64le"}}) {
        const ClipSetup clip = noiseClip(96, 64, {depth}, false);
        BuiltInstance built(clip);
        built.choosePreset("Bad Colour TV");
        built.instance.set("masterBreakup", 80.0);
        built.instance.set("resultAlpha", kEffectAlpha);
        EXPECT_EQ(rendered(built, 0.0).bytes,
                  byTheCommand(*clip.picture(0.0, {1.0, 1.0}), pixels,
                               "--preset 'Bad Colour TV' --set 'Master Breakup=80'")
                      .bytes)
            << depth;
    }
}

TEST(Frames, FirstFrameMovesTheEffectsTime) {
    const ClipSetup clip = noiseClip(72, 50, {}, false);
    BuiltInstance built(clip);
    built.choosePreset("Bad Colour TV");
    built.instance.set("resultAlpha", kEffectAlpha);
    built.instance.set("firstFrame", 100.0);
    // Frame 102 of the host is frame 2 of the effect, with the picture of frame 102.
    ClipSetup later = clip;
    later.picture = [&](double time, const OfxPointD& s) { return clip.picture(time + 100.0, s); };
    EXPECT_EQ(rendered(built, 102.0).bytes,
              referenceFrame(later, 2, presetNamed("Bad Colour TV")).bytes);
}

TEST(Frames, LengthsReferToTheFrameThatTheUserGives) {
    const ClipSetup clip = noiseClip(72, 50, {}, false);
    const ReferenceClip reference(clip, 2);
    jobs::RenderJob job = reference.job(presetNamed("Bad Colour TV"));
    job.projectSize = media::FrameSize{720, 500};
    BuiltInstance built(clip);
    built.choosePreset("Bad Colour TV");
    built.instance.set("resultAlpha", kEffectAlpha);
    const Raster usual = rendered(built, 1.0);
    built.instance.set("frameWidth", 720.0);
    built.instance.set("frameHeight", 500.0);
    const Raster large = rendered(built, 1.0);
    EXPECT_EQ(large.bytes, reference.render(job).at(1).bytes);
    EXPECT_NE(large.bytes, usual.bytes);
}

}  // namespace
}  // namespace ruvex::ofxhost::test
