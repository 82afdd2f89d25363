// A fixture that draws the on-screen controls off screen and looks at the pixels.

#pragma once

#include <gmock/gmock.h>
#include <ostream>
#include <string>
#include <vector>

#include "overlay/draw.h"
#include "runtime/headless_surface.h"
#include "sdk/open_gl/open_gl.h"

namespace ruvex::test {

struct Pixel {
    int red, green, blue;

    friend std::ostream& operator<<(std::ostream& out, const Pixel& pixel) {
        return out << '(' << pixel.red << ", " << pixel.green << ", " << pixel.blue << ')';
    }
};

/// Whether each channel of the pixel differs by at most 1 of 255 from the colour's.
bool shows(const Pixel& pixel, const VxColour& colour);

MATCHER_P(Shows, colour, "shows " + testing::PrintToString(colour)) {
    return shows(arg, colour);
}

/// What the surface shows where nothing is drawn.
inline constexpr VxColour kEmpty{0.0f, 0.0f, 0.0f};
MATCHER(IsEmpty, "is empty") {
    return shows(arg, kEmpty);
}

/// The pixels of a surface at one moment.
class Picture {
public:
    explicit Picture(const runtime::HeadlessSurface& surface, int width);

    /// From the left and from the bottom.
    Pixel at(int x, int y) const;
    /// A row's pixels as letters: the initials of the palette's colours (r, g, b, w; k for dark, y
    /// for text, m for grey), '.' where it is empty and '?' for all other colours.
    std::string row(int y, int from, int to) const;
    /// The same for a column, from the bottom up.
    std::string column(int x, int from, int to) const;
    int count(const VxColour& colour) const;
    /// How many pixels are not empty.
    int drawn() const;

private:
    std::vector<std::uint8_t> rgba_;
    int width_;
};

/// Each test is one render. A unit is a pixel, and whole numbers are the centres of pixels.
class DrawingTest : public testing::Test {
protected:
    static constexpr int kWidth = 100;
    static constexpr int kHeight = 60;

    /// Begins the render, without line stipple.
    DrawingTest();
    /// Expects that OpenGL has no error, and ends the render.
    ~DrawingTest() override;

    Picture picture() const { return Picture(*surface, kWidth); }

    ComPtr<runtime::HeadlessSurface> surface = runtime::HeadlessSurface::create(kWidth, kHeight);
};

/// Changes OpenGL's matrix so that pixel centres of a surface of this size are whole numbers.
void useUnitsOfPixels(int width, int height);

}  // namespace ruvex::test
