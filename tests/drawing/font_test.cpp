#include <utility>

#include "tests/drawing/drawing_test.h"
#include "tests/drawing/open_gl_state.h"

namespace ruvex {
namespace {

using test::Picture;
using test::readState;

class Font : public test::DrawingTest {
protected:
    Font() { VxTDraw::currentFont = VxTDraw::createFont(wglGetCurrentDC()); }
    ~Font() override {
        VxTDraw::deleteFont(VxTDraw::currentFont);
        VxTDraw::currentFont = 0;
    }

    /// Draws a text at (10, 10) and returns how far it moves.
    static double advanceOf(const std::string& text) {
        VxTDraw::drawTextRaw(text.data(), static_cast<int>(text.size()), 10, 10);
        return readState(GL_CURRENT_RASTER_POSITION, 4)[0] - 10.5;
    }
};

TEST_F(Font, IsMadeWithAHeightOf18) {
    EXPECT_NE(VxTDraw::currentFont, 0u);
    EXPECT_EQ(VxTDraw::fontHeight, 18);
    EXPECT_EQ(gl().glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST_F(Font, LeavesNoErrorOfOpenGl) {
    gl().glEnable(GL_COLOR_BUFFER_BIT);  // No state has this number.
    VxTDraw::deleteFont(VxTDraw::createFont(wglGetCurrentDC()));
    EXPECT_EQ(gl().glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST_F(Font, IsNotMadeWithoutADeviceContext) {
    EXPECT_EQ(VxTDraw::createFont(nullptr), 0u);
}

TEST_F(Font, IsNotMadeForASurfaceThatIsNotBeingRendered) {
    const auto other = runtime::HeadlessSurface::create(10, 10);
    tagVWOPENGLSURFACE info;
    ASSERT_EQ(vwSurfaceBeginRenderOpenGL(other.get(), &info), S_OK);
    const HDC context = wglGetCurrentDC();
    ASSERT_EQ(vwSurfaceEndRenderOpenGL(other.get()), S_OK);
    EXPECT_EQ(VxTDraw::createFont(context), 0u);
}

TEST_F(Font, DrawsLettersUprightFromTheBaseLine) {
    VxTDraw::setColour(paletteWhite);
    VxTDraw::drawTextRaw("F", 1, 10, 10);
    const Picture drawn = picture();
    const std::vector<std::string> letter = {
        "...........",  //
        ".wwwwwwww..",  //
        ".ww........",  //
        ".ww........",  //
        ".ww........",  //
        ".ww........",  //
        ".wwwwwwww..",  //
        ".ww........",  //
        ".ww........",  //
        ".ww........",  //
        ".ww........",  //
        ".ww........",  //
        "...........",
    };
    std::vector<std::string> rows;
    for (int y = 21; y >= 9; --y) rows.push_back(drawn.row(y, 10, 21));
    EXPECT_EQ(rows, letter);
}

TEST_F(Font, DrawsTextsWithAShadowBelowThemToTheLeft) {
    VxTDraw::drawText("!", 10, 10);
    const Picture drawn = picture();
    EXPECT_EQ(drawn.row(9, 10, 18), "........");
    EXPECT_EQ(drawn.row(10, 10, 18), "..kk....");
    EXPECT_EQ(drawn.row(11, 10, 18), "..kyy...");
    EXPECT_EQ(drawn.row(20, 10, 18), "..kyy...");
    EXPECT_EQ(drawn.row(21, 10, 18), "...yy...");
    EXPECT_EQ(drawn.row(22, 10, 18), "........");
}

TEST_F(Font, DrawsNothingForNull) {
    VxTDraw::drawText(nullptr, 10, 10);
    EXPECT_EQ(picture().drawn(), 0);
}

TEST_F(Font, DrawsNothingForANullTextOrANegativeLength) {
    VxTDraw::drawTextRaw(nullptr, 3, 10, 10);
    VxTDraw::drawTextRaw("text", -1, 10, 10);
    VxTDraw::drawTextRaw("text", 0, 10, 10);
    EXPECT_EQ(picture().drawn(), 0);
    EXPECT_EQ(gl().glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST_F(Font, DrawsNothingIfOpenGlCannotSaveTheListBase) {
    gl().glListBase(7);
    int pushed = 0;
    for (; gl().glGetError() == GL_NO_ERROR; ++pushed) gl().glPushAttrib(GL_LIST_BIT);
    gl().glListBase(8);
    const double depth = test::readNumber(GL_ATTRIB_STACK_DEPTH);
    VxTDraw::drawText("text", 10, 10);
    EXPECT_EQ(picture().drawn(), 0);
    EXPECT_EQ(test::readNumber(GL_LIST_BASE), 8) << "nothing was taken from the full stack";
    EXPECT_EQ(test::readNumber(GL_ATTRIB_STACK_DEPTH), depth);
    EXPECT_EQ(gl().glGetError(), static_cast<GLenum>(GL_NO_ERROR));
    // The last push failed.
    for (int i = 1; i < pushed; ++i) gl().glPopAttrib();
    EXPECT_EQ(test::readNumber(GL_LIST_BASE), 7);
}

TEST_F(Font, DrawsNothingWithoutAFont) {
    const std::uint32_t lists = std::exchange(VxTDraw::currentFont, 0u);
    VxTDraw::drawText("text", 10, 10);
    EXPECT_EQ(picture().drawn(), 0);
    VxTDraw::currentFont = lists;
}

TEST_F(Font, TheBlankMovesAndDrawsNothing) {
    EXPECT_EQ(advanceOf(" "), 5);
    EXPECT_EQ(picture().drawn(), 0);
    EXPECT_EQ(advanceOf("F F"), advanceOf("F") + 5 + advanceOf("F"));
    EXPECT_EQ(gl().glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST_F(Font, EveryOtherCharacterMovesAndDraws) {
    for (char character = 33; character < 127; ++character) {
        surface->clear(0, 0, 0);
        EXPECT_GT(advanceOf(std::string(1, character)), 0) << character;
        EXPECT_GT(picture().drawn(), 0) << character;
    }
}

TEST_F(Font, CharactersThatItLacksDrawNothingAndMoveNothing) {
    // The lists behind the font's are those of a second font.
    const std::uint32_t second = VxTDraw::createFont(wglGetCurrentDC());
    EXPECT_EQ(second, VxTDraw::currentFont + 96);
    for (const char character : {'\0', '\x1F', '\x7F', '\x80', '\xA0', '\xC8', '\xFF'}) {
        EXPECT_EQ(advanceOf(std::string(3, character)), 0) << static_cast<int>(character);
    }
    EXPECT_EQ(picture().drawn(), 0);
    EXPECT_EQ(advanceOf("\x1F\x46\xC8\x46\x80"), 2 * advanceOf("F"));
    VxTDraw::deleteFont(second);
}

TEST_F(Font, KeepsTheListBase) {
    gl().glListBase(7);
    VxTDraw::drawText("text", 10, 10);
    EXPECT_EQ(test::readNumber(GL_LIST_BASE), 7);
}

TEST_F(Font, IsGoneWhenItIsDeleted) {
    VxTDraw::deleteFont(VxTDraw::currentFont);
    VxTDraw::drawText("text", 10, 10);
    EXPECT_EQ(picture().drawn(), 0);
    VxTDraw::deleteFont(0);
}

TEST_F(Font, BelongsToItsContext) {
    const auto second = runtime::HeadlessSurface::create(40, 40);
    tagVWOPENGLSURFACE info;
    ASSERT_EQ(vwSurfaceBeginRenderOpenGL(second.get(), &info), S_OK);
    test::useUnitsOfPixels(40, 40);
    VxTDraw::drawText("F", 10, 10);
    EXPECT_EQ(Picture(*second, 40).drawn(), 0);
    EXPECT_NE(VxTDraw::createFont(wglGetCurrentDC()), 0u);
    VxTDraw::drawText("F", 10, 10);
    EXPECT_GT(Picture(*second, 40).drawn(), 0);
    EXPECT_EQ(vwSurfaceEndRenderOpenGL(second.get()), S_OK);
}

// The functions that stand for those of Windows.

TEST_F(Font, FunctionsOfTheSystemCheckTheirArguments) {
    const HDC context = wglGetCurrentDC();
    EXPECT_EQ(CreateFontA(0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, "helv"), nullptr);
    const HFONT font = CreateFontA(18, 0, 0, 0, 700, 0, 0, 0, 0, 0, 0, 0, 0, "helv");
    ASSERT_NE(font, nullptr);
    EXPECT_EQ(SelectObject(nullptr, font), nullptr);
    EXPECT_EQ(SelectObject(context, nullptr), nullptr);
    EXPECT_NE(SelectObject(context, font), nullptr);
    EXPECT_TRUE(DeleteObject(font));
    EXPECT_FALSE(DeleteObject(nullptr));
    EXPECT_FALSE(wglUseFontBitmapsW(nullptr, 32, 96, VxTDraw::currentFont));
}

TEST_F(Font, FunctionsOfTheSystemKnowTheWidths) {
    const HDC context = wglGetCurrentDC();
    int widths[4] = {-1, -1, -1, -1};
    EXPECT_TRUE(GetCharWidth32W(context, 31, 33, widths));
    EXPECT_THAT(widths, testing::ElementsAre(0, 5, 7, -1));
    EXPECT_TRUE(GetCharWidth32W(context, 127, 128, widths));
    EXPECT_THAT(widths, testing::ElementsAre(0, 0, 7, -1));
    EXPECT_FALSE(GetCharWidth32W(nullptr, 32, 32, widths));
    EXPECT_FALSE(GetCharWidth32W(context, 32, 32, nullptr));
    EXPECT_FALSE(GetCharWidth32W(context, 33, 32, widths));
}

}  // namespace
}  // namespace ruvex
