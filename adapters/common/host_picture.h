// Pictures in a host's memory, with any bounds, depth, components and form of alpha.

#pragma once

#include <cstddef>

namespace ruvex::adapters {

/// Pixels from (x1, y1) up to, but without, (x2, y2); y goes upwards.
struct PixelRect {
    int x1 = 0, y1 = 0, x2 = 0, y2 = 0;

    bool empty() const { return x1 >= x2 || y1 >= y2; }
    int width() const { return x2 - x1; }
    int height() const { return y2 - y1; }

    friend bool operator==(const PixelRect&, const PixelRect&) = default;
};

/// Bits8: 0 to 255. Bits16: 0 to 65535. Float: black 0, white 1.
enum class SampleType { Bits8, Bits16, Float };

/// The components of a pixel, in their order in memory.
enum class Components { Rgba, Rgb, Alpha };

/// Straight: colours are independent of alpha. Premultiplied: colours are multiplied by alpha.
/// Opaque: alpha, if there is one, counts as white.
enum class HostAlpha { Straight, Premultiplied, Opaque };

struct PixelForm {
    SampleType samples = SampleType::Bits8;
    Components components = Components::Rgba;
    HostAlpha alpha = HostAlpha::Straight;

    std::size_t pixelBytes() const;
    friend bool operator==(const PixelForm&, const PixelForm&) = default;
};

/// A picture that the host owns. `Byte` may be const.
template <class Byte>
struct HostPicture {
    Byte* data = nullptr;         ///< Of the pixel (bounds.x1, bounds.y1).
    std::ptrdiff_t rowBytes = 0;  ///< To the row above: negative where the top row comes first.
    PixelRect bounds{};           ///< Not empty.
    PixelForm form{};

    /// The first pixel of row `y`, which lies within the bounds.
    Byte* row(int y) const { return data + (y - bounds.y1) * rowBytes; }
};
using SourcePicture = HostPicture<const std::byte>;
using TargetPicture = HostPicture<std::byte>;

}  // namespace ruvex::adapters
