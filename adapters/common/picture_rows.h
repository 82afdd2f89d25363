// Pictures in a host's memory: RGBA rows of 8 bits with any stride and either form of alpha.

#pragma once

#include <cstddef>
#include <cstdint>

#include "adapters/common/host_picture.h"

namespace ruvex::adapters {

/// Bytes of one pixel: red, green, blue, alpha.
inline constexpr std::size_t kPixelBytes = 4;

/// A picture that the host owns. `stride` is the distance from a row to the one above it, in bytes:
/// negative where the top row comes first in memory, and larger than a row where rows are padded.
template <class Byte>
struct PictureRows {
    Byte* bottomRow = nullptr;
    std::ptrdiff_t stride = 0;
    int width = 0;
    int height = 0;
    HostAlpha alpha = HostAlpha::Straight;

    /// Row `y` from the bottom.
    Byte* row(int y) const { return bottomRow + y * stride; }
    std::size_t rowBytes() const { return static_cast<std::size_t>(width) * kPixelBytes; }
};
using SourceRows = PictureRows<const std::uint8_t>;
using TargetRows = PictureRows<std::uint8_t>;

/// The rows of a picture that lies in memory without padding, top row first. `Byte` may be const.
template <class Byte>
PictureRows<Byte> topDownRows(Byte* firstByte, int width, int height) {
    const std::ptrdiff_t bytes = static_cast<std::ptrdiff_t>(width) * kPixelBytes;
    return {firstByte + (height - 1) * bytes, -bytes, width, height};
}

/// Copies a picture into rows without padding, bottom row first, with straight alpha.
void readStraight(const SourceRows& source, std::uint8_t* pixels);

/// Copies such rows into a picture of the host, in the form of its alpha.
void writeStraight(const std::uint8_t* pixels, const TargetRows& target);

/// Copies a picture of the host into another one of the same size; they may be the same memory.
void copyPicture(const SourceRows& source, const TargetRows& target);

/// Gives each pixel of `pixels` (width * height, bottom row first) the alpha of `source`.
void takeAlpha(const SourceRows& source, std::uint8_t* pixels);

}  // namespace ruvex::adapters
