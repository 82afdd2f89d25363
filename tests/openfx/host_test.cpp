// The test host itself: that it does what the interface says, and notices what a plug-in does
// wrong.

#include <gmock/gmock.h>

#include "tests/openfx/host/instance.h"
#include "tests/openfx/noise_clip.h"
#include "tests/openfx/probe_plug_in.h"

namespace ruvex::ofxhost::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr int kWidth = 12;
constexpr int kHeight = 7;

/// A host with the probe and one instance of it.
struct ProbeHost {
    explicit ProbeHost(ProbeScript script = {}, HostTraits traits = {}, ClipSetup source = clip())
        : host(std::move(traits)),
          plugIn(host, probePlugIn(std::move(script)), ""),
          prepared(plugIn.prepare()),
          instance(plugIn, {.source = std::move(source)}) {}

    static ClipSetup clip() { return noiseClip(kWidth, kHeight); }

    Host host;
    PlugIn plugIn;
    OfxStatus prepared;
    Instance instance;
};

TEST(TestHost, RendersThroughImagesOfEveryLayout) {
    for (const bool topDown : {false, true}) {
        for (const int padding : {0, 12}) {
            ClipSetup source = ProbeHost::clip();
            source.layout = {padding, topDown};
            ProbeHost probe({}, {}, source);
            RenderArgs args;
            args.time = 3.0;
            args.layout = {padding, !topDown};
            const RenderResult result = probe.instance.render(args);
            EXPECT_EQ(result.status, kOfxStatOK);
            EXPECT_EQ(result.output.bytes, source.picture(3.0, {1.0, 1.0})->bytes);
            EXPECT_THAT(result.sourceTimes(), ElementsAre(3.0));
            EXPECT_THAT(probe.host.faults(), IsEmpty());
        }
    }
}

TEST(TestHost, WritesNothingOutsideTheWindow) {
    ProbeHost probe;
    RenderArgs args;
    args.window = {2, 1, 9, 5};
    const RenderResult result = probe.instance.render(args);
    const Raster whole = *ProbeHost::clip().picture(0.0, {1.0, 1.0});
    EXPECT_EQ(result.output.part(args.window).bytes, whole.part(args.window).bytes);
    EXPECT_EQ(result.output.row(0)[0], kUntouched);
    EXPECT_THAT(probe.host.faults(), IsEmpty());
}

/// The faults after a render with a script.
std::vector<std::string> faultsOf(std::function<OfxStatus(const ProbeCall&)> render) {
    ProbeHost probe({.render = std::move(render)});
    RenderArgs args;
    args.window = {1, 1, kWidth - 1, kHeight - 1};
    args.layout.padding = 8;
    probe.instance.render(args);
    return probe.host.faults();
}

/// Writes one byte of the output, counted from the first byte of its data.
OfxStatus writeByte(const ProbeCall& call, std::ptrdiff_t place) {
    const OfxPropertySetHandle image = fetchImage(call, kOfxImageEffectOutputClipName, 0.0);
    void* data = nullptr;
    call.properties.propGetPointer(image, kOfxImagePropData, 0, &data);
    static_cast<unsigned char*>(data)[place] = 1;
    return call.effects.clipReleaseImage(image);
}

TEST(TestHost, NoticesWritesBesideRowsAndPictures) {
    constexpr std::ptrdiff_t kRow = kWidth * 4;
    const auto beside = ElementsAre("a write beside an image", "a write beside the output");
    EXPECT_THAT(faultsOf([](const ProbeCall& call) { return writeByte(call, -1); }), beside);
    EXPECT_THAT(faultsOf([](const ProbeCall& call) { return writeByte(call, kRow); }), beside);
    EXPECT_THAT(faultsOf([](const ProbeCall& call) { return writeByte(call, kRow + 8); }),
                ElementsAre("pixels outside the render window were written"));
}

TEST(TestHost, NoticesImagesThatAreKeptOrReleasedTwice) {
    EXPECT_THAT(faultsOf([](const ProbeCall& call) {
                    fetchImage(call, kOfxImageEffectSimpleSourceClipName, 0.0);
                    return kOfxStatOK;
                }),
                ElementsAre("images were not released after a render"));
    EXPECT_THAT(faultsOf([](const ProbeCall& call) {
                    const auto image = fetchImage(call, kOfxImageEffectOutputClipName, 0.0);
                    call.effects.clipReleaseImage(image);
                    return call.effects.clipReleaseImage(image);
                }),
                ElementsAre("a release of an image that is not held"));
}

