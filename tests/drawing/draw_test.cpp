#include "tests/drawing/drawing_test.h"
#include "tests/drawing/open_gl_state.h"

namespace ruvex {
namespace {

using test::IsEmpty;
using test::Picture;
using test::readNumber;
using test::Shows;

class Draw : public test::DrawingTest {};

TEST_F(Draw, LinesHaveThePresentColourAndLeaveOutTheirLastPixel) {
    VxTDraw::setColour(paletteRed);
    VxTDraw::drawLine(10, 5, 20, 5);
    VxTDraw::setColour(paletteGreen);
    VxTDraw::drawLine(30, 10, 30, 20);
    const Picture drawn = picture();
    EXPECT_EQ(drawn.row(5, 8, 22), "..rrrrrrrrrr..");
    EXPECT_EQ(drawn.row(6, 8, 22), "..............");
    EXPECT_THAT(drawn.at(30, 9), IsEmpty());
    EXPECT_THAT(drawn.at(30, 10), Shows(paletteGreen));
    EXPECT_THAT(drawn.at(30, 19), Shows(paletteGreen));
    EXPECT_THAT(drawn.at(30, 20), IsEmpty());
    EXPECT_EQ(drawn.drawn(), 20);
}

TEST_F(Draw, LinesAreAsWideAsIsSet) {
    VxTDraw::setColour(paletteRed);
    VxTDraw::setLineWidth(3.0f);
    VxTDraw::drawLine(10, 20, 30, 20);
    const Picture drawn = picture();
    for (const int y : {19, 20, 21}) EXPECT_THAT(drawn.at(15, y), Shows(paletteRed)) << y;
    EXPECT_THAT(drawn.at(15, 18), IsEmpty());
    EXPECT_THAT(drawn.at(15, 22), IsEmpty());
}

TEST_F(Draw, StippledLinesHaveFourPixelsOfEachColour) {
    gl().glEnable(GL_LINE_STIPPLE);
    VxTDraw::drawStippledLine(10, 7, 34, 7, paletteRed, paletteWhite);
    EXPECT_EQ(picture().row(7, 8, 36), "..rrrrwwwwrrrrwwwwrrrrwwww..");
}

TEST_F(Draw, WithoutStippleTheSecondColourCoversTheFirst) {
    VxTDraw::drawStippledLine(10, 7, 18, 7, paletteRed, paletteWhite);
    EXPECT_EQ(picture().row(7, 8, 20), "..wwwwwwww..");
}

TEST_F(Draw, StippledDrawingsRestoreTheStipple) {
    gl().glEnable(GL_LINE_STIPPLE);
    gl().glLineStipple(3, 0x1234);
    VxTDraw::drawStippledLine(10, 7, 34, 7, paletteRed, paletteWhite);
    EXPECT_EQ(readNumber(GL_LINE_STIPPLE_PATTERN), 0x1234);
    EXPECT_EQ(readNumber(GL_LINE_STIPPLE_REPEAT), 3);
    VxTDraw::drawStippledArc(50, 30, 20, 0, 90, paletteRed, paletteWhite);
    EXPECT_EQ(readNumber(GL_LINE_STIPPLE_PATTERN), 0x1234);
    EXPECT_EQ(readNumber(GL_LINE_STIPPLE_REPEAT), 3);
}

TEST_F(Draw, RectanglesHaveFourEdgesAndAreEmptyInside) {
    VxTDraw::setColour(paletteBlue);
    VxTDraw::drawRectOutline(10, 20, 30, 40);
    const Picture drawn = picture();
    for (const int x : {10, 20, 30}) {
        EXPECT_THAT(drawn.at(x, 20), Shows(paletteBlue)) << x;
        EXPECT_THAT(drawn.at(x, 40), Shows(paletteBlue)) << x;
    }
    EXPECT_THAT(drawn.at(10, 30), Shows(paletteBlue));
    EXPECT_THAT(drawn.at(30, 30), Shows(paletteBlue));
    EXPECT_THAT(drawn.at(20, 30), IsEmpty());
    EXPECT_EQ(drawn.drawn(), 80);
}

TEST_F(Draw, FilledRectanglesCoverTheirInside) {
    VxTDraw::setColour(paletteGrey);
    VxTDraw::drawFilledRect(9.5f, 19.5f, 29.5f, 39.5f);
    const Picture drawn = picture();
    EXPECT_THAT(drawn.at(10, 20), Shows(paletteGrey));
    EXPECT_THAT(drawn.at(29, 39), Shows(paletteGrey));
    EXPECT_EQ(drawn.at(29, 39).red, 153);
    EXPECT_THAT(drawn.at(9, 20), IsEmpty());
    EXPECT_THAT(drawn.at(30, 39), IsEmpty());
    EXPECT_EQ(drawn.count(paletteGrey), 400);
}

TEST_F(Draw, ArrowsPointAlongTheirDirection) {
    VxTDraw::drawArrow({50, 40}, {0, 2}, {12, 6}, paletteRed, paletteWhite);
    const Picture drawn = picture();
    EXPECT_THAT(drawn.at(50, 33), Shows(paletteRed)) << "inside";
    EXPECT_THAT(drawn.at(46, 30), Shows(paletteRed));
    EXPECT_THAT(drawn.at(54, 30), Shows(paletteRed));
    EXPECT_THAT(drawn.at(50, 28), Shows(paletteWhite)) << "the base";
    EXPECT_THAT(drawn.at(50, 27), IsEmpty());
    EXPECT_THAT(drawn.at(50, 42), IsEmpty()) << "beyond the tip";
    EXPECT_THAT(drawn.at(45, 38), IsEmpty()) << "beside the tip";
    EXPECT_EQ(readNumber(GL_MODELVIEW_STACK_DEPTH), 1);
}

TEST_F(Draw, ArrowsPointToTheLeftToo) {
    VxTDraw::drawArrow({20, 30}, {-1, 0}, {12, 6}, paletteGreen, paletteDark);
    const Picture drawn = picture();
    EXPECT_THAT(drawn.at(28, 30), Shows(paletteGreen));
    EXPECT_THAT(drawn.at(32, 30), Shows(paletteDark)) << "the base";
    EXPECT_THAT(drawn.at(18, 30), IsEmpty());
    EXPECT_THAT(drawn.at(34, 30), IsEmpty());
}

}  // namespace
}  // namespace ruvex
