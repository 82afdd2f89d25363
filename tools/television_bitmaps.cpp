// Draws the bitmaps of the dialogs: a television with snow and a torn picture.
//
//   television_bitmaps [--check] FOLDER      writes, or compares, television_32.bmp and
//                                            television_64.bmp

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>

namespace ruvex {
namespace {

struct Colour {
    int red, green, blue;

    Colour scaled(int percent) const {
        return {red * percent / 100, green * percent / 100, blue * percent / 100};
    }
};

constexpr Colour kDialogGrey{240, 240, 240};
constexpr Colour kCabinet{122, 78, 46};
constexpr Colour kPanel{88, 56, 34};
constexpr Colour kKnob{214, 196, 160};
constexpr Colour kAntenna{90, 90, 96};
constexpr Colour kFrame{34, 30, 30};
/// The test picture: eight bars from left to right.
constexpr Colour kBars[] = {{235, 235, 235}, {225, 215, 40}, {50, 205, 205}, {50, 190, 60},
                            {205, 60, 200},  {205, 50, 50},  {50, 60, 200},  {30, 30, 30}};

/// The drawing is made on a grid of 64 x 64 units; coordinates are in eighths of a unit.
constexpr int kEighths = 8;
constexpr int kUnits = 64;

constexpr int eighths(double units) {
    return static_cast<int>(units * kEighths);
}

struct Box {
    int left, top, right, bottom;  // in units; right and bottom are outside

