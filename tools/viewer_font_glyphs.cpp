// Prints the table of glyphs in sdk/viewer/viewer_font_glyphs.cpp. FreeType draws them hinted, with
// 1 bit a pixel, at 15 pixels an em, which gives an ascent of 14 pixels and a descent of 4. A row
// of the table: advance, left, bottom, width, height, rows of pixels from the bottom up.
//
// The table is made once, so the build does not compile this file:
//   c++ -std=c++20 tools/viewer_font_glyphs.cpp $(pkg-config --cflags --libs freetype2)
//   ./a.out /usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf

#include <cstdio>
#include <ft2build.h>
#include <utility>
#include FT_FREETYPE_H

namespace {

constexpr unsigned kPixelsPerEm = 15;
constexpr unsigned long kBlank = 32, kDelete = 127;

/// The leftmost pixel is the highest of 16 bits.
unsigned rowOf(const FT_Bitmap& bitmap, unsigned row) {
    unsigned bits = 0;
    const unsigned char* const bytes = bitmap.buffer + static_cast<int>(row) * bitmap.pitch;
    for (unsigned column = 0; column < bitmap.width; ++column) {
        const bool isSet = bytes[column / 8] >> (7 - column % 8) & 1;
        if (isSet) bits |= 0x8000u >> column;
    }
    return bits;
}

void printGlyph(unsigned long character, const FT_GlyphSlotRec& glyph) {
    const FT_Bitmap& bitmap = glyph.bitmap;
    const int bottom = glyph.bitmap_top - static_cast<int>(bitmap.rows);
    std::printf("    // '%c'\n    {%ld, %d, %d, %u, %u,\n     {", static_cast<char>(character),
                glyph.advance.x / 64, glyph.bitmap_left, bottom, bitmap.width, bitmap.rows);
    const char* comma = "";
    for (unsigned row = bitmap.rows; row-- > 0;) {
        std::printf("%s0x%04X", std::exchange(comma, ", "), rowOf(bitmap, row));
    }
    std::printf("}},\n");
}

long blankAdvance(FT_Face face) {
    return FT_Load_Char(face, kBlank, FT_LOAD_TARGET_MONO) ? 0 : face->glyph->advance.x / 64;
}

bool printAll(FT_Face face) {
    std::printf("    // The blank\n    {%ld, 0, 0, 0, 0, {}},\n", blankAdvance(face));
    for (unsigned long character = kBlank + 1; character < kDelete; ++character) {
        constexpr FT_Int32 kFlags = FT_LOAD_RENDER | FT_LOAD_TARGET_MONO;
        if (FT_Load_Char(face, character, kFlags)) return false;
        printGlyph(character, *face->glyph);
    }
    std::printf("    // The font has no character %lu.\n    {0, 0, 0, 0, 0, {}},\n", kDelete);
    return true;
}

}  // namespace

int main(int count, char** arguments) {
    FT_Library library = nullptr;
    FT_Face face = nullptr;
    if (count != 2 || FT_Init_FreeType(&library) || FT_New_Face(library, arguments[1], 0, &face) ||
        FT_Set_Pixel_Sizes(face, 0, kPixelsPerEm)) {
        std::fprintf(stderr, "Usage: viewer_font_glyphs FONT.ttf\n");
        return 1;
    }
    std::fprintf(stderr, "ascent %ld, descent %ld\n", face->size->metrics.ascender / 64,
                 -face->size->metrics.descender / 64);
    return printAll(face) ? 0 : 1;
}
