#include "sdk/viewer/viewer_font.h"

#include "sdk/open_gl/open_gl.h"
#include "sdk/viewer/viewer_font_glyphs.h"

struct DSGdiObject {};

namespace {

using ruvex::gl;
using ruvex::ViewerGlyph;

DSGdiObject theFont;
DSGdiObject fontBefore;

/// Null for a character that the font lacks.
const ViewerGlyph* glyphOf(std::uint32_t character) {
    const std::uint32_t index = character - ruvex::kFirstViewerGlyph;
    return index < ruvex::kViewerGlyphs ? &ruvex::viewerGlyphs[index] : nullptr;
}

/// The picture as glBitmap takes it: rows of 4 bytes, of which a glyph fills the first two.
struct GlyphBytes {
    explicit GlyphBytes(const ViewerGlyph& glyph) {
        for (int row = 0; row < glyph.height; ++row) {
            bytes[row][0] = static_cast<unsigned char>(glyph.rows[row] >> 8);
            bytes[row][1] = static_cast<unsigned char>(glyph.rows[row] & 0xFF);
        }
    }

    unsigned char bytes[ViewerGlyph::kMaxHeight][4] = {};
};

void drawGlyph(const ViewerGlyph& glyph) {
    const auto left = static_cast<float>(glyph.left), bottom = static_cast<float>(glyph.bottom);
    gl().glBitmap(glyph.width, glyph.height, -left, -bottom, static_cast<float>(glyph.advance), 0,
                  GlyphBytes(glyph).bytes[0]);
}

}  // namespace

HFONT CreateFontA(int height, int, int, int, int, DWORD, DWORD, DWORD, DWORD, DWORD, DWORD, DWORD,
                  DWORD, const char*) {
    return height != 0 ? &theFont : nullptr;
}

HGDIOBJ SelectObject(HDC context, HGDIOBJ object) {
    return context && object ? &fontBefore : nullptr;
}

BOOL DeleteObject(HGDIOBJ object) {
    return object != nullptr;
}

BOOL GetCharWidth32W(HDC context, UINT first, UINT last, int* widths) {
    if (!context || !widths || first > last) return FALSE;
    for (UINT i = 0; i <= last - first; ++i) {
        const ViewerGlyph* const glyph = glyphOf(first + i);
        widths[i] = glyph ? glyph->advance : 0;
    }
    return TRUE;
}

BOOL wglUseFontBitmapsW(HDC context, DWORD first, DWORD count, DWORD listBase) {
    if (!context || context != wglGetCurrentDC()) return FALSE;
    for (DWORD i = 0; i < count; ++i) {
        const ViewerGlyph* const glyph = glyphOf(first + i);
        gl().glNewList(listBase + i, GL_COMPILE);
        // A glyph without pixels in a list is an error in some implementations of OpenGL.
        if (glyph && glyph->width > 0) drawGlyph(*glyph);
        gl().glEndList();
    }
    return TRUE;
}
