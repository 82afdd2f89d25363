// Other frames of the clip: Play Speed and Repeat Frames.

#include "tests/openfx/built_plug_in.h"
#include "tests/openfx/reference_clip.h"

namespace ruvex::ofxhost::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;

constexpr int kTapeFrames = 12;

/// A clip that has no picture before its first and after its last frame.
ClipSetup shortClip() {
    ClipSetup clip = noiseClip(40, 30, {}, false);
    clip.frameRange = {0.0, kTapeFrames - 1.0};
    const auto picture = clip.picture;
    clip.picture = [=](double time, const OfxPointD& scale) -> std::optional<Raster> {
        if (time < 0.0 || time > kTapeFrames - 1.0) return std::nullopt;
        return picture(time, scale);
    };
    return clip;
}

struct TapeCase {
    const char* name;
    ParameterId id;
    double value;
    int frame;
    double shown;  ///< the frame that `ruvex render --ends hold` shows
};
constexpr TapeCase kTapes[] = {
    {"playSpeed", ParameterId::PlaySpeed, 200.0, 0, 0.0},
    {"playSpeed", ParameterId::PlaySpeed, 200.0, 4, 8.0},
    {"playSpeed", ParameterId::PlaySpeed, 200.0, 9, 11.0},  // after the last frame
    {"playSpeed", ParameterId::PlaySpeed, -100.0, 3, 0.0},  // before the first frame
    {"repeatFrames", ParameterId::RepeatFrames, 3.0, 5, 3.0},
    {"repeatFrames", ParameterId::RepeatFrames, 3.0, 11, 9.0},
    {"playSpeed", ParameterId::PlaySpeed, 0.0, 7, 0.0},
};

RenderResult renderedTape(BuiltInstance& built, const TapeCase& tape) {
    built.choosePreset("Bad Colour TV");
    built.instance.set("resultAlpha", 1.0);
    built.instance.set(tape.name, tape.value);
    RenderArgs args;
    args.time = tape.frame;
    const RenderResult result = built.instance.render(args);
    EXPECT_EQ(result.status, kOfxStatOK);
    return result;
}

Changes changesOf(const TapeCase& tape) {
    Changes changes = presetNamed("Bad Colour TV");
    changes.emplace_back(looks::Setting{tape.id, tape.value});
    return changes;
}

/// The frame of the case in a render of the clip.
Raster expectedOf(const ClipSetup& clip, const TapeCase& tape) {
    return ReferenceClip(clip, kTapeFrames).render(changesOf(tape)).at(tape.frame);
}

TEST(Tape, FetchesAndShowsTheFramesOfARender) {
    for (const TapeCase& tape : kTapes) {
        SCOPED_TRACE(std::string(tape.name) + std::to_string(tape.frame));
        BuiltInstance built(shortClip());
        const RenderResult result = renderedTape(built, tape);
        EXPECT_EQ(result.output.bytes, expectedOf(shortClip(), tape).bytes);
        EXPECT_THAT(result.sourceTimes(), Contains(tape.shown));
        bool announced = false;
        for (const OfxRangeD& range : built.instance.framesNeeded(tape.frame)) {
            announced |= range.min <= tape.shown && tape.shown <= range.max;
        }
        EXPECT_TRUE(announced) << "GetFramesNeeded has to name the frame";
    }
}

TEST(Tape, ATapeAtNormalSpeedFetchesOneFrame) {
    BuiltInstance built(shortClip());
    RenderArgs args;
    args.time = 5.0;
    EXPECT_THAT(built.instance.render(args).sourceTimes(), ElementsAre(5.0));
    const auto needed = built.instance.framesNeeded(5.0);
    ASSERT_EQ(needed.size(), 1u);
    EXPECT_EQ(needed[0].min, 5.0);
    EXPECT_EQ(needed[0].max, 5.0);
}

/// What a clip looks like to a host that has no other frames: one picture at all times.
ClipSetup stillOf(const ClipSetup& clip, double time) {
    ClipSetup still = clip;
    still.picture = [=](double, const OfxPointD& scale) { return clip.picture(time, scale); };
    return still;
}

TEST(Tape, WithoutOtherFramesThePictureAtHandIsUsed) {
    const TapeCase& tape = kTapes[1];
    const Raster expected = expectedOf(stillOf(shortClip(), tape.frame), tape);
    HostTraits withoutAccess;
    withoutAccess.temporalAccess = false;
    withoutAccess.otherTimes = OtherTimes::SameFrame;
    HostTraits refusing;
    refusing.otherTimes = OtherTimes::Refused;
    for (const HostTraits& traits : {withoutAccess, refusing}) {
        BuiltInstance built(shortClip(), traits);
        const RenderResult result = renderedTape(built, tape);
        EXPECT_EQ(result.output.bytes, expected.bytes);
        EXPECT_EQ(result.status, kOfxStatOK);
    }
}

TEST(Tape, AHostWithoutTemporalAccessIsNotAskedForOtherFrames) {
    HostTraits traits;
    traits.temporalAccess = false;
    BuiltInstance built(shortClip(), traits);
    for (const double time : renderedTape(built, kTapes[1]).sourceTimes()) {
        EXPECT_EQ(time, kTapes[1].frame);
    }
}

TEST(Tape, ClipsMayBeginAnywhere) {
    // Frame 100 of the host is the first one of clip and effect.
    ClipSetup late = shortClip();
    const auto picture = late.picture;
    late.frameRange = {100.0, 100.0 + kTapeFrames - 1.0};
    late.picture = [=](double time, const OfxPointD& s) { return picture(time - 100.0, s); };
    TapeCase tape = kTapes[2];
    const Raster expected = expectedOf(shortClip(), tape);
    BuiltInstance built(late);
    built.instance.set("firstFrame", 100.0);
    tape.frame += 100;
    EXPECT_EQ(renderedTape(built, tape).output.bytes, expected.bytes);
}

}  // namespace
}  // namespace ruvex::ofxhost::test