TEST(TestHost, NoticesExceptionsWrongTypesAndWritesToItsProperties) {
    EXPECT_THAT(faultsOf([](const ProbeCall&) -> OfxStatus { throw std::runtime_error("oh"); }),
                ElementsAre("an exception left OfxImageEffectActionRender: oh"));
    EXPECT_THAT(faultsOf([](const ProbeCall& call) {
                    int time = 0;
                    return call.properties.propGetInt(call.in, kOfxPropTime, 0, &time);
                }),
                ElementsAre(HasSubstr("the type of OfxPropTime")));
    EXPECT_THAT(faultsOf([](const ProbeCall& call) {
                    return call.properties.propSetDouble(call.in, kOfxPropTime, 0, 1.0);
                }),
                ElementsAre(HasSubstr("sets the host's OfxPropTime")));
}

TEST(TestHost, AnswersDeadHandlesAndUnknownPropertiesWithAStatus) {
    std::vector<OfxStatus> answers;
    faultsOf([&](const ProbeCall& call) {
        double number = 0.0;
        answers.push_back(call.properties.propGetDouble(nullptr, kOfxPropTime, 0, &number));
        answers.push_back(call.properties.propGetDouble(call.in, "nothing", 0, &number));
        answers.push_back(call.properties.propGetDouble(call.in, kOfxPropTime, 1, &number));
        const auto image = fetchImage(call, kOfxImageEffectSimpleSourceClipName, 0.0);
        call.effects.clipReleaseImage(image);
        answers.push_back(call.properties.propGetDouble(image, kOfxPropTime, 0, &number));
        return kOfxStatOK;
    });
    EXPECT_THAT(answers, ElementsAre(kOfxStatErrBadHandle, kOfxStatErrUnknown, kOfxStatErrBadIndex,
                                     kOfxStatErrBadHandle));
}

TEST(TestHost, CurvesHoldRunLinearlyOrEase) {
    ProbeHost probe;
    Parameter& amount = probe.instance.parameters()["amount"];
    EXPECT_EQ(amount.numbersAt(5.0), std::vector{1.0});
    probe.instance.setKeys("amount", {{0.0, {2.0}, KeyShape::Hold},
                                      {10.0, {4.0}, KeyShape::Linear},
                                      {20.0, {8.0}, KeyShape::Smooth},
                                      {30.0, {0.0}}});
    EXPECT_EQ(amount.numbersAt(-1.0), std::vector{2.0});
    EXPECT_EQ(amount.numbersAt(9.5), std::vector{2.0});
    EXPECT_EQ(amount.numbersAt(12.5), std::vector{5.0});
    EXPECT_EQ(amount.numbersAt(25.0), std::vector{4.0});
    EXPECT_GT(amount.numbersAt(21.0)[0], 7.7) << "an ease starts slowly";
    EXPECT_EQ(amount.numbersAt(99.0), std::vector{0.0});
    EXPECT_EQ(amount.properties.number(kOfxParamPropIsAnimating), 1);
    amount.deleteAllKeys();
    EXPECT_EQ(amount.properties.number(kOfxParamPropIsAnimating), 0);
}

TEST(TestHost, ABlockIsOneUndoStep) {
    ProbeHost probe({.changed = [](const ProbeCall& call) {
        char* reason = nullptr;
        call.properties.propGetString(call.in, kOfxPropChangeReason, 0, &reason);
        if (std::string(reason) != kOfxChangeUserEdited) return kOfxStatReplyDefault;
        OfxParamSetHandle set = nullptr;
        OfxParamHandle amount = nullptr;
        OfxParamHandle tint = nullptr;
        call.effects.getParamSet(call.effect, &set);
        call.parameters.paramGetHandle(set, "amount", &amount, nullptr);
        call.parameters.paramGetHandle(set, "tint", &tint, nullptr);
        call.parameters.paramEditBegin(set, "both");
        call.parameters.paramSetValue(amount, 7.0);
        call.parameters.paramSetValue(tint, 0.25, 0.5, 0.75);
        return call.parameters.paramEditEnd(set);
    }});
    ParameterSet& parameters = probe.instance.parameters();
    probe.instance.set("kind", 1.0);
    ASSERT_EQ(parameters.steps().size(), 2u);
    EXPECT_EQ(parameters.steps()[1].name, "both");
    EXPECT_EQ(parameters["tint"].state().numbers, (std::vector{0.25, 0.5, 0.75}));
    EXPECT_TRUE(parameters.undo());
    EXPECT_EQ(parameters["amount"].state().numbers, std::vector{1.0});
    EXPECT_EQ(parameters["kind"].state().numbers, std::vector{1.0});
    EXPECT_TRUE(parameters.redo());
    EXPECT_EQ(parameters["amount"].state().numbers, std::vector{7.0});
    EXPECT_THAT(probe.host.faults(), IsEmpty());
}

