#include "tests/openfx/picture_file.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <fstream>
#include <stdexcept>

#include "tests/openfx/test_card.h"

namespace ruvex::ofxhost::test {
namespace {

constexpr unsigned kWhite16 = 65535;

unsigned sampleOf(const std::string& depth, const std::byte* from) {
    if (depth == kOfxBitDepthByte) return static_cast<unsigned>(*from);
    if (depth == kOfxBitDepthShort) {
        std::uint16_t whole = 0;
        std::memcpy(&whole, from, sizeof whole);
        return whole;
    }
    float real = 0.0f;
    std::memcpy(&real, from, sizeof real);
    return static_cast<unsigned>(std::lround(std::clamp(real, 0.0f, 1.0f) * kWhite16));
}

/// Pixels of a side.
constexpr int kLargestPpmSide = 8192;

struct PpmSize {
    int width = 0, height = 0;
};

/// Reads the head of a binary PPM file; the first sample follows.
PpmSize readPpmHead(std::istream& file, const std::filesystem::path& path) {
    std::string kind;
    int white = 0;
    PpmSize size;
    file >> kind >> size.width >> size.height >> white;
    file.get();
    if (!file || kind != "P6" || white != 255) {
        throw std::runtime_error(path.string() + " is no binary PPM file of 8 bits");
    }
    const auto isSide = [](int side) { return side >= 1 && side <= kLargestPpmSide; };
    if (!isSide(size.width) || !isSide(size.height)) {
        throw std::runtime_error(path.string() + " has a side that is not from 1 to " +
                                 std::to_string(kLargestPpmSide) + " pixels");
    }
    return size;
}

}  // namespace

Raster readPpm(const std::filesystem::path& path, const std::string& depth) {
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error("cannot open " + path.string());
    const auto [width, height] = readPpmHead(file, path);
    Raster raster({0, 0, width, height}, {depth, kOfxImageComponentRGBA, kOfxImageOpaque});
    constexpr unsigned kFrom8To16 = 257;
    for (int y = height - 1; y >= 0; --y) {
        std::byte* to = raster.row(y);
        for (int i = 0; i < width * 4; ++i, to += raster.format.sampleBytes()) {
            const bool alpha = i % 4 == 3;
            storeSample(depth, alpha ? kWhite16 : static_cast<unsigned>(file.get()) * kFrom8To16,
                        to);
        }
    }
    if (!file) throw std::runtime_error(path.string() + " ends too early");
    return raster;
}

void writePam(const std::filesystem::path& path, const Raster& raster) {
    std::ofstream file(path, std::ios::binary);
    const PixelFormat& format = raster.format;
    const bool bits8 = format.depth == kOfxBitDepthByte;
    file << "P7\nWIDTH " << widthOf(raster.bounds) << "\nHEIGHT " << heightOf(raster.bounds)
         << "\nDEPTH " << format.sampleCount() << "\nMAXVAL " << (bits8 ? 255u : kWhite16)
         << "\nTUPLTYPE " << (format.sampleCount() == 4 ? "RGB_ALPHA" : "RGB") << "\nENDHDR\n";
    for (int y = raster.bounds.y2 - 1; y >= raster.bounds.y1; --y) {
        for (std::size_t at = 0; at < raster.rowBytes(); at += format.sampleBytes()) {
            const unsigned sample = sampleOf(format.depth, raster.row(y) + at);
            if (!bits8) file.put(static_cast<char>(sample >> 8));
            file.put(static_cast<char>(sample & 0xFF));
        }
    }
    if (!file) throw std::runtime_error("cannot write " + path.string());
}

}  // namespace ruvex::ofxhost::test
