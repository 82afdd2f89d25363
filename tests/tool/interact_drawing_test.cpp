// How the tool draws in the viewer, and what it leaves of OpenGL's state.

#include <cmath>

#include "sdk/effect/content.h"
#include "tests/drawing/drawing_test.h"
#include "tests/drawing/open_gl_state.h"
#include "tests/tool/tool_test.h"

namespace ruvex::test {
namespace {

class InteractDrawing : public ToolTest {
protected:
    static constexpr LONG kWidth = 90;
    static constexpr LONG kHeight = 72;

    InteractDrawing() { surface->setWorld(0, 0, 720, 576); }

    ComPtr<runtime::HeadlessSurface> surface = runtime::HeadlessSurface::create(kWidth, kHeight);
};

TEST_F(InteractDrawing, LeavesTheHostsStateAsItWas) {
    tagVWOPENGLSURFACE info;
    // The context stays current between renders, as a host's does.
    ASSERT_EQ(surface->Begin(&info), S_OK);
    setUnusualState();
    const OpenGlState before = readState();
    ASSERT_EQ(surface->End(), S_OK);
    move(0, 300);
    ASSERT_EQ(viewer->render(*surface), S_OK);
    ASSERT_EQ(surface->Begin(&info), S_OK);
    EXPECT_EQ(readState(), before);
    EXPECT_EQ(gl().glGetError(), static_cast<GLenum>(GL_NO_ERROR));
    ASSERT_EQ(surface->End(), S_OK);
    EXPECT_GT(Picture(*surface, kWidth).drawn(), 0);
}

TEST_F(InteractDrawing, DrawsNothingWhereTheHostsStacksLeaveNoRoom) {
    const auto inContext = [&](auto action) {
        tagVWOPENGLSURFACE info;
        ASSERT_EQ(surface->Begin(&info), S_OK);
        action();
        EXPECT_EQ(gl().glGetError(), static_cast<GLenum>(GL_NO_ERROR));
        ASSERT_EQ(surface->End(), S_OK);
    };
    const int deepest = static_cast<int>([&] {
        double depth = 0;
        inContext([&] { depth = readNumber(GL_MAX_ATTRIB_STACK_DEPTH); });
        return depth;
    }());
    for (int used = deepest - 3; used <= deepest; ++used) {
        OpenGlState before;
        surface->clear(0, 0, 0);
        inContext([&] {
            for (int i = 0; i < used; ++i) gl().glPushAttrib(GL_LINE_BIT);
            before = readState();
        });
        EXPECT_EQ(viewer->render(*surface), S_OK);
        EXPECT_EQ(Picture(*surface, kWidth).drawn() > 0, used <= deepest - 2) << used;
        inContext([&] {
            EXPECT_EQ(readState(), before) << used;
            EXPECT_EQ(readNumber(GL_ATTRIB_STACK_DEPTH), used);
            for (int i = 0; i < used; ++i) gl().glPopAttrib();
        });
    }
}

TEST_F(InteractDrawing, MakesItsFontOnce) {
    ASSERT_EQ(viewer->render(*surface), S_OK);
    const std::uint32_t lists = tool().fontLists;
    EXPECT_NE(lists, 0u);
    for (int i = 0; i < 100; ++i) ASSERT_EQ(viewer->render(*surface), S_OK);
    EXPECT_EQ(tool().fontLists, lists);
    EXPECT_EQ(VxTDraw::currentFont, lists);
    tagVWOPENGLSURFACE info;
    ASSERT_EQ(surface->Begin(&info), S_OK);
    EXPECT_EQ(gl().glGenLists(1), lists + 96) << "no other lists were made";
    ASSERT_EQ(surface->End(), S_OK);
}

TEST_F(InteractDrawing, ThePenReachesFourPixelsAtEveryZoom) {
    for (const double zoom : {1.0, 0.25, 3.0}) {
        surface->setWorld(-10, 20, 720 / zoom, 576 / zoom);
        ASSERT_EQ(viewer->render(*surface), S_OK);
        EXPECT_FLOAT_EQ(tool().pickRadius.x, static_cast<float>(4 * 720 / zoom / kWidth));
        EXPECT_FLOAT_EQ(tool().pickRadius.y, static_cast<float>(4 * 576 / zoom / kHeight));
    }
    // With the pen: a pixel is 8, 32 and 2.5 units wide.
    for (const float pixel : {8.0f, 32.0f, 2.5f}) {
        surface->setWorld(0, 0, pixel * kWidth, pixel * kHeight);
        ASSERT_EQ(viewer->render(*surface), S_OK);
        move(4 * pixel - 0.1f, 300);
        EXPECT_EQ(box().handle, VxTRectangle::kLeft);
        move(4 * pixel + 0.1f, 300);
        EXPECT_EQ(box().handle, 0u);
    }
}

TEST_F(InteractDrawing, AnEmptyOrReversedWorldDoesNoHarm) {
    for (const auto& [width, height] : {std::pair{0.0, 0.0}, {-720.0, -576.0}, {720.0, 0.0}}) {
        surface->setWorld(0, 0, width, height);
        EXPECT_EQ(viewer->render(*surface), S_OK);
        move(0, 300);
        press(0, 300);
        release(0, 300);
    }
    tagVWOPENGLSURFACE info;
    ASSERT_EQ(surface->Begin(&info), S_OK);
    while (gl().glGetError() != GL_NO_ERROR) {
    }
    ASSERT_EQ(surface->End(), S_OK);
    surface->setWorld(0, 0, 720, 576);
    surface->clear(0, 0, 0);
    ASSERT_EQ(viewer->render(*surface), S_OK);
    EXPECT_GT(Picture(*surface, kWidth).drawn(), 0) << "the next render is as before";
}

TEST_F(InteractDrawing, AHiddenOverlayDrawsNothing) {
    surface->clear(0, 0, 0);
    tool().setEnabled(false);
    EXPECT_EQ(viewer->render(*surface), S_OK);
    EXPECT_EQ(Picture(*surface, kWidth).drawn(), 0);
    tool().setEnabled(true);
    EXPECT_EQ(viewer->render(*surface), S_OK);
    EXPECT_GT(Picture(*surface, kWidth).drawn(), 0);
}

/// Cannot be drawn on.
class BrokenSurface final : public ComObject<IViewerSurface> {
public:
    HRESULT Begin(tagVWOPENGLSURFACE*) override { return ++begins, E_FAIL; }
    HRESULT End() override { return ++ends, S_OK; }

    int begins = 0;
    int ends = 0;
};

TEST_F(InteractDrawing, ASurfaceThatCannotBeDrawnOnIsNoFailure) {
    const auto broken = ComPtr<BrokenSurface>::attach(new BrokenSurface);
    EXPECT_EQ(tool().OnRender(broken.get()), S_OK) << "the base's status";
    EXPECT_EQ(broken->begins, 1);
    EXPECT_EQ(broken->ends, 0);
    EXPECT_EQ(tool().fontLists, 0u);
}

TEST_F(InteractDrawing, ARenderEndsTheWishForARedraw) {
    tool().showTips = false;
    tool().managerFlags |= VxTManager::kRedrawWanted;
    ASSERT_EQ(viewer->render(*surface), S_OK);
    EXPECT_EQ(tool().managerFlags, 0u);
    redraws = 0;
    move(300, 300);
    EXPECT_EQ(redraws, 0);
}

}  // namespace
}  // namespace ruvex::test