TEST(TestHost, ParametersWithoutUndoAreNotPartOfSteps) {
    ProbeHost probe;
    ParameterSet& parameters = probe.instance.parameters();
    parameters["kind"].properties.set(kOfxParamPropCanUndo, ints({0}));
    probe.instance.set("kind", 1.0);
    EXPECT_THAT(parameters.steps(), IsEmpty());
    EXPECT_EQ(parameters["kind"].state().numbers, std::vector{1.0});
}

/// The faults after a change by the user that the plug-in answers with a script.
std::vector<std::string> faultsOfChange(std::function<OfxStatus(const ProbeCall&)> changed) {
    ProbeHost probe({.changed = std::move(changed)});
    probe.instance.set("kind", 1.0);
    return probe.host.faults();
}

OfxStatus setAmount(const ProbeCall& call, double value) {
    OfxParamSetHandle set = nullptr;
    OfxParamHandle amount = nullptr;
    call.effects.getParamSet(call.effect, &set);
    call.parameters.paramGetHandle(set, "amount", &amount, nullptr);
    return call.parameters.paramSetValue(amount, value);
}

TEST(TestHost, NoticesOpenBlocksEndlessEditsAndValuesOutOfRange) {
    EXPECT_THAT(faultsOfChange([](const ProbeCall& call) {
                    OfxParamSetHandle set = nullptr;
                    call.effects.getParamSet(call.effect, &set);
                    return call.parameters.paramEditBegin(set, "open");
                }),
                ElementsAre(HasSubstr("an edit block stays open")));
    EXPECT_THAT(faultsOfChange([](const ProbeCall& call) { return setAmount(call, 2.0); }),
                ElementsAre(HasSubstr("edits of the plug-in cause edits")));
    EXPECT_THAT(faultsOfChange([depth = 0](const ProbeCall& call) mutable {
                    return depth++ == 0 ? setAmount(call, 11.0) : kOfxStatOK;
                }),
                ElementsAre("a value outside the range of amount"));
}

TEST(TestHost, LacksAndRefusesWhatItsTraitsSay) {
    HostTraits traits;
    traits.missingSuites = {"OfxMessageSuite 2", kOfxInteractSuite};
    traits.missingProperties = {kOfxParamPropDigits};
    traits.otherTimes = OtherTimes::Refused;
    traits.intercept = [](const HostCall& call) {
        return call.function == "propGet" && call.name == kOfxImagePropField ? kOfxStatErrMemory
                                                                             : kOfxStatOK;
    };
    OfxStatus field = kOfxStatOK;
    OfxPropertySetHandle other = nullptr;
    ProbeHost probe({.render =
                         [&](const ProbeCall& call) {
                             other = fetchImage(call, kOfxImageEffectSimpleSourceClipName, 1.0);
                             auto own = fetchImage(call, kOfxImageEffectOutputClipName, 0.0);
                             char* text = nullptr;
                             field =
                                 call.properties.propGetString(own, kOfxImagePropField, 0, &text);
                             return call.effects.clipReleaseImage(own);
                         }},
                    traits);
    probe.instance.render();
    EXPECT_EQ(other, nullptr);
    EXPECT_EQ(field, kOfxStatErrMemory);
    EXPECT_EQ(probe.host.suite(kOfxMessageSuite, 2), nullptr);
    EXPECT_NE(probe.host.suite(kOfxMessageSuite, 1), nullptr);
    EXPECT_EQ(probe.host.suite(kOfxInteractSuite, 1), nullptr);
    EXPECT_FALSE(probe.instance.parameters()["amount"].properties.has(kOfxParamPropDigits));
}

TEST(TestHost, SaysStopFromTheChosenQueryOn) {
    std::vector<int> answers;
    ProbeHost probe({.render = [&](const ProbeCall& call) {
        for (int i = 0; i < 3; ++i) answers.push_back(call.effects.abort(call.effect));
        return kOfxStatOK;
    }});
    RenderArgs args;
    args.abortAt = 1;
    EXPECT_EQ(probe.instance.render(args).abortQueries, 3);
    EXPECT_THAT(answers, ElementsAre(0, 1, 1));
}

}  // namespace
}  // namespace ruvex::ofxhost::test
