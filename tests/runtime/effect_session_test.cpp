#include "runtime/effect_session.h"

#include <atomic>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>

#include "parameters/ruvex_interface.h"
#include "runtime/error.h"
#include "tests/runtime/copy_module.h"
#include "tests/support/copy_effect.h"

namespace ruvex::runtime::test {
namespace {

using ruvex::test::kDelayId;
using ruvex::test::kInvertId;
using ruvex::test::kLiftId;
using ::testing::HasSubstr;

constexpr GUID kUnknownId = guidFromText("77A1C001-0000-4000-8000-0000000000FF");

RenderRequest frame(int index, const ComPtr<CDSMemoryImage>& output) {
    RenderRequest request;
    request.seconds = frameTime(index, kSmallProject.frameRate);
    request.output = output;
    return request;
}

TEST(EffectSession, StartsWithTheDefaultsAndDescribesItself) {
    const EffectSession session(copySetup());
    EXPECT_EQ(session.value(kDelayId), 0.0);
    EXPECT_EQ(session.info().family, DSFAMILY_Filter);
    EXPECT_EQ(session.info().field3, 2u);
    ASSERT_TRUE(session.definition(kLiftId));
    EXPECT_EQ(session.definition(kLiftId)->type, VT_I4);
    EXPECT_EQ(session.definition(kUnknownId), nullptr);
}

TEST(EffectSession, RendersTheFrameOfItsProvider) {
    EffectSession session(copySetup());
    const auto output = emptyOutput();
    session.setValue(kLiftId, 3);
    session.render(frame(7, output));
    EXPECT_EQ(countOf(*output, 10), kAllBytes);
    EXPECT_FALSE(session.interrupted());
}

TEST(EffectSession, RendersTheInputThatItIsGiven) {
    EffectSession session(copySetup());
    const auto output = emptyOutput();
    RenderRequest request = frame(7, output);
    request.input = CountingClip().imageAt(frameTime(9, 25.0));
    session.setValue(kInvertId, 1);
    session.render(request);
    EXPECT_EQ(countOf(*output, 255 - 9), kAllBytes);
}

TEST(EffectSession, FollowsKeysAndFetchesOtherFrames) {
    EffectSession session(copySetup());
    session.setKeys(kDelayId, {{0.0, 0.0}, {2.0, 1.0}});
    const auto output = emptyOutput();
    session.render(frame(50, output));
    EXPECT_EQ(countOf(*output, 25), kAllBytes);
    EXPECT_EQ(session.value(kDelayId, 1.0), 0.5);
    session.setValue(kDelayId, 0.2);
    EXPECT_EQ(session.value(kDelayId, 2.0), 0.2);
    session.render(frame(50, output));
    EXPECT_EQ(countOf(*output, 45), kAllBytes);
}

TEST(EffectSession, ARefusedFrameIsTheEffectsAffair) {
    EffectSession session(copySetup());
    session.setValue(kDelayId, 10.0);
    const auto output = emptyOutput();
    session.render(frame(7, output));
    EXPECT_EQ(countOf(*output, 0), kAllBytes);
}

TEST(EffectSession, RendersTheRegionAloneAndForgetsIt) {
    EffectSession session(copySetup());
    auto output = emptyOutput();
    RenderRequest request = frame(7, output);
    request.region = DSRECT{0, 2, 8, 3};
    session.render(request);
    EXPECT_EQ(countOf(*output, 7), kAllBytes / 2);
    EXPECT_EQ(output->bytes()[2 * 32 - 1], std::byte{0});
    EXPECT_EQ(output->bytes()[2 * 32], std::byte{7});
    output = emptyOutput();
    session.render(frame(7, output));
    EXPECT_EQ(countOf(*output, 7), kAllBytes);
}

TEST(EffectSession, FailuresCarryTheStatus) {
    EffectSession session(copySetup());
    try {
        session.render(frame(7, nullptr));
        FAIL();
    } catch (const StatusError& error) {
        EXPECT_EQ(error.status(), E_POINTER);
        EXPECT_THAT(error.what(), HasSubstr("0x80004003"));
    }
    const auto output = emptyOutput();
    output->setStatus(S_FALSE);
    EXPECT_THROW(session.render(frame(7, output)), StatusError);
    // And the session goes on afterwards, without holding on to the images.
    output->setStatus(S_OK);
    session.render(frame(7, output));
    EXPECT_EQ(countOf(*output, 7), kAllBytes);
    output->AddRef();
    EXPECT_EQ(output->Release(), 1u);
}

TEST(EffectSession, WithoutAnInputVerifyHasTheSay) {
    EffectSession::Setup setup = copySetup();
    setup.provider = nullptr;
    EffectSession session(std::move(setup));
    EXPECT_THROW(session.render(frame(7, emptyOutput())), StatusError);
}

TEST(EffectSession, ValuesHaveToFitTheirKind) {
    EffectSession session(copySetup());
    EXPECT_THROW(session.setValue(kUnknownId, 1.0), Error);
    EXPECT_THROW(session.value(kUnknownId), Error);
    EXPECT_THROW(session.setKeys(kUnknownId, {{0.0, 1.0}}), Error);
    EXPECT_THROW(session.setKeys(kLiftId, {{0.0, 1.0}}), Error);
    EXPECT_THROW(session.setValue(kLiftId, 1.5), Error);
    EXPECT_THROW(session.setValue(kLiftId, 3e9), Error);
    EXPECT_THROW(session.setValue(kInvertId, 2.0), Error);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_THROW(session.setValue(kDelayId, nan), Error);
    EXPECT_THROW(session.setValue(kLiftId, nan), Error);
    EXPECT_THROW(session.setKeys(kDelayId, {{nan, 1.0}}), Error);
    session.setValue(kLiftId, -2147483648.0);
    EXPECT_EQ(session.value(kLiftId), -2147483648.0);
}

TEST(EffectSession, ACloneOutlivesItsSource) {
    auto source = std::make_unique<EffectSession>(copySetup());
    source->setValue(kLiftId, 2);
    source->setKeys(kDelayId, {{0.0, 0.04}});
    EffectSession clone = source->clone();
    source->setValue(kLiftId, 50);
    source.reset();
    const auto output = emptyOutput();
    clone.render(frame(7, output));
    EXPECT_EQ(countOf(*output, 8), kAllBytes);
    EXPECT_EQ(clone.info().family, DSFAMILY_Filter);
}

/// Requests a stop when it is asked for frame 7.
struct StoppingClip final : InputProvider {
    ComPtr<IDSImage> imageAt(double seconds) override {
        if (seconds == frameTime(7, kSmallProject.frameRate)) stop.request_stop();
        return CountingClip().imageAt(seconds);
    }

