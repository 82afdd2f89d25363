// Hosts that lack or refuse something, and what then comes out.

#include <limits>

#include "tests/openfx/built_plug_in.h"
#include "tests/openfx/reference_clip.h"

namespace ruvex::ofxhost::test {
namespace {

using ::testing::AnyOf;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr double kLackingTime = 2.0;
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

ClipSetup smallClip() {
    return noiseClip(36, 28);
}

RenderResult renderedIn(HostTraits traits, InstanceSetup setup = setupFor(smallClip()),
                        RenderArgs args = {}) {
    BuiltInstance built(std::move(setup), std::move(traits));
    EXPECT_TRUE(isDone(built.instance.status()));
    args.time = kLackingTime;
    return built.instance.render(args);
}

/// What a host that lacks nothing gets.
Raster usual() {
    return renderedIn({}).output;
}

TEST(Lacking, SuitesForMessagesAndInteractsAreNotNeeded) {
    HostTraits traits;
    traits.missingSuites = {kOfxMessageSuite, kOfxInteractSuite};
    traits.overlays = false;
    traits.background = true;
    EXPECT_EQ(renderedIn(traits).output.bytes, usual().bytes);
}

TEST(Lacking, ARenderNeedsFewProperties) {
    const std::set<std::string> without = {kOfxImageEffectPropFrameRate,
                                           kOfxImageEffectPropRegionOfDefinition,
                                           kOfxImagePropRegionOfDefinition,
                                           kOfxImagePropField,
                                           kOfxImagePropPixelAspectRatio,
                                           kOfxImageEffectPropFieldToRender,
                                           kOfxImageClipPropFieldOrder,
                                           kOfxImageEffectPropRenderScale,
                                           kOfxImageEffectPropProjectSize,
                                           kOfxImageEffectPropProjectOffset,
                                           kOfxImageEffectPropProjectExtent,
                                           kOfxImageEffectPropFrameRange,
                                           kOfxImagePropUniqueIdentifier,
                                           kOfxImageClipPropUnmappedPixelDepth,
                                           kOfxImageClipPropUnmappedComponents,
                                           kOfxParamPropIsAnimating,
                                           kOfxImageEffectPropTemporalClipAccess,
                                           kOfxPropInstanceData,
                                           kOfxImageClipPropConnected};
    const Raster expected = usual();
    for (const std::string& name : without) {
        HostTraits traits;
        traits.missingProperties = {name};
        const RenderResult result = renderedIn(traits);
        EXPECT_EQ(result.status, kOfxStatOK) << name;
        EXPECT_EQ(result.output.bytes, expected.bytes) << name;
    }
}

TEST(Lacking, ARateThatIsNoneIs25) {
    const Raster expected = usual();
    for (const double rate : {0.0, -1.0, kNan, kInfinity, 1e-300}) {
        InstanceSetup setup = setupFor(smallClip());
        setup.source.frameRate = rate;
        setup.project.frameRate = rate;
        EXPECT_EQ(renderedIn({}, setup).output.bytes, expected.bytes) << rate;
    }
}

TEST(Lacking, ARegionThatIsNoneIsTheProjectsOrTheImages) {
    const Raster expected = usual();
    const OfxRectD regions[] = {{0.0, 0.0, 0.0, 0.0},
                                {5.0, 5.0, -5.0, -5.0},
                                {-kInfinity, -kInfinity, kInfinity, kInfinity},
                                {kNan, kNan, kNan, kNan},
                                {-1e30, -1e30, 1e30, 1e30}};
    for (const OfxRectD& region : regions) {
        for (const double projectSize : {36.0, 0.0, kNan}) {
            InstanceSetup setup = setupFor(smallClip());
            const auto picture = setup.source.picture;
            // The host's own picture needs a region that is one; the plug-in asks the suite.
            HostTraits traits;
            traits.missingProperties = {kOfxImagePropRegionOfDefinition};
            setup.project.size = {projectSize, projectSize == 36.0 ? 28.0 : projectSize};
            BuiltInstance built(setup, traits);
            ClipSetup absurd = setup.source;
            absurd.regionOfDefinition = region;
            absurd.picture = picture;
            built.instance.source().connect(absurd);
            RenderArgs args;
            args.time = kLackingTime;
            args.outputBounds = {0, 0, 36, 28};
            EXPECT_EQ(built.instance.render(args).output.bytes, expected.bytes)
                << region.x1 << " " << projectSize;
        }
    }
}

TEST(Lacking, WithoutASourcePictureNothingIsMadeUp) {
    HostTraits traits;
    traits.intercept = [](const HostCall& call) {
        const bool source = call.name == kOfxImageEffectSimpleSourceClipName;
        return call.function == "clipGetImage" && source ? kOfxStatFailed : kOfxStatOK;
    };
    const RenderResult result = renderedIn(traits);
    // Transparent black is a source too; what a frame may not have is memory nobody wrote.
    if (result.status == kOfxStatOK) {
        EXPECT_NE(result.output.row(0)[0], kUntouched);
    } else {
        EXPECT_EQ(result.status, kOfxStatFailed);
    }
}

/// A host that refuses a property from call `first` on, up to but without call `end`.
HostTraits hostThatRefuses(const char* property, int first, int end) {
    HostTraits traits;
    traits.intercept = [=, calls = std::make_shared<int>(0)](const HostCall& call) {
        if (call.function != "propSet" || call.name != property) return kOfxStatOK;
        const int index = (*calls)++;
        return index >= first && index < end ? kOfxStatErrValue : kOfxStatOK;
    };
    return traits;
}

TEST(Lacking, TheContextFilterOneDepthAndRgbaAreEnough) {
    constexpr int kAll = 1000;
    const char* const contexts = kOfxImageEffectPropSupportedContexts;
    const char* const depths = kOfxImageEffectPropSupportedPixelDepths;
    const char* const components = kOfxImageEffectPropSupportedComponents;
    const auto prepared = [](const HostTraits& traits) { return BuiltPlugIn(traits).prepared; };
    EXPECT_EQ(prepared(hostThatRefuses(contexts, 0, 1)), kOfxStatErrMissingHostFeature);
    EXPECT_EQ(prepared(hostThatRefuses(components, 0, 1)), kOfxStatErrMissingHostFeature);
    EXPECT_EQ(prepared(hostThatRefuses(depths, 0, kAll)), kOfxStatErrMissingHostFeature);
    const BuiltPlugIn noByte(hostThatRefuses(depths, 0, 1));
    EXPECT_EQ(noByte.prepared, kOfxStatOK);
    EXPECT_THAT(noByte.plugIn.description()->properties.texts(depths),
                ElementsAre(kOfxBitDepthShort, kOfxBitDepthFloat));
    // The first one is set twice.
    const BuiltPlugIn filterAlone(hostThatRefuses(contexts, 2, kAll));
    EXPECT_EQ(filterAlone.prepared, kOfxStatOK);
    EXPECT_THAT(filterAlone.plugIn.description()->properties.texts(contexts),
                ElementsAre(kOfxImageEffectContextFilter));
    EXPECT_EQ(prepared(hostThatRefuses(kOfxPropLabel, 0, kAll)), kOfxStatOK);
}

/// A host whose images of the source say that they are at this scale.
HostTraits hostWithSourceScale(double scale) {
    HostTraits traits;
    traits.tamper = [=](PropertySet& set) {
        const bool source = set.text(kOfxImagePropUniqueIdentifier).starts_with("Source");
        if (source) set.set(kOfxImageEffectPropRenderScale, reals({scale, scale}));
    };
    return traits;
}

TEST(Lacking, AnImageAtAnotherScaleIsRefused) {
    const RenderResult result = renderedIn(hostWithSourceScale(0.5));
    EXPECT_EQ(result.status, kOfxStatFailed);
    const auto& bytes = result.output.bytes;
    EXPECT_EQ(bytes, std::vector<std::byte>(bytes.size(), kUntouched));
    BuiltInstance built(noiseClip(40, 30), hostWithSourceScale(0.25));
    EXPECT_EQ(built.instance.render().status, kOfxStatFailed);
}

TEST(Lacking, AnImageWithARoundedScaleOrNoneIsRead) {
    const Raster expected = usual();
    for (const double scale : {0.996, 1.004, 0.0, -1.0, kNan, kInfinity}) {
        EXPECT_EQ(renderedIn(hostWithSourceScale(scale)).output.bytes, expected.bytes) << scale;
    }
}

/// A host whose output images say this of their alpha.
HostTraits hostWithOutputAlpha(const char* alpha) {
    HostTraits traits;
    traits.tamper = [=](PropertySet& set) {
        const bool output = set.text(kOfxImagePropUniqueIdentifier).starts_with("output");
        if (output) set.set(kOfxImageEffectPropPreMultiplication, text(alpha));
    };
    return traits;
}

/// A frame with the effect's alpha, of a source in the form `source` whose output clip has the form
/// `clip` and whose output image has the form `image`; empty for a host that does not say.
std::vector<std::byte> frameWithAlphas(const char* source, const char* clip, const char* image) {
    ClipSetup setup = smallClip();
    setup.format.premultiplication = source;
    BuiltInstance built(setup, hostWithOutputAlpha(image));
    built.choosePreset("Bad Colour TV");
    built.instance.set("masterBreakup", 85.0);
    built.instance.set("borderAlpha", 1.0);
    built.instance.set("resultAlpha", 1.0);
    built.instance.set("cropLeft", 30.0);
    built.instance.set("blankCropped", 1.0);
    built.instance.effect()
        .clip(kOfxImageEffectOutputClipName)
        ->properties.set(kOfxImageEffectPropPreMultiplication, text(clip));
    RenderArgs args;
    args.time = kLackingTime;
    return built.instance.render(args).output.bytes;
}

TEST(Lacking, TheAlphaOfTheOutputIsTheImagesOrTheClipsOrTheAnnouncedOne) {
    const char* const opaque = kOfxImageOpaque;
    const char* const multiplied = kOfxImagePreMultiplied;
    const char* const straight = kOfxImageUnPreMultiplied;
    for (const char* form : {opaque, multiplied, straight}) {
        const auto expected = frameWithAlphas(straight, straight, form);
        EXPECT_EQ(frameWithAlphas(straight, multiplied, form), expected) << form;
        EXPECT_EQ(frameWithAlphas(straight, form, ""), expected) << form;
    }
    // Announced: premultiplied, since the effect makes an opaque picture transparent.
    EXPECT_EQ(frameWithAlphas(opaque, "", ""), frameWithAlphas(opaque, "", multiplied));
    EXPECT_NE(frameWithAlphas(opaque, "", ""), frameWithAlphas(opaque, "", opaque));
    EXPECT_EQ(frameWithAlphas(straight, "", ""), frameWithAlphas(straight, "", straight));
    EXPECT_NE(frameWithAlphas(straight, "", ""), frameWithAlphas(straight, "", opaque));
}

TEST(Lacking, WithoutAnOutputTheRenderFails) {
    RenderArgs args;
    args.hasOutput = false;
    EXPECT_EQ(renderedIn({}, setupFor(smallClip()), args).status, kOfxStatFailed);
}

TEST(Lacking, TheHostMayStopARenderAtEachOfItsQueries) {
    BuiltInstance built(smallClip());
    RenderArgs args;
    args.time = kLackingTime;
    const RenderResult whole = built.instance.render(args);
    EXPECT_EQ(whole.status, kOfxStatOK);
    for (int query = 0; query < whole.abortQueries; ++query) {
        args.abortAt = query;
        const RenderResult result = built.instance.render(args);
        EXPECT_TRUE(result.status == kOfxStatOK || result.status == kOfxStatFailed) << query;
    }
    args.abortAt = -1;
    EXPECT_EQ(built.instance.render(args).output.bytes, whole.output.bytes);
}

TEST(Lacking, APictureThatIsTooLargeIsCopiedAndTheUserIsTold) {
    BuiltInstance built(noiseClip(70000, 2));
    RenderArgs args;
    args.time = kLackingTime;
    RenderResult result = built.instance.render(args);
    EXPECT_EQ(result.status, kOfxStatOK);
    const auto& source = built.instance.source().setup();
    EXPECT_EQ(result.output.bytes, source.picture(kLackingTime, args.scale)->bytes);
    ASSERT_EQ(built.host.messages().size(), 1u);
    EXPECT_THAT(built.host.messages()[0].text,
                ::testing::HasSubstr("a picture of 70000x2 pixels is too large"));
    args.scale = {0.5, 0.5};
    result = built.instance.render(args);
    EXPECT_EQ(result.status, kOfxStatOK);
    EXPECT_EQ(result.output.bytes, source.picture(kLackingTime, args.scale)->bytes)
        << "at each scale alike";
}

TEST(Lacking, OneVersionOfTheMessagesIsEnough) {
    int width = 80000;  // Another one each time, since a sentence is shown once.
    for (const char* missing : {"OfxMessageSuite 1", "OfxMessageSuite 2"}) {
        HostTraits traits;
        traits.missingSuites = {missing};
        BuiltInstance built(noiseClip(++width, 2), traits);
        EXPECT_EQ(built.instance.render().status, kOfxStatOK);
        EXPECT_EQ(built.host.messages().size(), 1u) << "without " << missing;
    }
}

// A copy of the plug-in where its module is not.
TEST(Lacking, WithoutItsModuleThePlugInCopiesTheSourceAndSaysSoOnce) {
    const files::TempFolder folder;
    std::filesystem::copy_file(RUVEX_OPENFX_FILE, folder.file("Alone.ofx"));
    Binary binary(folder.file("Alone.ofx"));
    for (const bool messages : {true, false}) {
        HostTraits traits;
        if (!messages) traits.missingSuites = {kOfxMessageSuite};
        Host host(traits);
        PlugIn plugIn(host, *binary.plugIn(0), binary.file().string());
        ASSERT_EQ(plugIn.prepare(), kOfxStatOK);
        {
            Instance instance(plugIn, setupFor(smallClip()));
            RenderArgs args;
            args.layout = {8, true};
            for (int frame = 0; frame < 3; ++frame) {
                args.time = frame;
                const RenderResult result = instance.render(args);
                EXPECT_EQ(result.status, kOfxStatOK);
                EXPECT_EQ(result.output.bytes, smallClip().picture(frame, {1.0, 1.0})->bytes);
            }
        }
        plugIn.unload();
        EXPECT_EQ(host.messages().size(), messages ? 1u : 0u);
        EXPECT_THAT(host.faults(), IsEmpty());
    }
}

TEST(Lacking, UnknownActionsAndNullHandlesAreAnswered) {
    BuiltInstance built(smallClip());
    EXPECT_EQ(built.instance.call("OfxActionOfAnotherTime"), kOfxStatReplyDefault);
    EXPECT_NE(built.plugIn.call(kOfxActionDescribe, nullptr), kOfxStatOK);
    EXPECT_NE(built.plugIn.call(kOfxImageEffectActionRender, nullptr), kOfxStatOK);
    EXPECT_NE(built.instance.call(kOfxImageEffectActionRender), kOfxStatOK);
    EXPECT_NE(built.plugIn.call(nullptr, nullptr), kOfxStatOK);
}

TEST(Lacking, EachCallOfARenderMayFail) {
    // How many calls the render makes that can fail.
    int calls = 0;
    int failing = -1;
    HostTraits traits;
    traits.intercept = [&](const HostCall&) {
        return calls++ == failing ? kOfxStatFailed : kOfxStatOK;
    };
    BuiltInstance built(setupFor(smallClip()), traits);
    RenderArgs args;
    args.time = kLackingTime;
    calls = 0;
    const RenderResult whole = built.instance.render(args);
    const int all = calls;
    EXPECT_GT(all, 10);
    for (failing = 0; failing < all; ++failing) {
        calls = 0;
        const RenderResult result = built.instance.render(args);
        EXPECT_THAT(result.status, AnyOf(kOfxStatOK, kOfxStatFailed, kOfxStatErrBadHandle,
                                         kOfxStatErrValue, kOfxStatErrImageFormat))
            << "call " << failing << " failed";
    }
    failing = -1;
    EXPECT_EQ(built.instance.render(args).output.bytes, whole.output.bytes);
}

}  // namespace
}  // namespace ruvex::ofxhost::test
