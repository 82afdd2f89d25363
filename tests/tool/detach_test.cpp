// What the module frees when it is detached.

#include "host/module/entry_points.h"
#include "tests/drawing/drawing_test.h"
#include "tests/tool/tool_test.h"

namespace ruvex::test {
namespace {

class Detach : public DrawingTest {
protected:
    Detach() { attachModule(); }
};

TEST_F(Detach, FreesTheQuadricAndOpensOpenGlAgainLater) {
    for (int round = 0; round < 3; ++round) {
        VxTDraw::drawDot(50, 30, 10, paletteRed, paletteWhite);
        EXPECT_THAT(picture().at(50, 30), Shows(paletteRed));
        DllMain(moduleInstance, DLL_PROCESS_DETACH, nullptr);
        DllMain(moduleInstance, DLL_PROCESS_DETACH, nullptr);
        ASSERT_TRUE(openGl());
        VxTDraw::drawDot(50, 30, 10, paletteGreen, paletteWhite);
        EXPECT_THAT(picture().at(50, 30), Shows(paletteGreen));
    }
    DllMain(moduleInstance, DLL_PROCESS_DETACH, nullptr);
    ASSERT_TRUE(openGl());
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
