// What the plug-in answers when a host asks for regions, preferences and identity; pixel aspects.

#include "tests/openfx/built_plug_in.h"
#include "tests/openfx/reference_clip.h"

namespace ruvex::ofxhost::test {
namespace {

constexpr OfxRectD kSmallPart{3.0, 4.0, 9.0, 8.0};

bool isRect(const std::optional<OfxRectD>& rect, const OfxRectD& wanted) {
    return rect && rect->x1 == wanted.x1 && rect->y1 == wanted.y1 && rect->x2 == wanted.x2 &&
           rect->y2 == wanted.y2;
}

TEST(Queries, APartNeedsTheWholeSource) {
    BuiltInstance built(noiseClip(40, 30));
    const OfxRectD whole{0.0, 0.0, 40.0, 30.0};
    EXPECT_TRUE(isRect(built.instance.regionOfInterest(1.0, kSmallPart), whole));
    EXPECT_TRUE(isRect(built.instance.regionOfDefinition(1.0), whole));
    EXPECT_TRUE(isRect(built.instance.regionOfDefinition(1.0, {0.5, 0.5}), whole))
        << "canonical coordinates do not depend on the render scale";
}

TEST(Queries, FramesVaryAndTheOutputIsLikeTheSource) {
    for (const char* components : {kOfxImageComponentRGBA, kOfxImageComponentRGB}) {
        BuiltInstance built(noiseClip(40, 30, {kOfxBitDepthShort, components}));
        const auto preferences = built.instance.clipPreferences();
        EXPECT_EQ(preferences->number(kOfxImageEffectFrameVarying), 1);
        EXPECT_EQ(preferences->text("OfxImageClipPropComponents_Output"), components);
        EXPECT_EQ(preferences->text("OfxImageClipPropDepth_Output"), kOfxBitDepthShort);
        EXPECT_EQ(preferences->text(kOfxImageEffectPropPreMultiplication),
                  kOfxImageUnPreMultiplied);
    }
}

TEST(Queries, TheFormOfTheOutputIsTheHostsWhateverTheSourceSaysMeanwhile) {
    const std::pair<const char*, const char*> stale[] = {
        {kOfxImageComponentNone, kOfxBitDepthNone}, {kOfxImageComponentAlpha, kOfxBitDepthByte}};
    for (const auto& [components, depth] : stale) {
        BuiltInstance built(noiseClip(40, 30, {kOfxBitDepthShort, kOfxImageComponentRGB}));
        built.instance.source().properties.set(kOfxImageEffectPropComponents, text(components));
        built.instance.source().properties.set(kOfxImageEffectPropPixelDepth, text(depth));
        const auto preferences = built.instance.clipPreferences();
        EXPECT_EQ(preferences->text("OfxImageClipPropComponents_Output"), kOfxImageComponentRGB);
        EXPECT_EQ(preferences->text("OfxImageClipPropDepth_Output"), kOfxBitDepthShort);
    }
}

TEST(Queries, OnlyAPictureThatIsUnchangedMayBeCalledIdentity) {
    for (const char* look : {"Clean", "Bad Colour TV"}) {
        BuiltInstance built(noiseClip(40, 30));
        built.choosePreset(look);
        const auto identity = built.instance.identity(2.0);
        if (!identity) continue;
        RenderArgs args;
        args.time = 2.0;
        const auto shown = built.instance.source().setup().picture(identity->time, {1.0, 1.0});
        EXPECT_EQ(built.instance.render(args).output.bytes, shown->bytes) << look;
    }
}

// The canonical width of a picture is that of its pixels times their aspect.
TEST(Queries, PixelAspectsAreThoseOfARender) {
    constexpr double kAspect = 2.0;
    const ClipSetup square = noiseClip(48, 36, {}, false);
    ClipSetup wide = square;
    wide.pixelAspect = kAspect;
    wide.regionOfDefinition = OfxRectD{0.0, 0.0, 48.0 * kAspect, 36.0};
    Changes changes = presetNamed("Bad Colour TV");
    changes.emplace_back(looks::Setting{ParameterId::LineAngle, 40.0});
    const ReferenceClip reference(square, 3);
    jobs::RenderJob job = reference.job(changes);
    const Raster expectedSquare = reference.render(job).at(2);
    job.pixelAspect = kAspect;
    const Raster expectedWide = reference.render(job).at(2);
    EXPECT_NE(expectedWide.bytes, expectedSquare.bytes) << "the look depends on the aspect";
    for (const auto& [clip, expected] :
         {std::pair{square, expectedSquare}, std::pair{wide, expectedWide}}) {
        BuiltInstance built(clip);
        built.choosePreset("Bad Colour TV");
        built.instance.set("lineAngle", 40.0);
        built.instance.set("resultAlpha", 1.0);
        RenderArgs args;
        args.time = 2.0;
        EXPECT_EQ(built.instance.render(args).output.bytes, expected.bytes) << clip.pixelAspect;
    }
}

// A matte goes the way of a picture's alpha.
TEST(Queries, AlphaAloneIsTheAlphaOfAPicture) {
    const PixelFormat matteFormat{kOfxBitDepthByte, kOfxImageComponentAlpha};
    const ClipSetup picture = noiseClip(48, 36, {}, false);
    ClipSetup matte = picture;
    matte.format = matteFormat;
    matte.picture = [&](double time, const OfxPointD& scale) -> std::optional<Raster> {
        const Raster rgba = *picture.picture(time, scale);
        Raster alpha(rgba.bounds, matteFormat);
        for (std::size_t i = 0; i < alpha.bytes.size(); ++i) alpha.bytes[i] = rgba.bytes[4 * i + 3];
        return alpha;
    };
    const auto rendered = [](const ClipSetup& clip) {
        BuiltInstance built(clip);
        built.choosePreset("Bad Colour TV");
        built.instance.set("resultAlpha", 1.0);
        RenderArgs args;
        args.time = 2.0;
        return built.instance.render(args).output;
    };
    const Raster expected = rendered(picture);
    const Raster result = rendered(matte);
    ASSERT_EQ(result.bytes.size() * 4, expected.bytes.size());
    for (std::size_t i = 0; i < result.bytes.size(); ++i) {
        ASSERT_EQ(result.bytes[i], expected.bytes[4 * i + 3]) << i;
    }
}

}  // namespace
}  // namespace ruvex::ofxhost::test
