// Rows of pixels, between a host's memory and images of the effect.
//
// Images of the effect are straight RGBA, of 8 bits (std::uint8_t) or of S2.14 (std::int16_t). Rows
// of the host need no alignment. Components are rounded to the nearest and held to the range of
// their type: S2.14 from -2 to 2 - 1/16384. NaN becomes 0.
//
// Premultiplied colours are divided by alpha before they are rounded, and multiplied before they
// are rounded; those of 16 bits are S2.14 in that step, as in a render of 16-bit files. Where alpha
// is 0, colours become 0.
//
// A row without alpha is read as opaque. A row of alpha alone is read as grey of that value with
// that alpha, and only alpha is written: the result is the alpha that an RGBA picture with the same
// alpha would get.

#pragma once

#include <cstddef>
#include <cstdint>

#include "adapters/common/host_picture.h"

namespace ruvex::adapters {

/// Components of one pixel of an image: red, green, blue, alpha.
inline constexpr int kImageChannels = 4;
inline constexpr int kAlphaChannel = 3;

/// Reads `width` pixels of the host.
void readRow(const std::byte* from, PixelForm form, int width, std::uint8_t* to);
void readRow(const std::byte* from, PixelForm form, int width, std::int16_t* to);

/// Writes `width` pixels into the host's memory: a row of 8 bits as 8 bits only. Of an opaque form
/// alpha is written as the row has it (see makeOpaque).
void writeRow(const std::uint8_t* from, PixelForm form, int width, std::byte* to);
void writeRow(const std::int16_t* from, PixelForm form, int width, std::byte* to);

/// Whether the alpha of each of `width` pixels is white or more.
bool isOpaque(const std::uint8_t* row, int width);
bool isOpaque(const std::int16_t* row, int width);

/// Sets the alpha of each of `width` pixels to white.
void makeOpaque(std::uint8_t* row, int width);
void makeOpaque(std::int16_t* row, int width);

}  // namespace ruvex::adapters
