#include <limits>

#include "tests/drawing/drawing_test.h"
#include "tests/drawing/open_gl_state.h"

namespace ruvex {
namespace {

using test::IsEmpty;
using test::Picture;
using test::readNumber;
using test::Shows;

/// All shapes have this centre and this radius.
constexpr float kX = 50, kY = 30, kRadius = 20;

class RoundShapes : public test::DrawingTest {
protected:
    RoundShapes() { VxTDraw::setColour(paletteRed); }

    /// Which of the points at 0, 45, ... 315 degrees of the circle are drawn.
    std::vector<int> drawnDegrees() const {
        struct Point {
            int degrees, x, y;
        };
        constexpr Point kPoints[] = {{0, 70, 30},   {45, 64, 44},  {90, 50, 50},  {135, 36, 44},
                                     {180, 30, 30}, {225, 36, 16}, {270, 50, 10}, {315, 64, 16}};
        const Picture drawn = picture();
        std::vector<int> degrees;
        for (const Point& point : kPoints) {
            if (isDrawnNear(drawn, point.x, point.y)) degrees.push_back(point.degrees);
        }
        return degrees;
    }

private:
    /// A circle's edge may be drawn one pixel aside.
    static bool isDrawnNear(const Picture& drawn, int x, int y) {
        for (int i = -1; i <= 1; ++i) {
            for (int k = -1; k <= 1; ++k) {
                if (shows(drawn.at(x + i, y + k), paletteRed)) return true;
            }
        }
        return false;
    }
};

TEST_F(RoundShapes, ArcsRunAnticlockwiseFromTheXAxis) {
    VxTDraw::drawArc(kX, kY, kRadius, -10, 100);
    EXPECT_EQ(drawnDegrees(), (std::vector<int>{0, 45, 90}));
    EXPECT_THAT(picture().at(50, 30), IsEmpty());
    EXPECT_THAT(picture().at(58, 36), IsEmpty()) << "only the edge is drawn";
}

TEST_F(RoundShapes, ArcsMayBeginAndEndAnywhere) {
    VxTDraw::drawArc(kX, kY, kRadius, 170, 280);
    EXPECT_EQ(drawnDegrees(), (std::vector<int>{180, 225, 270}));
}

TEST_F(RoundShapes, AnArcThatEndsBelowItsStartRunsBackwards) {
    VxTDraw::drawArc(kX, kY, kRadius, 100, 35);
    EXPECT_EQ(drawnDegrees(), (std::vector<int>{45, 90}));
}

TEST_F(RoundShapes, AFilledArcIsASector) {
    VxTDraw::drawArc(kX, kY, kRadius, 0, 90, QuadricStyle::Fill);
    const Picture drawn = picture();
    EXPECT_THAT(drawn.at(58, 38), Shows(paletteRed));
    EXPECT_THAT(drawn.at(52, 31), Shows(paletteRed));
    EXPECT_THAT(drawn.at(42, 38), IsEmpty());
    EXPECT_THAT(drawn.at(58, 22), IsEmpty());
    EXPECT_THAT(drawn.at(68, 48), IsEmpty());
}

TEST_F(RoundShapes, StippledArcsShowBothColours) {
    gl().glEnable(GL_LINE_STIPPLE);
    VxTDraw::drawStippledArc(kX, kY, kRadius, 0, 180, paletteRed, paletteWhite);
    const Picture drawn = picture();
    EXPECT_GT(drawn.count(paletteRed), 20);
    EXPECT_GT(drawn.count(paletteWhite), 20);
    EXPECT_EQ(drawn.count(paletteRed) + drawn.count(paletteWhite), drawn.drawn());
    EXPECT_THAT(drawn.at(50, 10), IsEmpty());
}

TEST_F(RoundShapes, DisksAreFilledAndCirclesAreNot) {
    VxTDraw::drawDisk(25, 30, 10);
    VxTDraw::drawCircle(75, 30, 10);
    const Picture drawn = picture();
    EXPECT_THAT(drawn.at(25, 30), Shows(paletteRed));
    EXPECT_THAT(drawn.at(33, 30), Shows(paletteRed));
    EXPECT_THAT(drawn.at(25, 22), Shows(paletteRed));
    EXPECT_THAT(drawn.at(36, 30), IsEmpty());
    EXPECT_THAT(drawn.at(33, 38), IsEmpty());
    EXPECT_THAT(drawn.at(75, 30), IsEmpty());
    EXPECT_THAT(drawn.at(85, 30), Shows(paletteRed));
    EXPECT_THAT(drawn.at(75, 20), Shows(paletteRed));
    EXPECT_THAT(drawn.at(87, 30), IsEmpty());
}

TEST_F(RoundShapes, DotsHaveAnOutline) {
    VxTDraw::drawDot(kX, kY, 10, paletteGreen, paletteWhite);
    const Picture drawn = picture();
    EXPECT_THAT(drawn.at(50, 30), Shows(paletteGreen));
    EXPECT_THAT(drawn.at(57, 30), Shows(paletteGreen));
    EXPECT_THAT(drawn.at(60, 30), Shows(paletteWhite));
    EXPECT_THAT(drawn.at(50, 20), Shows(paletteWhite));
    EXPECT_THAT(drawn.at(62, 30), IsEmpty());
}

TEST_F(RoundShapes, WithoutARadiusNothingIsDrawn) {
    for (const float radius : {0.0f, -5.0f, std::numeric_limits<float>::quiet_NaN()}) {
        VxTDraw::drawArc(kX, kY, radius, 0, 90);
        VxTDraw::drawStippledArc(kX, kY, radius, 0, 90, paletteRed, paletteWhite);
        VxTDraw::drawDot(kX, kY, radius, paletteRed, paletteWhite);
    }
    EXPECT_EQ(picture().drawn(), 0);
}

TEST_F(RoundShapes, KeepTheMatrix) {
    const auto before = test::readState(GL_MODELVIEW_MATRIX, 16);
    VxTDraw::drawArc(kX, kY, kRadius, 0, 90);
    VxTDraw::drawArc(kX, kY, 0, 0, 90);
    VxTDraw::drawDot(kX, kY, kRadius, paletteRed, paletteWhite);
    EXPECT_EQ(test::readState(GL_MODELVIEW_MATRIX, 16), before);
    EXPECT_EQ(readNumber(GL_MODELVIEW_STACK_DEPTH), 1);
}

TEST_F(RoundShapes, CanBeDrawnInASecondContext) {
    VxTDraw::drawDisk(kX, kY, kRadius);
    const auto second = runtime::HeadlessSurface::create(40, 40);
    tagVWOPENGLSURFACE info;
    ASSERT_EQ(vwSurfaceBeginRenderOpenGL(second.get(), &info), S_OK);
    test::useUnitsOfPixels(40, 40);
    VxTDraw::setColour(paletteGreen);
    VxTDraw::drawDisk(10, 10, 5);
    EXPECT_EQ(vwSurfaceEndRenderOpenGL(second.get()), S_OK);
    EXPECT_THAT(Picture(*second, 40).at(10, 10), Shows(paletteGreen));
    EXPECT_THAT(picture().at(10, 10), IsEmpty());
    EXPECT_THAT(picture().at(50, 30), Shows(paletteRed));
}

TEST_F(RoundShapes, CanBeDrawnAgainAfterARelease) {
    VxTDraw::drawDisk(25, 30, 10);
    releaseDrawing();
    releaseDrawing();
    ASSERT_NE(openGl(), nullptr);
    VxTDraw::drawDisk(75, 30, 10);
    EXPECT_THAT(picture().at(25, 30), Shows(paletteRed));
    EXPECT_THAT(picture().at(75, 30), Shows(paletteRed));
}

}  // namespace
}  // namespace ruvex
