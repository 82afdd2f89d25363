// The picture of one scripted state of the on-screen controls.

#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace ruvex::test {

/// What lies behind the controls: one grey, or colours that change along both axes.
enum class Backdrop { Grey, Gradient };

/// Pixels from the left and from the bottom that may hold text. Fonts are the system's own.
struct TextArea {
    int x = 0, y = 0, width = 0, height = 0;

    bool contains(int column, int row) const {
        return column >= x && column < x + width && row >= y && row < y + height;
    }
    friend bool operator==(const TextArea&, const TextArea&) = default;
};

struct Rgb {
    std::uint8_t red = 0, green = 0, blue = 0;

    friend bool operator==(const Rgb&, const Rgb&) = default;
};

/// Rows from the bottom up.
struct StatePicture {
    std::string name;
    int width = 0, height = 0;
    Backdrop backdrop = Backdrop::Grey;
    /// False for a state in which the controls draw nothing.
    bool drawn = true;
    std::vector<TextArea> texts;
    std::vector<Rgb> pixels;

    const Rgb& at(int x, int y) const { return pixels[static_cast<std::size_t>(y * width + x)]; }
    bool isText(int x, int y) const;
    /// How many pixels are not the backdrop's, without those of text areas.
    int lit() const;
    /// How many pixels of a text area have the colour of text.
    int litText(const TextArea& area) const;
    int textPixels() const;
};

/// The backdrop's colour at a pixel.
Rgb backdropAt(Backdrop backdrop, int x, int y);
/// All of it, as four bytes a pixel, opaque.
std::vector<std::uint8_t> backdropPixels(Backdrop backdrop, int width, int height);

/// Writes FOLDER/NAME.ppm (binary, rows from the top down). Throws std::runtime_error.
void writePicture(const StatePicture& picture, const std::filesystem::path& folder);
/// Reads the pixels of FOLDER/NAME.ppm into a picture of the file's size. Throws
/// std::runtime_error for a missing file, another format and another size than the picture's.
void readPixels(StatePicture& picture, const std::filesystem::path& folder);

}  // namespace ruvex::test
