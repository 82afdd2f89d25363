// The crop box as an overlay of the plug-in, drawn and dragged in a host's viewer.

#include "runtime/headless_context.h"
#include "sdk/open_gl/open_gl.h"
#include "tests/openfx/built_plug_in.h"
#include "tests/openfx/host/interact.h"

namespace ruvex::ofxhost::test {
namespace {

constexpr int kViewWidth = 240, kViewHeight = 200;
/// The picture in the host's canonical coordinates.
constexpr int kPictureWidth = 200, kPictureHeight = 160;
constexpr double kMiddle = 80.0;

bool isNear(int value, int wanted) {
    return std::abs(value - wanted) <= 1;
}

/// An instance with its crop, and a viewer with a margin of 20 pixels around the picture.
class OverlayTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(overlay_.status(), kOfxStatOK);
        built_.instance.set("cropLeft", 25.0);
        built_.instance.set("cropRight", 75.0);
        draw();
    }

    OfxStatus draw(Interact& interact) {
        gl().glViewport(0, 0, kViewWidth, kViewHeight);
        gl().glMatrixMode(GL_PROJECTION);
        gl().glLoadIdentity();
        const ViewSetup& view = interact.view;
        gl().glOrtho(view.corner.x, view.corner.x + kViewWidth * view.pixelScale.x, view.corner.y,
                     view.corner.y + kViewHeight * view.pixelScale.y, -1, 1);
        gl().glMatrixMode(GL_MODELVIEW);
        gl().glLoadIdentity();
        gl().glClearColor(0, 0, 0, 0);
        gl().glClear(GL_COLOR_BUFFER_BIT);
        return interact.draw();
    }
    OfxStatus draw() { return draw(overlay_); }

    /// Whether the left line, yellow unless it is dragged, is drawn at this place.
    bool leftLineAt(double x) const { return leftLineAt(overlay_, {x, kMiddle}); }
    bool leftLineAt(const Interact& interact, const OfxPointD& point) const {
        const int column = static_cast<int>(point.x - interact.view.corner.x);
        const int row = static_cast<int>(point.y - interact.view.corner.y);
        for (int near = column - 1; near <= column + 1; ++near) {
            unsigned char pixel[4] = {};
            gl().glReadPixels(near, row, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, pixel);
            if (isNear(pixel[0], 230) && isNear(pixel[1], 230) && isNear(pixel[2], 26)) return true;
        }
        return false;
    }

    OfxStatus press(double x, double y) { return overlay_.pen(kOfxInteractActionPenDown, {x, y}); }
    OfxStatus move(double x, double y) { return overlay_.pen(kOfxInteractActionPenMotion, {x, y}); }
    OfxStatus release(double x, double y) { return overlay_.pen(kOfxInteractActionPenUp, {x, y}); }

    double crop(const char* name) {
        return built_.instance.parameters()[name].numbersAt(overlay_.view.time).at(0);
    }
    std::size_t steps() { return built_.instance.parameters().steps().size(); }

    static int openedWidth() { return openGl() ? kViewWidth : 0; }
    static ViewSetup wholeView() {
        return {.viewportSize = {kViewWidth, kViewHeight}, .corner = {-20.0, -20.0}};
    }

    runtime::HeadlessContext context_{openedWidth(), kViewHeight};
    runtime::CurrentContext current_{context_};
    BuiltInstance built_{noiseClip(kPictureWidth, kPictureHeight)};
    Interact overlay_{built_.instance, wholeView()};
};

TEST_F(OverlayTest, IsOfferedToHostsThatShowOverlaysAlone) {
    EXPECT_TRUE(Interact::isOffered(built_.plugIn));
    HostTraits traits;
    traits.overlays = false;
    const BuiltPlugIn without(traits);
    EXPECT_EQ(without.prepared, kOfxStatOK);
    EXPECT_FALSE(Interact::isOffered(without.plugIn));
}

TEST_F(OverlayTest, LinesFollowTheHostsValues) {
    EXPECT_TRUE(leftLineAt(50.0));
    built_.instance.set("cropLeft", 40.0);
    EXPECT_EQ(draw(), kOfxStatOK);
    EXPECT_TRUE(leftLineAt(80.0));
    EXPECT_FALSE(leftLineAt(50.0));
    built_.instance.setKeys("cropLeft", {{0.0, {10.0}}, {10.0, {30.0}}});
    overlay_.view.time = 5.0;
    EXPECT_EQ(draw(), kOfxStatOK);
    EXPECT_TRUE(leftLineAt(40.0));
}

