#include "tests/drawing/drawing_test.h"

#include <cmath>
#include <cstdlib>

namespace ruvex::test {
namespace {

bool isNear(int value, float channel) {
    return std::abs(value - static_cast<int>(std::lround(channel * 255.0f))) <= 1;
}

char letterOf(const Pixel& pixel) {
    struct Name {
        VxColour colour;
        char letter;
    };
    constexpr Name kNames[] = {
        {kEmpty, '.'},      {paletteRed, 'r'},  {paletteGreen, 'g'}, {paletteBlue, 'b'},
        {paletteGrey, 'm'}, {paletteDark, 'k'}, {paletteWhite, 'w'}, {paletteText, 'y'},
    };
    for (const Name& name : kNames) {
        if (shows(pixel, name.colour)) return name.letter;
    }
    return '?';
}

}  // namespace

bool shows(const Pixel& pixel, const VxColour& colour) {
    return isNear(pixel.red, colour.r) && isNear(pixel.green, colour.g) &&
           isNear(pixel.blue, colour.b);
}

Picture::Picture(const runtime::HeadlessSurface& surface, int width)
    : rgba_(surface.pixels()), width_(width) {}

Pixel Picture::at(int x, int y) const {
    const std::uint8_t* const pixel = &rgba_.at(static_cast<std::size_t>(4 * (y * width_ + x)));
    return {pixel[0], pixel[1], pixel[2]};
}

std::string Picture::row(int y, int from, int to) const {
    std::string letters;
    for (int x = from; x < to; ++x) letters += letterOf(at(x, y));
    return letters;
}

std::string Picture::column(int x, int from, int to) const {
    std::string letters;
    for (int y = from; y < to; ++y) letters += letterOf(at(x, y));
    return letters;
}

int Picture::count(const VxColour& colour) const {
    const int height = static_cast<int>(rgba_.size()) / 4 / width_;
    int found = 0;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width_; ++x) found += shows(at(x, y), colour);
    }
    return found;
}

int Picture::drawn() const {
    return static_cast<int>(rgba_.size()) / 4 - count(kEmpty);
}

DrawingTest::DrawingTest() {
    tagVWOPENGLSURFACE info;
    EXPECT_EQ(vwSurfaceBeginRenderOpenGL(surface.get(), &info), S_OK);
    useUnitsOfPixels(kWidth, kHeight);
}

DrawingTest::~DrawingTest() {
    EXPECT_EQ(gl().glGetError(), static_cast<GLenum>(GL_NO_ERROR));
    EXPECT_EQ(vwSurfaceEndRenderOpenGL(surface.get()), S_OK);
}

void useUnitsOfPixels(int width, int height) {
    gl().glOrtho(-0.5, width - 0.5, -0.5, height - 0.5, -100.0, 100.0);
}

}  // namespace ruvex::test
