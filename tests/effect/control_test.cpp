// What a front end asks of the effect through the one interface of our own.

#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <vector>

#include "parameters/ruvex_interface.h"
#include "tests/effect/support/poor_project.h"

namespace ruvex::test {
namespace {

using Id = ParameterId;

class Control : public testing::Test {
protected:
    Control() : renderer_({.width = 24, .height = 18}) {}

    IRuvexControl& control() {
        return *static_cast<IRuvexControl*>(renderer_.session().ownInterface(kRuvexControlId));
    }
    FrameValues valuesAt(int frame, double rate = 25.0) {
        FrameValues values{};
        EXPECT_EQ(control().frameValues(frame / rate, rate, &values), S_OK);
        return values;
    }

    Renderer renderer_;
};

TEST_F(Control, TheWorkerCountIsTheHostsOrTheMachines) {
    EXPECT_EQ(control().setWorkerCount(0), S_OK);
    const std::int32_t processors = control().workerCount();
    EXPECT_GE(processors, 1);
    EXPECT_EQ(control().setWorkerCount(7), S_OK);
    EXPECT_EQ(control().workerCount(), 7);
    EXPECT_EQ(control().setWorkerCount(-1), E_INVALIDARG);
    EXPECT_EQ(control().setWorkerCount(INT32_MAX), E_INVALIDARG);
    EXPECT_EQ(control().workerCount(), 7);
    EXPECT_EQ(control().setWorkerCount(0), S_OK);
    EXPECT_EQ(control().workerCount(), processors);
}

TEST_F(Control, ValuesOfAWhollyBrokenSignalAreTheMaxima) {
    renderer_.set(Id::MasterBreakup, 100);
    renderer_.set(Id::BreakupVariation, 0);
    const FrameValues values = valuesAt(25);
    EXPECT_EQ(values.level, 1.0f);
    EXPECT_NEAR(values.colourDegrade, 1.0, 1e-6);
    EXPECT_EQ(values.ghostDistance, 50.0);
    EXPECT_EQ(values.edgeDistortion, 100.0);
    EXPECT_NEAR(values.snow, 0.6, 1e-6);
    EXPECT_NEAR(values.shash, 1.0, 1e-6);
    EXPECT_EQ(values.lineSpeed, 100.0);
    EXPECT_EQ(values.verticalOffset, 200.0);
    EXPECT_EQ(values.rollSpeed, 1000.0);
    EXPECT_NEAR(values.lineTravel, 100.0, 1e-9);
    EXPECT_EQ(values.verticalSum, 1200);
    EXPECT_EQ(values.shashFramesOn, 25);
}

TEST_F(Control, ValuesOfAGoodSignalAreNothing) {
    renderer_.set(Id::MasterBreakup, 0);
    renderer_.set(Id::BreakupVariation, 0);
    const FrameValues values = valuesAt(25);
    EXPECT_EQ(values.level, 0.0f);
    EXPECT_EQ(values.snow, 0.0);
    EXPECT_EQ(values.lineTravel, 0.0);
    EXPECT_EQ(values.verticalSum, 0);
    EXPECT_EQ(values.shashFramesOn, 0);
}

TEST_F(Control, FramesAreThoseOfTheTape) {
    renderer_.set(Id::PlaySpeed, 50);
    renderer_.set(Id::RepeatFrames, 4);
    const FrameValues values = valuesAt(30);
    EXPECT_EQ(values.seconds, 1.2);
    EXPECT_NEAR(values.playTime, 0.6, 1e-6);
    EXPECT_EQ(values.frame, 30);
    EXPECT_EQ(values.source, 15);
    EXPECT_EQ(values.shown, 12);
}

TEST_F(Control, BadQuestionsAreRefused) {
    FrameValues values{};
    EXPECT_EQ(control().frameValues(1.0, 25.0, nullptr), E_POINTER);
    for (const double rate : {0.0, -25.0, HUGE_VAL, std::nan("")}) {
        EXPECT_EQ(control().frameValues(1.0, rate, &values), E_INVALIDARG) << rate;
    }
}

TEST_F(Control, LevelsAreTheValuesOfEachFrame) {
    renderer_.set(Id::PlaySpeed, 80);
    constexpr std::int64_t kFirst = 20, kLast = 90;
    std::vector<FrameValues> values(kLast - kFirst + 1);
    ASSERT_EQ(control().levels(kFirst, kLast, 30.0, values.data(), nullptr), S_OK);
    for (std::int64_t k = kFirst; k <= kLast; ++k) {
        const FrameValues& got = values[static_cast<std::size_t>(k - kFirst)];
        const FrameValues wanted = valuesAt(static_cast<int>(k), 30.0);
        EXPECT_EQ(std::memcmp(&got, &wanted, sizeof got), 0) << k;
    }
}

TEST_F(Control, BadQuestionsForLevelsAreRefused) {
    FrameValues values[3] = {};
    EXPECT_EQ(control().levels(0, 2, 25.0, nullptr, nullptr), E_POINTER);
    EXPECT_EQ(control().levels(-1, 1, 25.0, values, nullptr), E_INVALIDARG);
    EXPECT_EQ(control().levels(2, 1, 25.0, values, nullptr), E_INVALIDARG);
    EXPECT_EQ(control().levels(0, INT64_MAX, 25.0, values, nullptr), E_OUTOFMEMORY);
    for (const double rate : {0.0, -25.0, HUGE_VAL, std::nan("")}) {
        EXPECT_EQ(control().levels(0, 2, rate, values, nullptr), E_INVALIDARG) << rate;
    }
}

TEST_F(Control, LevelsEndWhenTheQuestionIsAnsweredWithYes) {
    FrameValues values[3] = {};
    int asked = 0;
    const StopQuestion stopped{[](void* count) { return ++*static_cast<int*>(count) > 0; }, &asked};
    EXPECT_EQ(control().levels(0, 2, 25.0, values, &stopped), E_ABORT);
    EXPECT_EQ(asked, 1);
    const StopQuestion goesOn{[](void*) { return false; }, nullptr};
    EXPECT_EQ(control().levels(0, 2, 25.0, values, &goesOn), S_OK);
}

TEST_F(Control, TheOutcomeIsThatOfTheLastFrame) {
    EXPECT_EQ(control().frameOutcome(), FrameOutcome::Finished) << "no frame yet";
    const auto input = randomPicture<Rgba8>(24, 18, 40);
    std::stop_source stop;
    runtime::EffectSession session(
        {.module = builtModule(), .project = renderer_.project(), .stop = stop.get_token()});
    const auto& outcome = *static_cast<IRuvexControl*>(session.ownInterface(kRuvexControlId));
    const auto render = [&] {
        runtime::RenderRequest request;
        request.input = imageOf(renderer_.project(), input);
        request.output = runtime::makeImage(24, 18, MFIF_RGBA_RAW_32);
        session.render(request);
    };
    render();
    EXPECT_EQ(outcome.frameOutcome(), FrameOutcome::Finished);
    stop.request_stop();
    render();
    EXPECT_EQ(outcome.frameOutcome(), FrameOutcome::Stopped);
    EXPECT_EQ(control().frameOutcome(), FrameOutcome::Finished) << "another object";
}

// With any one of the project's sizes unreadable, every stage still has numbers to work with.
TEST_F(Control, AnyUnreadableSizeStillGivesAPicture) {
    renderer_.set(Id::FishEye, 1);
    renderer_.set(Id::Blur, 6);
    renderer_.set(Id::ScanlineWidth, 6);
    const auto input = randomPicture<Rgba8>(24, 18, 41);
    for (const wchar_t* name :
         {kDSProjectUserSizeX, kDSProjectUserSizeY, kDSProjectWorldSizeX, kDSProjectWorldSizeY}) {
        DSContent content = runtime::contentOf(renderer_.project());
        content.erase(name);
        for (const double resolution : {100.0, 50.0, 99.99}) {
            renderer_.set(Id::Resolution, resolution);
            testing::internal::CaptureStderr();
            const auto picture = renderWithContent(renderer_, input, content);
            EXPECT_EQ(picture, renderWithContent(renderer_, input, content));
            testing::internal::GetCapturedStderr();
        }
    }
}

}  // namespace
}  // namespace ruvex::test