TEST_F(OverlayTest, ADragChangesTheHostOnReleaseInOneStep) {
    const std::size_t before = steps();
    EXPECT_EQ(press(50.0, kMiddle), kOfxStatOK);
    EXPECT_EQ(move(60.0, kMiddle), kOfxStatOK);
    EXPECT_EQ(move(70.0, kMiddle), kOfxStatOK);
    EXPECT_GT(overlay_.redraws(), 0);
    EXPECT_EQ(crop("cropLeft"), 25.0);
    EXPECT_EQ(steps(), before);
    EXPECT_EQ(release(70.0, kMiddle), kOfxStatOK);
    EXPECT_NEAR(crop("cropLeft"), 35.0, 1e-3);
    EXPECT_EQ(crop("cropRight"), 75.0);
    ASSERT_EQ(steps(), before + 1);
    EXPECT_EQ(built_.instance.parameters().steps().back().name, "Crop");
    EXPECT_TRUE(built_.instance.undo());
    EXPECT_EQ(crop("cropLeft"), 25.0);
    draw();
    EXPECT_TRUE(leftLineAt(50.0));
}

TEST_F(OverlayTest, ACornerIsOneStepOfTwoValues) {
    built_.instance.set("cropBottom", 50.0);
    draw();
    const std::size_t before = steps();
    EXPECT_EQ(press(50.0, 80.0), kOfxStatOK);
    EXPECT_EQ(move(60.0, 96.0), kOfxStatOK);
    EXPECT_EQ(release(60.0, 96.0), kOfxStatOK);
    EXPECT_NEAR(crop("cropLeft"), 30.0, 1e-3);
    EXPECT_NEAR(crop("cropBottom"), 60.0, 1e-3);
    EXPECT_EQ(steps(), before + 1);
}

TEST_F(OverlayTest, AValueWithKeysGetsAKeyAtTheTime) {
    built_.instance.setKeys("cropLeft", {{0.0, {10.0}}, {10.0, {30.0}}});
    overlay_.view.time = 5.0;
    draw();
    EXPECT_EQ(press(40.0, kMiddle), kOfxStatOK);
    EXPECT_EQ(release(60.0, kMiddle), kOfxStatOK);
    const auto& keys = built_.instance.parameters()["cropLeft"].state().keys;
    ASSERT_EQ(keys.size(), 3u);
    EXPECT_EQ(keys[1].time, 5.0);
    EXPECT_NEAR(keys[1].numbers.at(0), 30.0, 1e-3);
}

TEST_F(OverlayTest, WhatIsBesideTheLinesIsForTheHost) {
    const std::size_t before = steps();
    EXPECT_EQ(move(100.0, kMiddle), kOfxStatReplyDefault);
    EXPECT_EQ(press(100.0, kMiddle), kOfxStatReplyDefault);
    EXPECT_EQ(move(110.0, kMiddle), kOfxStatReplyDefault);
    EXPECT_EQ(release(110.0, kMiddle), kOfxStatReplyDefault);
    EXPECT_EQ(steps(), before);
}

TEST_F(OverlayTest, ThePenOverALineDrawsItAnew) {
    const int before = overlay_.redraws();
    EXPECT_EQ(move(50.0, kMiddle), kOfxStatReplyDefault);
    EXPECT_GT(overlay_.redraws(), before);
}

TEST_F(OverlayTest, HiddenControlsAreNotDrawnAndTakeNoPen) {
    built_.instance.set("hideOverlayControls", 1.0);
    EXPECT_EQ(draw(), kOfxStatReplyDefault);
    EXPECT_FALSE(leftLineAt(50.0));
    EXPECT_EQ(press(50.0, kMiddle), kOfxStatReplyDefault);
}

TEST_F(OverlayTest, ADragEndsWhereThePenIsIfTheFocusIsLost) {
    EXPECT_EQ(press(50.0, kMiddle), kOfxStatOK);
    EXPECT_EQ(move(70.0, kMiddle), kOfxStatOK);
    overlay_.focus(false);
    EXPECT_NEAR(crop("cropLeft"), 35.0, 1e-3);
    EXPECT_EQ(release(90.0, kMiddle), kOfxStatReplyDefault);
    EXPECT_NEAR(crop("cropLeft"), 35.0, 1e-3);
}

