// Clips of noise for tests.

#pragma once

#include <bit>
#include <cstring>
#include <random>

#include "tests/openfx/host/clip.h"

namespace ruvex::ofxhost::test {

/// Noise in a format: any byte or short, floats from 0 to 1. Opaque if `opaque`. The same for the
/// same arguments.
inline Raster noise(const OfxRectI& bounds, const PixelFormat& format, unsigned seed,
                    bool opaque = true) {
    Raster raster(bounds, format);
    std::mt19937 random(seed);
    const std::size_t bytes = format.sampleBytes();
    const std::size_t samples = format.sampleCount();
    for (std::size_t i = 0; i < raster.bytes.size() / bytes; ++i) {
        const bool isAlpha = samples == 1 || i % samples == 3;
        std::uint32_t value = static_cast<std::uint32_t>(random());
        if (format.depth == kOfxBitDepthFloat) {
            const float real = isAlpha && opaque ? 1.0f : static_cast<float>(value >> 8) * 0x1p-24f;
            value = std::bit_cast<std::uint32_t>(real);
        } else if (isAlpha && opaque) {
            value = 0xFFFFFFFF;
        }
        std::memcpy(raster.bytes.data() + i * bytes, &value, bytes);
    }
    return raster;
}

/// Another picture of noise for each whole time, at any render scale: frame t has the seed t + 1.
/// The pixels are square and begin at (0, 0).
inline ClipSetup noiseClip(int width, int height, PixelFormat format = {}, bool opaque = true) {
    ClipSetup setup;
    setup.format = format;
    setup.regionOfDefinition =
        OfxRectD{0.0, 0.0, static_cast<double>(width), static_cast<double>(height)};
    setup.picture = [=](double time, const OfxPointD& scale) -> std::optional<Raster> {
        const OfxRectI bounds = pixelsOf({0.0, 0.0, double(width), double(height)}, scale, 1.0);
        return noise(bounds, format, static_cast<unsigned>(time) + 1, opaque);
    };
    return setup;
}

}  // namespace ruvex::ofxhost::test
