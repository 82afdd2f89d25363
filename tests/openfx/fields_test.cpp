// Interlaced clips: each field by itself, at its own time.

#include "tests/openfx/built_plug_in.h"
#include "tests/openfx/reference_clip.h"

namespace ruvex::ofxhost::test {
namespace {

constexpr int kFieldWidth = 48;
constexpr int kFieldHeight = 36;
constexpr int kFieldFrames = 4;

ClipSetup interlaced(const char* order) {
    ClipSetup clip = noiseClip(kFieldWidth, kFieldHeight, {}, false);
    clip.fieldOrder = order;
    return clip;
}

Changes tornPreset() {
    Changes changes = presetNamed("Bad Colour TV");
    changes.emplace_back(looks::Setting{ParameterId::MasterBreakup, 85.0});
    return changes;
}

/// Frames of `ruvex render --fields`.
std::vector<Raster> expectedFrames(const char* order) {
    const ReferenceClip reference(interlaced(order), kFieldFrames);
    jobs::RenderJob job = reference.job(tornPreset());
    job.fields = true;
    const bool lower = std::string(order) == kOfxImageFieldLower;
    job.fieldOrder = lower ? media::FieldOrder::BottomFirst : media::FieldOrder::TopFirst;
    return reference.render(job);
}

/// The rows of a field; the lower one has the even ones.
std::vector<std::byte> fieldRows(const Raster& raster, const char* field) {
    std::vector<std::byte> bytes;
    const int first = std::string(field) == kOfxImageFieldLower ? 0 : 1;
    for (int y = first; y < kFieldHeight; y += 2) {
        bytes.insert(bytes.end(), raster.row(y), raster.row(y) + raster.rowBytes());
    }
    return bytes;
}

std::unique_ptr<BuiltInstance> torn(const ClipSetup& clip) {
    auto built = std::make_unique<BuiltInstance>(clip);
    built->choosePreset("Bad Colour TV");
    built->instance.set("masterBreakup", 85.0);
    built->instance.set("resultAlpha", 1.0);
    return built;
}

TEST(Fields, AreThoseOfARenderWhetherTheHostGivesThemOneTimeOrTwo) {
    for (const char* order : {kOfxImageFieldLower, kOfxImageFieldUpper}) {
        const auto expected = expectedFrames(order);
        const auto built = torn(interlaced(order));
        for (int frame = 0; frame < kFieldFrames; ++frame) {
            for (const char* field : {kOfxImageFieldLower, kOfxImageFieldUpper}) {
                const bool second = std::string(field) != order;
                for (const double later : {0.0, 0.5}) {
                    if (!second && later > 0.0) continue;
                    RenderArgs args;
                    args.time = frame + later;
                    args.field = field;
                    const RenderResult result = built->instance.render(args);
                    EXPECT_EQ(result.status, kOfxStatOK);
                    EXPECT_EQ(fieldRows(result.output, field), fieldRows(expected.at(frame), field))
                        << order << " first, " << field << " of frame " << frame;
                }
            }
        }
    }
}

/// The field of frame 1 that comes second in an interlaced frame with the lower field first.
std::vector<std::byte> upperField(BuiltInstance& built) {
    RenderArgs args;
    args.time = 1.0;
    args.field = kOfxImageFieldUpper;
    return fieldRows(built.instance.render(args).output, kOfxImageFieldUpper);
}

void setFieldOrder(BuiltInstance& built, const char* clip, const char* order) {
    built.instance.effect().clip(clip)->properties.set(kOfxImageClipPropFieldOrder, text(order));
}

TEST(Fields, TheirOrderIsThatOfTheOutputIfTheSourceHasNone) {
    const auto expected = upperField(*torn(interlaced(kOfxImageFieldLower)));
    const auto built = torn(interlaced(kOfxImageFieldNone));
    setFieldOrder(*built, kOfxImageEffectOutputClipName, kOfxImageFieldLower);
    EXPECT_EQ(upperField(*built), expected);
    setFieldOrder(*built, kOfxImageEffectOutputClipName, kOfxImageFieldUpper);
    const auto first = upperField(*built);
    EXPECT_NE(first, expected);
    setFieldOrder(*built, kOfxImageEffectOutputClipName, kOfxImageFieldNone);
    EXPECT_EQ(upperField(*built), first) << "without an order both fields have the frame's time";
    setFieldOrder(*built, kOfxImageEffectSimpleSourceClipName, kOfxImageFieldLower);
    setFieldOrder(*built, kOfxImageEffectOutputClipName, kOfxImageFieldUpper);
    EXPECT_EQ(upperField(*built), expected) << "the source decides";
}

TEST(Fields, TheTwoOfAFrameDiffer) {
    const auto built = torn(interlaced(kOfxImageFieldLower));
    RenderArgs args;
    args.time = 2.0;
    args.field = kOfxImageFieldUpper;
    const Raster upper = built->instance.render(args).output;
    const auto whole = torn(noiseClip(kFieldWidth, kFieldHeight, {}, false));
    args.field = kOfxImageFieldNone;
    const Raster progressive = whole->instance.render(args).output;
    EXPECT_NE(fieldRows(upper, kOfxImageFieldUpper), fieldRows(progressive, kOfxImageFieldUpper));
}

TEST(Fields, TheOtherLinesAreNotWritten) {
    const auto built = torn(interlaced(kOfxImageFieldLower));
    RenderArgs args;
    args.field = kOfxImageFieldLower;
    const RenderResult result = built->instance.render(args);
    const auto others = fieldRows(result.output, kOfxImageFieldUpper);
    EXPECT_EQ(others, std::vector<std::byte>(others.size(), kUntouched));
}

TEST(Fields, BothAtOnceAreAWholeFrame) {
    RenderArgs args;
    args.time = 1.0;
    args.field = kOfxImageFieldBoth;
    const RenderResult result =
        torn(noiseClip(kFieldWidth, kFieldHeight, {}, false))->instance.render(args);
    EXPECT_EQ(
        result.output.bytes,
        referenceFrame(noiseClip(kFieldWidth, kFieldHeight, {}, false), 1, tornPreset()).bytes);
}

}  // namespace
}  // namespace ruvex::ofxhost::test
