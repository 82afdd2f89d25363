#include "tests/openfx/test_card.h"

#include <cmath>
#include <cstring>

namespace ruvex::ofxhost::test {
namespace {

constexpr unsigned kWhite = 65535;

/// A sample from 0 to kWhite of a channel (0 red, 1 green, 2 blue) of a pixel.
unsigned cardSample(int x, int y, int width, int height, int frame, std::size_t channel) {
    constexpr int kBars = 8;
    constexpr int kGrid = 16;           // pixels between two lines
    constexpr unsigned kStep = 0x3000;  // what a grid line is darker
    const int square = height / 6;
    const int left = (frame * 3) % std::max(1, width - square);
    const bool inSquare =
        x >= left && x < left + square && y >= height / 4 && y < height / 4 + square;
    if (inSquare) return channel == 0 ? kWhite : kWhite / 8;
    unsigned sample = static_cast<unsigned>(x) * kWhite / static_cast<unsigned>(width);
    if (y >= height / 2) {
        const unsigned bar = static_cast<unsigned>(x * kBars / width);
        sample = bar >> channel & 1 ? kWhite / 16 : kWhite / 8 * 7;
    }
    const bool line = x % kGrid == 0 || y % kGrid == 0;
    return line && sample >= kStep ? sample - kStep : sample;
}

}  // namespace

void storeSample(const std::string& depth, unsigned sample, std::byte* to) {
    if (depth == kOfxBitDepthByte) {
        *to = static_cast<std::byte>(sample >> 8);
    } else if (depth == kOfxBitDepthShort) {
        const auto whole = static_cast<std::uint16_t>(sample);
        std::memcpy(to, &whole, sizeof whole);
    } else {
        const float real = static_cast<float>(sample) / static_cast<float>(kWhite);
        std::memcpy(to, &real, sizeof real);
    }
}

ClipSetup testCard(int width, int height, const PixelFormat& format) {
    ClipSetup setup;
    setup.format = format;
    setup.regionOfDefinition = OfxRectD{0.0, 0.0, double(width), double(height)};
    setup.picture = [=](double time, const OfxPointD& scale) -> std::optional<Raster> {
        Raster raster(pixelsOf({0.0, 0.0, double(width), double(height)}, scale, 1.0), format);
        const int columns = widthOf(raster.bounds);
        const int rows = heightOf(raster.bounds);
        const std::size_t samples = format.sampleCount();
        for (int y = 0; y < rows; ++y) {
            for (std::size_t i = 0; i < static_cast<std::size_t>(columns) * samples; ++i) {
                const std::size_t channel = i % samples;
                const bool alpha = channel == 3 || samples == 1;
                const int x = static_cast<int>(i / samples);
                storeSample(format.depth,
                            alpha ? kWhite
                                  : cardSample(x, y, columns, rows,
                                               static_cast<int>(std::floor(time)), channel),
                            raster.row(y) + i * format.sampleBytes());
            }
        }
        return raster;
    };
    return setup;
}

}  // namespace ruvex::ofxhost::test
