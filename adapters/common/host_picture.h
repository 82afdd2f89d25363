// Pictures in a host's memory, with any bounds, depth, components and form of alpha.

#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace ruvex::adapters {

/// Pixels from (x1, y1) up to, but without, (x2, y2); y goes upwards. Any numbers are allowed.
struct PixelRect {
    int x1 = 0, y1 = 0, x2 = 0, y2 = 0;

    constexpr bool empty() const { return x1 >= x2 || y1 >= y2; }
    /// 0 if there are no columns; the largest int if there are more.
    constexpr int width() const { return distance(x1, x2); }
    constexpr int height() const { return distance(y1, y2); }

    friend bool operator==(const PixelRect&, const PixelRect&) = default;

private:
    static constexpr int distance(int from, int to) {
        constexpr std::int64_t kMost = std::numeric_limits<int>::max();
        return static_cast<int>(
            std::clamp<std::int64_t>(std::int64_t{to} - std::int64_t{from}, 0, kMost));
    }
};

/// The pixels of both; possibly an empty rectangle.
constexpr PixelRect intersection(const PixelRect& a, const PixelRect& b) {
    return {std::max(a.x1, b.x1), std::max(a.y1, b.y1), std::min(a.x2, b.x2), std::min(a.y2, b.y2)};
}

/// Bits8: 0 to 255. Bits16: 0 to 65535. Float: black 0, white 1.
enum class SampleType { Bits8, Bits16, Float };

/// The components of a pixel, in their order in memory.
enum class Components { Rgba, Rgb, Alpha };

/// Of RGBA pixels. Straight: colours are independent of alpha. Premultiplied: colours are
/// multiplied by alpha. Opaque: alpha counts as white.
enum class HostAlpha { Straight, Premultiplied, Opaque };

struct PixelForm {
    SampleType samples = SampleType::Bits8;
    Components components = Components::Rgba;
    HostAlpha alpha = HostAlpha::Straight;  ///< Ignored unless the components are RGBA.

    /// 1 to 16.
    constexpr std::size_t pixelBytes() const;

    /// Whether every pixel is opaque, whatever its components.
    constexpr bool isOpaque() const {
        return components == Components::Rgb ||
               (components == Components::Rgba && alpha == HostAlpha::Opaque);
    }

    friend bool operator==(const PixelForm&, const PixelForm&) = default;
};

constexpr std::size_t sampleBytes(SampleType type) {
    if (type == SampleType::Bits8) return 1;
    return type == SampleType::Bits16 ? 2 : 4;
}

constexpr std::size_t componentCount(Components components) {
    if (components == Components::Alpha) return 1;
    return components == Components::Rgb ? 3 : 4;
}

constexpr std::size_t PixelForm::pixelBytes() const {
    return sampleBytes(samples) * componentCount(components);
}

/// A picture that the host owns. `Byte` may be const. Memory needs no alignment.
template <class Byte>
struct HostPicture {
    Byte* data = nullptr;         ///< Of the pixel (bounds.x1, bounds.y1).
    std::ptrdiff_t rowBytes = 0;  ///< To the row above: negative where the top row comes first.
    PixelRect bounds{};           ///< Not empty.
    PixelForm form{};

    /// The first pixel of row `y`, which lies within the bounds.
    Byte* row(int y) const { return data + (std::ptrdiff_t{y} - bounds.y1) * rowBytes; }

    /// A pixel within the bounds.
    Byte* pixel(int x, int y) const {
        return row(y) +
               (std::ptrdiff_t{x} - bounds.x1) * static_cast<std::ptrdiff_t>(form.pixelBytes());
    }
};
using SourcePicture = HostPicture<const std::byte>;
using TargetPicture = HostPicture<std::byte>;

}  // namespace ruvex::adapters