TEST_F(OverlayTest, WhatTheHostChangesDuringADragStays) {
    EXPECT_EQ(press(50.0, kMiddle), kOfxStatOK);
    EXPECT_EQ(move(60.0, kMiddle), kOfxStatOK);
    built_.instance.set("cropTop", 60.0);
    draw();
    EXPECT_EQ(release(60.0, kMiddle), kOfxStatOK);
    EXPECT_NEAR(crop("cropLeft"), 30.0, 1e-3);
    EXPECT_EQ(crop("cropTop"), 60.0);
}

TEST_F(OverlayTest, SeveralEffectsAndViewersTakeTurns) {
    BuiltInstance other(noiseClip(100, 100));
    Interact second(other.instance, wholeView());
    Interact third(built_.instance, wholeView());
    other.instance.set("cropLeft", 10.0);
    EXPECT_EQ(draw(second), kOfxStatOK);
    EXPECT_TRUE(leftLineAt(10.0));
    EXPECT_EQ(draw(third), kOfxStatOK);
    EXPECT_TRUE(leftLineAt(50.0));
    // A drag in one of them; the others wait.
    EXPECT_EQ(draw(), kOfxStatOK);
    EXPECT_EQ(press(50.0, kMiddle), kOfxStatOK);
    EXPECT_EQ(draw(second), kOfxStatReplyDefault);
    EXPECT_EQ(second.pen(kOfxInteractActionPenDown, {10.0, 50.0}), kOfxStatReplyDefault);
    EXPECT_EQ(release(60.0, kMiddle), kOfxStatOK);
    EXPECT_NEAR(crop("cropLeft"), 30.0, 1e-3);
    EXPECT_EQ(other.instance.parameters()["cropLeft"].numbersAt(0).at(0), 10.0);
    EXPECT_EQ(draw(second), kOfxStatOK);
}

/// A picture of 100 wide pixels on each line, somewhere.
TEST_F(OverlayTest, APictureOfWidePixelsMayBeginAnywhere) {
    constexpr double kLeft = 30.0, kBottom = -20.0, kAcross = 60.0;
    ClipSetup clip = noiseClip(kPictureWidth / 2, kPictureHeight);
    clip.pixelAspect = 2.0;
    clip.regionOfDefinition =
        OfxRectD{kLeft, kBottom, kLeft + kPictureWidth, kBottom + kPictureHeight};
    BuiltInstance other(clip);
    other.instance.set("cropLeft", 25.0);
    Interact second(other.instance, {.viewportSize = {kViewWidth, kViewHeight},
                                     .corner = {kLeft - 20.0, kBottom - 20.0}});
    EXPECT_EQ(draw(second), kOfxStatOK);
    EXPECT_TRUE(leftLineAt(second, {kLeft + 50.0, kAcross}));
    EXPECT_FALSE(leftLineAt(second, {50.0, kAcross}));
    EXPECT_FALSE(leftLineAt(second, {kLeft + 25.0, kAcross}));
    EXPECT_FALSE(leftLineAt(second, {kLeft + 50.0, kBottom - 10.0}));

    EXPECT_EQ(second.pen(kOfxInteractActionPenDown, {kLeft + 25.0, kAcross}), kOfxStatReplyDefault);
    EXPECT_EQ(second.pen(kOfxInteractActionPenDown, {kLeft + 50.0, kAcross}), kOfxStatOK);
    EXPECT_EQ(second.pen(kOfxInteractActionPenUp, {kLeft + 90.0, kAcross}), kOfxStatOK);
    EXPECT_NEAR(other.instance.parameters()["cropLeft"].numbersAt(0).at(0), 45.0, 1e-3);
    EXPECT_EQ(draw(second), kOfxStatOK);
    EXPECT_TRUE(leftLineAt(second, {kLeft + 90.0, kAcross}));
}

TEST_F(OverlayTest, AnOverlayThatIsDestroyedDuringADragChangesNothing) {
    {
        Interact second(built_.instance, wholeView());
        EXPECT_EQ(draw(second), kOfxStatOK);
        EXPECT_EQ(second.pen(kOfxInteractActionPenDown, {50.0, kMiddle}), kOfxStatOK);
        EXPECT_EQ(second.pen(kOfxInteractActionPenMotion, {60.0, kMiddle}), kOfxStatOK);
    }
    EXPECT_EQ(crop("cropLeft"), 25.0);
    EXPECT_EQ(draw(), kOfxStatOK);
    EXPECT_TRUE(leftLineAt(50.0));
}

}  // namespace
}  // namespace ruvex::ofxhost::test