    std::stop_source stop;
};

TEST(EffectSession, AStopEndsTheFrameUnderWayAndIsReported) {
    const auto clip = std::make_shared<StoppingClip>();
    auto setup = copySetup(clip->stop.get_token());
    setup.provider = clip;
    EffectSession session(std::move(setup));
    const EffectSession another(copySetup());
    auto output = emptyOutput();
    session.render(frame(6, output));
    EXPECT_FALSE(session.interrupted());
    EXPECT_EQ(countOf(*output, 6), kAllBytes);
    for (const int index : {7, 8}) {
        output = emptyOutput();
        session.render(frame(index, output));
        EXPECT_TRUE(session.interrupted()) << index;
        EXPECT_EQ(countOf(*output, 0), kAllBytes) << index;
    }
    EXPECT_FALSE(another.interrupted());
}

TEST(EffectSession, AStopReachesTheClones) {
    std::stop_source stop;
    const EffectSession session(copySetup(stop.get_token()));
    EffectSession clone = session.clone();
    stop.request_stop();
    clone.render(frame(7, emptyOutput()));
    EXPECT_TRUE(clone.interrupted());
}

TEST(EffectSession, HandsOutAnInterfaceOfTheEffectsOwn) {
    EffectSession session(copySetup());
    auto* control = static_cast<IRuvexControl*>(session.ownInterface(kRuvexControlId));
    EXPECT_EQ(control->setWorkerCount(3), S_OK);
    EXPECT_EQ(control->workerCount(), 3);
    EXPECT_THROW(session.ownInterface(guidFromText("77A1C001-0000-4000-8000-0000000000FF")),
                 StatusError);
}

TEST(EffectSession, EndsWithNothingOfTheModuleInUse) {
    const auto module = Module::load(moduleFile("copy_module"));
    {
        EffectSession session(copySetup());
        const EffectSession clone = session.clone();
        EXPECT_FALSE(module->canUnload());
    }
    EXPECT_TRUE(module->canUnload());
}

TEST(EffectSession, TheSetupIsChecked) {
    EffectSession::Setup setup = copySetup();
    setup.project.width = 0;
    EXPECT_THROW(EffectSession{setup}, Error);
    setup = copySetup();
    setup.classId = kUnknownId;
    EXPECT_THROW(EffectSession{setup}, StatusError);
}

TEST(EffectSession, WithoutAModuleTakesOneThatIsLoaded) {
    auto setup = copySetup();
    const auto module = std::exchange(setup.module, nullptr);
    EffectSession session(setup);
    RenderRequest request;
    request.seconds = 7 / 25.0;
    const auto output = emptyOutput();
    request.output = output;
    session.render(request);
    EXPECT_EQ(countOf(*output, 7), output->byteCount());
}

}  // namespace
}  // namespace ruvex::runtime::test