    bool contains(int x, int y) const {
        return x >= left * kEighths && x < right * kEighths && y >= top * kEighths &&
               y < bottom * kEighths;
    }
    /// The same with corners cut to a circle of `radius` units.
    bool containsRounded(int x, int y, int radius) const {
        const int r = radius * kEighths;
        const int dx = beyond(x, left * kEighths + r, right * kEighths - 1 - r);
        const int dy = beyond(y, top * kEighths + r, bottom * kEighths - 1 - r);
        return contains(x, y) && dx * dx + dy * dy <= r * r;
    }
    /// How far `value` lies outside low..high; 0 inside.
    static int beyond(int value, int low, int high) {
        return value < low ? low - value : value > high ? value - high : 0;
    }
};

constexpr Box kBody{3, 20, 61, 58};
constexpr Box kScreenFrame{7, 24, 47, 54};
constexpr Box kScreen{9, 26, 45, 52};
constexpr Box kSidePanel{49, 25, 58, 53};

/// True near the line from the cabinet's top centre to (endX, 3), both in eighths.
bool isOnAntenna(int x, int y, int endX) {
    const int startX = eighths(32);
    const int startY = eighths(21);
    const int endY = eighths(3);
    if (y < endY || y > startY) return false;
    const int lineX = startX + (endX - startX) * (startY - y) / (startY - endY);
    return x > lineX - eighths(1.1) && x < lineX + eighths(1.1);
}

bool isOnDisc(int x, int y, int centreX, int centreY, int radius) {
    const int dx = x - centreX * kEighths;
    const int dy = y - centreY * kEighths;
    return dx * dx + dy * dy <= radius * radius * kEighths * kEighths;
}

/// A number from 0 to 99 that looks random, the same for the same cell in every drawing.
int noise(int column, int row) {
    std::uint32_t n = static_cast<std::uint32_t>(column) * 374761393u +
                      static_cast<std::uint32_t>(row) * 668265263u + 3u;
    n = (n ^ n >> 13) * 1274126177u;
    return static_cast<int>((n ^ n >> 16) % 100);
}

/// How far a line of the picture is torn to the right, in units: two bands, the lower one wider.
int tear(int row) {
    if (row >= 8 && row < 11) return 4 + row % 2;
    if (row >= 16 && row < 21) return -7 + row % 3;
    return 0;
}

/// The picture on the screen: torn bars, every third cell or so covered with snow.
Colour screenColour(int x, int y) {
    const int column = x / kEighths - kScreen.left;
    const int row = y / kEighths - kScreen.top;
    const int width = kScreen.right - kScreen.left;
    const int snow = noise(column, row);
    if (snow < 26) return snow < 13 ? Colour{250, 250, 250} : Colour{20, 20, 20};
    const int shifted = (column - tear(row) + width) % width;
    const Colour bar = kBars[shifted * 8 / width];
    return row % 2 == 0 ? bar : bar.scaled(72);
}

Colour panelColour(int x, int y) {
    const bool isKnob = isOnDisc(x, y, 53, 31, 3) || isOnDisc(x, y, 53, 39, 3);
    if (isKnob) return kKnob;
    const bool isSlot = y >= eighths(45) && y / kEighths % 2 == 1 && x >= eighths(51) &&
                        x < eighths(56) && y < eighths(52);
    return isSlot ? kFrame : kPanel;
}

Colour colourAt(int x, int y) {
    if (kScreen.containsRounded(x, y, 3)) return screenColour(x, y);
    if (kScreenFrame.containsRounded(x, y, 4)) return kFrame;
    if (kSidePanel.containsRounded(x, y, 2)) return panelColour(x, y);
    if (kBody.containsRounded(x, y, 4)) return kCabinet;
    if (isOnAntenna(x, y, eighths(18)) || isOnAntenna(x, y, eighths(48))) return kAntenna;
    if (isOnDisc(x, y, 18, 4, 2) || isOnDisc(x, y, 48, 4, 2)) return kAntenna;
    const bool isFoot = Box{10, 57, 16, 61}.contains(x, y) || Box{48, 57, 54, 61}.contains(x, y);
    return isFoot ? kFrame : kDialogGrey;
}

/// The mean over a square of `size` eighths.
Colour meanColour(int left, int top, int size) {
    Colour sum{0, 0, 0};
    for (int y = top; y < top + size; ++y) {
        for (int x = left; x < left + size; ++x) {
            const Colour colour = colourAt(x, y);
            sum = {sum.red + colour.red, sum.green + colour.green, sum.blue + colour.blue};
        }
    }
    const int count = size * size;
    return {sum.red / count, sum.green / count, sum.blue / count};
}

void append(std::string& bytes, std::uint32_t value, int byteCount) {
    for (int i = 0; i < byteCount; ++i) bytes += static_cast<char>(value >> 8 * i & 0xFF);
}

/// The headers of a bitmap file with 24 bits a pixel.
std::string headers(int side) {
    const auto pixelBytes = static_cast<std::uint32_t>(side * side * 3);
    std::string bytes = "BM";
    append(bytes, 54 + pixelBytes, 4);
    append(bytes, 0, 4);
    append(bytes, 54, 4);  // where the pixels begin
    append(bytes, 40, 4);  // size of the second header
    append(bytes, static_cast<std::uint32_t>(side), 4);
    append(bytes, static_cast<std::uint32_t>(side), 4);
    append(bytes, 1, 2);   // planes
    append(bytes, 24, 2);  // bits a pixel
    append(bytes, 0, 4);   // no compression
    append(bytes, pixelBytes, 4);
    append(bytes, 2835, 4);  // 72 dpi in pixels per metre
    append(bytes, 2835, 4);
    append(bytes, 0, 4);  // no palette
    append(bytes, 0, 4);
    return bytes;
}

/// The television as a bitmap file of side x side pixels. `side` divides 64 and is a multiple of 4,
/// so that rows need no padding.
std::string bitmapFile(int side) {
    std::string bytes = headers(side);
    const int pixel = kUnits * kEighths / side;
    for (int row = side - 1; row >= 0; --row) {
        for (int column = 0; column < side; ++column) {
            const Colour colour = meanColour(column * pixel, row * pixel, pixel);
            append(bytes, static_cast<std::uint32_t>(colour.blue), 1);
            append(bytes, static_cast<std::uint32_t>(colour.green), 1);
            append(bytes, static_cast<std::uint32_t>(colour.red), 1);
        }
    }
    return bytes;
}

bool write(const std::string& path, const std::string& bytes) {
    std::ofstream file(path, std::ios::binary);
    file << bytes << std::flush;
    if (!file) std::fprintf(stderr, "%s cannot be written\n", path.c_str());
    return static_cast<bool>(file);
}

bool check(const std::string& path, const std::string& bytes) {
    std::ifstream file(path, std::ios::binary);
    const std::string present{std::istreambuf_iterator<char>(file), {}};
    const bool same = file && present == bytes;
    if (!same) std::fprintf(stderr, "%s is stale: draw it with television_bitmaps\n", path.c_str());
    return same;
}

}  // namespace
}  // namespace ruvex

int main(int count, char** arguments) {
    const bool checks = count == 3 && std::strcmp(arguments[1], "--check") == 0;
    if (count != 2 && !checks) {
        std::fputs("usage: television_bitmaps [--check] FOLDER\n", stderr);
        return 2;
    }
    bool good = true;
    for (const int side : {32, 64}) {
        const std::string path =
            std::string(arguments[count - 1]) + "/television_" + std::to_string(side) + ".bmp";
        const std::string bytes = ruvex::bitmapFile(side);
        good = (checks ? ruvex::check(path, bytes) : ruvex::write(path, bytes)) && good;
    }
    return good ? 0 : 1;
}
