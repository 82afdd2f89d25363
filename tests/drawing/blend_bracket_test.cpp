#include <optional>

#include "tests/drawing/drawing_test.h"
#include "tests/drawing/open_gl_state.h"

namespace ruvex {
namespace {

using test::readNumber;
using test::readState;

class Blending : public test::DrawingTest {
protected:
    /// Which kinds are smoothed, as bits of BlendBracket::Request.
    static unsigned smoothed() {
        unsigned bits = 0;
        if (gl().glIsEnabled(GL_POINT_SMOOTH)) bits |= BlendBracket::Points;
        if (gl().glIsEnabled(GL_LINE_SMOOTH)) bits |= BlendBracket::Lines;
        if (gl().glIsEnabled(GL_POLYGON_SMOOTH)) bits |= BlendBracket::Polygons;
        return bits;
    }
};

TEST_F(Blending, SmoothsWhatIsRequestedAndRestoresTheState) {
    const auto before = readState();
    for (unsigned request = 1; request < 8; ++request) {
        {
            const BlendBracket bracket(request);
            EXPECT_TRUE(gl().glIsEnabled(GL_BLEND));
            EXPECT_EQ(readNumber(GL_BLEND_SRC), GL_SRC_ALPHA);
            EXPECT_EQ(readNumber(GL_BLEND_DST), GL_ONE_MINUS_SRC_ALPHA);
            EXPECT_EQ(smoothed(), request);
        }
        EXPECT_EQ(readState(), before) << request;
    }
}

TEST_F(Blending, DoesNothingWithoutARequest) {
    const auto before = readState();
    const BlendBracket bracket(0);
    EXPECT_EQ(readState(), before);
}

TEST_F(Blending, LeavesOnWhatWasOn) {
    gl().glEnable(GL_BLEND);
    gl().glBlendFunc(GL_ONE, GL_DST_COLOR);
    gl().glEnable(GL_LINE_SMOOTH);
    const auto before = readState();
    {
        const BlendBracket bracket(BlendBracket::Points | BlendBracket::Lines);
        EXPECT_EQ(readNumber(GL_BLEND_SRC), GL_SRC_ALPHA);
        EXPECT_EQ(smoothed(), BlendBracket::Points | BlendBracket::Lines);
    }
    EXPECT_EQ(readState(), before);
}

TEST_F(Blending, BitsWithoutAMeaningBlendAlone) {
    std::optional<BlendBracket> bracket(8u);
    EXPECT_TRUE(gl().glIsEnabled(GL_BLEND));
    EXPECT_EQ(smoothed(), 0u);
    bracket.reset();
    EXPECT_FALSE(gl().glIsEnabled(GL_BLEND));
}

TEST_F(Blending, SmoothsASlantingLine) {
    VxTDraw::setColour(paletteWhite);
    {
        const BlendBracket bracket(BlendBracket::Lines);
        VxTDraw::drawLine(10, 10, 40, 20);
    }
    const test::Picture drawn = picture();
    EXPECT_GT(drawn.drawn(), drawn.count(paletteWhite)) << "there are pixels between";
}

}  // namespace
}  // namespace ruvex
