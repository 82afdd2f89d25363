#include "tests/drawing/drawing_test.h"
#include "tests/drawing/open_gl_state.h"

namespace ruvex {
namespace {

using test::IsEmpty;
using test::Picture;
using test::readState;
using test::Shows;

class Transform : public test::DrawingTest {
protected:
    Transform() { VxTDraw::setColour(paletteRed); }
    ~Transform() override { VxTDraw::matrixStack = {}; }
};

TEST_F(Transform, MovesTurnsAndScalesWhatIsDrawn) {
    VxTDraw::pushTransform();
    VxTDraw::translate(50, 20);
    VxTDraw::rotate(90);
    VxTDraw::scale(2, 1);
    VxTDraw::drawLine(0, 0, 10, 0);
    VxTDraw::popTransform();
    VxTDraw::drawLine(0, 0, 10, 0);
    const Picture drawn = picture();
    EXPECT_THAT(drawn.at(50, 21), Shows(paletteRed));
    EXPECT_THAT(drawn.at(50, 38), Shows(paletteRed));
    EXPECT_THAT(drawn.at(50, 41), IsEmpty());
    EXPECT_THAT(drawn.at(5, 0), Shows(paletteRed));
}

TEST_F(Transform, LoadsTheTopOfTheGlobalStackAsAMapOfThePlane) {
    VxTDraw::matrixStack.multiply({{{2, 3, 91}, {5, 7, 92}, {11, 13, 93}}});
    gl().glLoadIdentity();
    VxTDraw::loadMatrixIntoGl();
    const std::vector<double> expected = {2, 3, 0, 0, 5, 7, 0, 0, 0, 0, 1, 0, 11, 13, 0, 1};
    EXPECT_EQ(readState(GL_MODELVIEW_MATRIX, 16), expected);
}

TEST_F(Transform, MultipliesTheGlobalMatrixIntoOpenGls) {
    VxTDraw::translate(10, 20);
    VxTDraw::matrixStack.multiply({{{2, 0, 0}, {0, 2, 0}, {5, 0, 1}}});
    VxTDraw::loadMatrixIntoGl();
    VxTDraw::drawLine(0, 5, 10, 5);
    const Picture drawn = picture();
    EXPECT_EQ(drawn.row(30, 14, 36), ".rrrrrrrrrrrrrrrrrrrr.");
}

}  // namespace
}  // namespace ruvex
