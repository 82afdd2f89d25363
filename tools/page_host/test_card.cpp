#include <algorithm>

#include "tools/page_host/picture.h"

namespace ruvex::page_host {
namespace {

struct Colour {
    std::uint8_t red, green, blue;
};

/// Bars of 75 % amplitude, in the order of falling brightness.
constexpr Colour kBars[] = {{191, 191, 191}, {191, 191, 0}, {0, 191, 191}, {0, 191, 0},
                            {191, 0, 191},   {191, 0, 0},   {0, 0, 191}};
constexpr int kBarCount = static_cast<int>(std::size(kBars));
constexpr Colour kGridLine{160, 160, 160};
constexpr Colour kGridField{48, 48, 56};
/// The picture's height in squares of the grid.
constexpr int kGridRows = 12;

Colour ramp(int x, int width) {
    const auto grey = static_cast<std::uint8_t>(255 * x / std::max(1, width - 1));
    return {grey, grey, grey};
}

/// The picture in three bands, from the bottom: a grid, a ramp, the bars.
Colour colourAt(int x, int y, int width, int height) {
    if (y >= height / 2) return kBars[kBarCount * x / width];
    if (y >= height / 3) return ramp(x, width);
    const int square = std::max(2, height / kGridRows);
    return x % square == 0 || y % square == 0 ? kGridLine : kGridField;
}

}  // namespace

Picture makeTestCard(int width, int height) {
    Picture picture(width, height);
    picture.name = L"Test card";
    for (int y = 0; y < height; ++y) {
        std::uint8_t* pixel = picture.row(y);
        for (int x = 0; x < width; ++x, pixel += 4) {
            const Colour colour = colourAt(x, y, width, height);
            pixel[0] = colour.red;
            pixel[1] = colour.green;
            pixel[2] = colour.blue;
            pixel[3] = 255;
        }
    }
    return picture;
}

}  // namespace ruvex::page_host
