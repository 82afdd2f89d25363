#include "adapters/common/picture_rows.h"

#include <algorithm>
#include <cstring>

namespace ruvex::adapters {
namespace {

constexpr unsigned kOpaque = 255;
constexpr unsigned kHalf = kOpaque / 2;
constexpr std::size_t kAlpha = 3;

/// A colour divided by alpha, rounded to nearest. Colours above alpha, which no premultiplied
/// picture should have, become 255; those of a transparent pixel become 0.
std::uint8_t straightened(unsigned colour, unsigned alpha) {
    if (alpha == 0) return 0;
    return static_cast<std::uint8_t>(std::min((colour * kOpaque + alpha / 2) / alpha, kOpaque));
}

/// A colour multiplied by alpha, rounded to nearest.
std::uint8_t multiplied(unsigned colour, unsigned alpha) {
    return static_cast<std::uint8_t>((colour * alpha + kHalf) / kOpaque);
}

template <class Convert>
void convertColours(std::uint8_t* row, int width, Convert convert) {
    for (int x = 0; x < width; ++x, row += kPixelBytes) {
        for (std::size_t channel = 0; channel < kAlpha; ++channel) {
            row[channel] = convert(row[channel], row[kAlpha]);
        }
    }
}

}  // namespace

void readStraight(const SourceRows& source, std::uint8_t* pixels) {
    for (int y = 0; y < source.height; ++y, pixels += source.rowBytes()) {
        std::memcpy(pixels, source.row(y), source.rowBytes());
        if (source.alpha == AlphaForm::Premultiplied) {
            convertColours(pixels, source.width, straightened);
        }
    }
}

void writeStraight(const std::uint8_t* pixels, const TargetRows& target) {
    for (int y = 0; y < target.height; ++y, pixels += target.rowBytes()) {
        std::memcpy(target.row(y), pixels, target.rowBytes());
        if (target.alpha == AlphaForm::Premultiplied) {
            convertColours(target.row(y), target.width, multiplied);
        }
    }
}

void copyPicture(const SourceRows& source, const TargetRows& target) {
    for (int y = 0; y < target.height; ++y) {
        std::memmove(target.row(y), source.row(y), target.rowBytes());
    }
}

void takeAlpha(const SourceRows& source, std::uint8_t* pixels) {
    for (int y = 0; y < source.height; ++y) {
        const std::uint8_t* row = source.row(y);
        for (int x = 0; x < source.width; ++x, row += kPixelBytes, pixels += kPixelBytes) {
            pixels[kAlpha] = row[kAlpha];
        }
    }
}

}  // namespace ruvex::adapters
