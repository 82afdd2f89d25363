#include "tests/overlay_pictures/state_picture.h"

#include <algorithm>
#include <fstream>
#include <stdexcept>

#include "overlay/palette.h"

namespace ruvex::test {
namespace {

/// Dark, and no colour of a control.
constexpr Rgb kGrey{0x40, 0x40, 0x40};

constexpr Rgb kText{static_cast<std::uint8_t>(paletteText.r * 255),
                    static_cast<std::uint8_t>(paletteText.g * 255),
                    static_cast<std::uint8_t>(paletteText.b * 255)};

std::string pictureFile(const StatePicture& picture, const std::filesystem::path& folder) {
    return (folder / (picture.name + ".ppm")).string();
}

std::string pictureHeader(const StatePicture& picture) {
    return "P6\n" + std::to_string(picture.width) + " " + std::to_string(picture.height) +
           "\n255\n";
}

}  // namespace

bool StatePicture::isText(int x, int y) const {
    return std::ranges::any_of(texts, [=](const TextArea& area) { return area.contains(x, y); });
}

int StatePicture::lit() const {
    int count = 0;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            count += at(x, y) != backdropAt(backdrop, x, y) && !isText(x, y);
        }
    }
    return count;
}

int StatePicture::litText(const TextArea& area) const {
    int count = 0;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) count += area.contains(x, y) && at(x, y) == kText;
    }
    return count;
}

int StatePicture::textPixels() const {
    int count = 0;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) count += isText(x, y);
    }
    return count;
}

Rgb backdropAt(Backdrop backdrop, int x, int y) {
    if (backdrop == Backdrop::Grey) return kGrey;
    return {static_cast<std::uint8_t>(x), static_cast<std::uint8_t>(y),
            static_cast<std::uint8_t>(x + y)};
}

std::vector<std::uint8_t> backdropPixels(Backdrop backdrop, int width, int height) {
    std::vector<std::uint8_t> rgba;
    rgba.reserve(static_cast<std::size_t>(4 * width * height));
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const Rgb colour = backdropAt(backdrop, x, y);
            rgba.insert(rgba.end(), {colour.red, colour.green, colour.blue, 0xFF});
        }
    }
    return rgba;
}

void writePicture(const StatePicture& picture, const std::filesystem::path& folder) {
    std::string bytes = pictureHeader(picture);
    for (int y = picture.height - 1; y >= 0; --y) {
        for (int x = 0; x < picture.width; ++x) {
            const Rgb& pixel = picture.at(x, y);
            for (const std::uint8_t channel : {pixel.red, pixel.green, pixel.blue}) {
                bytes += static_cast<char>(channel);
            }
        }
    }
    const std::string file = pictureFile(picture, folder);
    std::ofstream out(file, std::ios::binary);
    if (!out.write(bytes.data(), static_cast<std::streamsize>(bytes.size())).flush()) {
        throw std::runtime_error("cannot write " + file);
    }
}

void readPixels(StatePicture& picture, const std::filesystem::path& folder) {
    const std::string file = pictureFile(picture, folder);
    std::ifstream in(file, std::ios::binary);
    if (!in) throw std::runtime_error("cannot read " + file);
    const std::string bytes{std::istreambuf_iterator<char>(in), {}};
    const std::string header = pictureHeader(picture);
    const auto pixels = static_cast<std::size_t>(picture.width * picture.height);
    if (!bytes.starts_with(header) || bytes.size() != header.size() + 3 * pixels) {
        throw std::runtime_error(file + " is no picture of this state's size");
    }
    picture.pixels.clear();
    picture.pixels.reserve(pixels);
    for (int y = 0; y < picture.height; ++y) {
        const auto row = static_cast<std::size_t>(picture.height - 1 - y);
        const char* pixel =
            &bytes[header.size() + 3 * row * static_cast<std::size_t>(picture.width)];
        for (int x = 0; x < picture.width; ++x, pixel += 3) {
            picture.pixels.push_back({static_cast<std::uint8_t>(pixel[0]),
                                      static_cast<std::uint8_t>(pixel[1]),
                                      static_cast<std::uint8_t>(pixel[2])});
        }
    }
}

}  // namespace ruvex::test
