// What the module frees when it is detached.

#include <utility>

#include "host/module/entry_points.h"
#include "tests/drawing/drawing_test.h"
#include "tests/tool/tool_test.h"

namespace ruvex::test {
namespace {

class Detach : public DrawingTest {
protected:
    Detach() { attachModule(); }
};

int deletedQuadrics = 0;
decltype(OpenGl::gluDeleteQuadric) realDelete = nullptr;

void GLAPIENTRY deleteAndCount(GLUquadric* quadric) {
    ++deletedQuadrics;
    realDelete(quadric);
}

TEST_F(Detach, FreesTheQuadricOnceAndOpensOpenGlAgainLater) {
    for (int round = 1; round <= 3; ++round) {
        VxTDraw::drawDot(50, 30, 10, paletteRed, paletteWhite);
        EXPECT_THAT(picture().at(50, 30), Shows(paletteRed));
        realDelete = std::exchange(const_cast<OpenGl&>(gl()).gluDeleteQuadric, deleteAndCount);
        DllMain(moduleInstance, DLL_PROCESS_DETACH, nullptr);
        EXPECT_EQ(deletedQuadrics, round);
        DllMain(moduleInstance, DLL_PROCESS_DETACH, nullptr);
        EXPECT_EQ(deletedQuadrics, round);
        ASSERT_TRUE(openGl());
    }
}

TEST_F(Detach, LeavesAllAloneAtTheEndOfTheProcess) {
    VxTDraw::drawDot(50, 30, 10, paletteRed, paletteWhite);
    int processEnds = 1;
    DllMain(moduleInstance, DLL_PROCESS_DETACH, &processEnds);
    EXPECT_TRUE(gl().glGetError) << "still open";
    DllMain(moduleInstance, DLL_PROCESS_DETACH, nullptr);
    EXPECT_FALSE(gl().glGetError);
    ASSERT_TRUE(openGl());
}

}  // namespace
}  // namespace ruvex::test
