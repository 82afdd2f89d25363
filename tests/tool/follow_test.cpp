// The crop box follows the pictures that clones render: the geometry comes to the user-interface
// thread through the host's queue.

#include <optional>
#include <thread>

#include "host/module/entry_points.h"
#include "runtime/images.h"
#include "sdk/com/ui_queue.h"
#include "tests/tool/tool_test.h"

namespace ruvex::test {
namespace {

class Follow : public ToolTest {
protected:
    /// Renders a frame whose input has this rectangle in world units.
    static void render(runtime::EffectSession& by, DSFloatPair origin, DSFloatPair size) {
        runtime::RenderRequest request;
        request.output = runtime::makeImage(8, 8, MFIF_RGBA_RAW_32);
        const auto input = runtime::makeImage(8, 8, MFIF_RGBA_RAW_32);
        input->setWorldOrigin(origin);
        input->setWorldSize(size);
        request.input = input;
        by.render(request);
    }
    /// Renders a frame without an input.
    static void renderWithoutInput(const runtime::EffectSession& by) {
        const auto project = by.enter();
        const auto output = runtime::makeImage(8, 8, MFIF_RGBA_RAW_32);
        EXPECT_EQ(by.effect().Setup(), S_OK);
        EXPECT_EQ(by.effect().SetOutput(output.get()), S_OK);
        EXPECT_EQ(by.effect().Execute(0.0), S_OK);
        EXPECT_EQ(by.effect().Cleanup(), S_OK);
    }

    int wakes = 0;
    std::optional<DSUserInterfaceQueue> queue{std::in_place, [this] { ++wakes; }};
    std::optional<runtime::EffectSession> clone = session->clone();
    const VxRect frame{0, 0, 720, 576};
};

TEST_F(Follow, TheLimitsChangeWhenTheQueueRuns) {
    std::thread([&] { render(*clone, {100, 50}, {400, 300}); }).join();
    EXPECT_EQ(box().limits, frame) << "another thread changes nothing";
    EXPECT_EQ(wakes, 1);
    redraws = 0;
    queue->run();
    EXPECT_EQ(box().limits, (VxRect{100, 50, 500, 350}));
    expectRect({100, 50, 500, 350});
    EXPECT_EQ(tool().sourceOrigin, (VxPosition{100, 50}));
    EXPECT_EQ(tool().sourceSize, (VxPosition{400, 300}));
    EXPECT_EQ(tool().srcCentre.centre, (VxPosition{300, 200}));
    EXPECT_EQ(redraws, 1);
}

TEST_F(Follow, PercentagesAreOfTheInput) {
    set(ParameterId::CropLeft, 25);
    render(*clone, {100, 50}, {400, 300});
    queue->run();
    expectRect({200, 50, 500, 350});
    drag({200, 100}, {300, 100});
    EXPECT_EQ(value(ParameterId::CropLeft), 50);
}

TEST_F(Follow, OnlyAnotherGeometryIsPosted) {
    for (int frames = 0; frames < 3; ++frames) render(*clone, {100, 50}, {400, 300});
    queue->run();
    EXPECT_EQ(wakes, 1);
    render(*clone, {100, 50}, {400, 300});
    EXPECT_EQ(wakes, 1);
    render(*clone, {101, 50}, {400, 300});
    EXPECT_EQ(wakes, 2);
    queue->run();
}

TEST_F(Follow, OneTaskWaitsForAllFrames) {
    redraws = 0;
    render(*clone, {100, 50}, {400, 300});
    render(*clone, {101, 50}, {400, 300});
    render(*clone, {102, 50}, {400, 300});
    queue->run();
    EXPECT_EQ(box().limits, (VxRect{102, 50, 502, 350}));
    EXPECT_EQ(redraws, 1) << "one update of the controls";
}

TEST_F(Follow, AnotherInputDuringADragResetsTheLine) {
    press(0, 300);
    move(72, 300);
    render(*clone, {100, 50}, {400, 300});
    queue->run();
    expectRect({100, 50, 500, 350});
    release(72, 300);
    EXPECT_EQ(value(ParameterId::CropLeft), 0);
}

TEST_F(Follow, ATaskThatAQueueHasDroppedIsPostedAgain) {
    render(*clone, {100, 50}, {400, 300});
    queue.reset();
    queue.emplace();
    render(*clone, {100, 50}, {400, 300});
    queue->run();
    EXPECT_EQ(box().limits, (VxRect{100, 50, 500, 350}));
}

TEST_F(Follow, AFrameWithoutInputKeepsTheLastRectangle) {
    render(*clone, {100, 50}, {400, 300});
    queue->run();
    renderWithoutInput(*clone);
    queue->run();
    EXPECT_EQ(wakes, 2);
    EXPECT_EQ(box().limits, (VxRect{100, 50, 500, 350}));
    expectRect({100, 50, 500, 350});
}

TEST_F(Follow, WithoutAQueueThePageInFrontRefreshesTheBox) {
    queue.reset();
    render(*clone, {100, 50}, {400, 300});
    EXPECT_EQ(box().limits, frame);
    page->show();
    EXPECT_EQ(box().limits, (VxRect{100, 50, 500, 350}));
}

TEST_F(Follow, WithoutControlsNothingIsPosted) {
    page.reset();
    render(*clone, {100, 50}, {400, 300});
    EXPECT_EQ(wakes, 0);
    page = open(kCropPageId);
    EXPECT_EQ(box().limits, (VxRect{100, 50, 500, 350})) << "what was reported meanwhile";
}

TEST_F(Follow, ATaskMayOutliveTheControls) {
    render(*clone, {100, 50}, {400, 300});
    page.reset();
    queue->run();
    page = open(kCropPageId);
    render(*clone, {0, 50}, {400, 300});
    page.reset();
    queue->run();
}

TEST(FollowTask, KeepsTheModuleAndNotTheEffect) {
    attachModule();
    DSUserInterfaceQueue queue;
    auto session = std::make_unique<runtime::EffectSession>(
        runtime::EffectSession::Setup{.project = {.width = 720, .height = 576}});
    auto editor = std::make_unique<runtime::Editor>(*session);
    auto page = editor->open(kCropPageId);
    auto clone = std::make_unique<runtime::EffectSession>(session->clone());
    runtime::RenderRequest request;
    request.input = runtime::makeImage(8, 8, MFIF_RGBA_RAW_32);
    request.output = runtime::makeImage(8, 8, MFIF_RGBA_RAW_32);
    clone->render(request);
    page.reset();
    editor.reset();
    session.reset();
    clone.reset();
    EXPECT_EQ(DllCanUnloadNow(), S_FALSE);
    EXPECT_EQ(objectCount, 1);
    queue.run();
    EXPECT_EQ(DllCanUnloadNow(), S_OK);
}

TEST_F(Follow, ACloneOfACloneReportsToTheClone) {
    auto second = clone->clone();
    render(second, {100, 50}, {400, 300});
    EXPECT_EQ(wakes, 0) << "nobody follows the clone that it was made from";
}

}  // namespace
}  // namespace ruvex::test
