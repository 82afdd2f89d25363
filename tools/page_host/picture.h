// The pictures that the program shows.

#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace ruvex::page_host {

/// Pixels of four bytes: red, green, blue, alpha (straight). The first row is the bottom one.
struct Picture {
    Picture() = default;
    Picture(int pixelsWide, int pixelsHigh)
        : width(pixelsWide),
          height(pixelsHigh),
          bytes(4 * static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) {}

    std::uint8_t* row(int y) { return &bytes[4 * static_cast<std::size_t>(y * width)]; }
    const std::uint8_t* row(int y) const { return &bytes[4 * static_cast<std::size_t>(y * width)]; }

    std::wstring name;  ///< The file's, without its folder, or "Test card".
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> bytes;
};

/// Colour bars over a grey ramp and a grid, opaque.
Picture makeTestCard(int width, int height);

/// Reads a picture in a format that the system knows. Throws runtime::Error.
Picture readPicture(const std::filesystem::path& file);

/// Writes a PNG. Throws runtime::Error; the file is then as before.
void writePicture(const std::filesystem::path& file, const Picture& picture);

}  // namespace ruvex::page_host
