#include <algorithm>
#include <cstring>

#include "overlay/draw.h"
#include "sdk/open_gl/open_gl.h"

namespace ruvex {
namespace {

constexpr int kFontHeight = 18;
constexpr int kBold = 700;
constexpr char kFace[] = "helv";

/// The characters that have display lists.
constexpr unsigned kFirstCharacter = 32;
constexpr unsigned kCharacters = 96;

bool hasList(char character) {
    const unsigned code = static_cast<unsigned char>(character);
    return code - kFirstCharacter < kCharacters;
}

/// OpenGL stores at most one error of each kind.
void clearErrors() {
    constexpr int kMost = 16;
    for (int i = 0; i < kMost && gl().glGetError() != GL_NO_ERROR; ++i) {
    }
}

/// Replaces the list of the blank. Some implementations of OpenGL report an error for a glyph
/// without pixels and lose its advance.
void makeBlank(GLuint list, int advance) {
    const GLubyte pixel = 0;
    gl().glNewList(list, GL_COMPILE);
    gl().glBitmap(1, 1, 0.0f, 0.0f, static_cast<float>(advance), 0.0f, &pixel);
    gl().glEndList();
}

/// The lists of the font that is selected into `context`; 0 if they can't be made.
GLuint makeLists(HDC context) {
    const GLuint lists = gl().glGenLists(kCharacters);
    if (lists == 0) return 0;
    if (!wglUseFontBitmapsW(context, kFirstCharacter, kCharacters, lists)) {
        VxTDraw::deleteFont(lists);
        return 0;
    }
    int advance = 0;
    if (GetCharWidth32W(context, kFirstCharacter, kFirstCharacter, &advance)) {
        makeBlank(lists, advance);
    }
    // A blank that is left as it is may have left an error.
    clearErrors();
    return lists;
}

}  // namespace

std::uint32_t VxTDraw::createFont(HDC context) {
    if (!context || !openGl()) return 0;
    const HFONT font = CreateFontA(kFontHeight, 0, 0, 0, kBold, 0, 0, 0, 0, 0, 0, 0, 0, kFace);
    if (!font) return 0;
    const HGDIOBJ before = SelectObject(context, font);
    const GLuint lists = makeLists(context);
    if (lists != 0) fontHeight = kFontHeight;
    SelectObject(context, before);
    DeleteObject(font);
    return lists;
}

void VxTDraw::deleteFont(std::uint32_t lists) {
    if (lists != 0) gl().glDeleteLists(lists, kCharacters);
}

void VxTDraw::drawTextRaw(const char* text, int length, float x, float y) {
    if (currentFont == 0 || !text || length < 0 || !canPushAttributes()) return;
    gl().glRasterPos2f(x, y);
    gl().glPushAttrib(GL_LIST_BIT);
    gl().glListBase(currentFont - kFirstCharacter);
    // Only the characters of the font: the lists before and behind it are somebody else's.
    const char* const end = text + length;
    for (const char* from = text; from != end;) {
        const char* const first = std::find_if(from, end, hasList);
        from = std::find_if_not(first, end, hasList);
        gl().glCallLists(static_cast<GLsizei>(from - first), GL_UNSIGNED_BYTE, first);
    }
    gl().glPopAttrib();
}

void VxTDraw::drawText(const char* text, float x, float y) {
    if (!text) return;
    const int length = static_cast<int>(std::strlen(text));
    setColour(paletteDark);
    drawTextRaw(text, length, x, y);
    setColour(paletteText);
    drawTextRaw(text, length, x + 1.0f, y + 1.0f);
}

}  // namespace ruvex
