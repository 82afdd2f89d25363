#include "media/pixels/usual_lines.h"

#include <algorithm>
#include <bit>
#include <cstdint>

#include "media/pixels/kernels/pixel_words.h"
#include "media/pixels/plane_line.h"

namespace ruvex::media {
namespace {

struct UsualLines;
using Words8 = detail::PixelWords<std::uint8_t, UsualLines>;
using Words16 = detail::PixelWords<std::int16_t, UsualLines>;

bool formatHasAlpha(const AVPixFmtDescriptor& format) {
    return (format.flags & AV_PIX_FMT_FLAG_ALPHA) != 0;
}

bool all(const AVPixFmtDescriptor& format, auto test) {
    return std::all_of(format.comp, format.comp + format.nb_components, test);
}

/// Whether each pixel is four bytes, of which each component is one.
bool isFourBytes(const AVPixFmtDescriptor& format) {
    return all(format, [&](const AVComponentDescriptor& component) {
        return isByte(format, component) && component.plane == 0 && component.step == 4;
    });
}

/// Whether each pixel is four words of 16 bits, of either byte order: red, green, blue, alpha.
bool isFourWords(const AVPixFmtDescriptor& format) {
    int offset = -2;
    return format.nb_components == 4 && (format.flags & AV_PIX_FMT_FLAG_BITSTREAM) == 0 &&
           all(format, [&](const AVComponentDescriptor& component) {
               offset += 2;
               return component.depth == 16 && component.shift == 0 && component.plane == 0 &&
                      component.step == 8 && component.offset == offset;
           });
}

/// Whether the words of a format have the other byte order than the processor's.
bool isSwapped(const AVPixFmtDescriptor& format) {
    const bool bigEndian = (format.flags & AV_PIX_FMT_FLAG_BE) != 0;
    return bigEndian != (std::endian::native == std::endian::big);
}

/// Whether each component has a plane of its own, with nothing else in it.
template <typename Word>
bool isPlanar(const AVPixFmtDescriptor& format) {
    return all(format,
               [&](const AVComponentDescriptor& component) {
                   const bool whole =
                       sizeof(Word) == 1 ? isByte(format, component) : isInWord(format, component);
                   return whole && component.shift == 0 && component.offset == 0 &&
                          component.step == sizeof(Word) && component.depth == format.comp[0].depth;
               }) &&
           format.nb_components >= 3;
}

/// Exactly s214From16. The quotient of n and 2^16 - 1 is that of n + n / 2^16 + 1 and 2^16, for n
/// below 2^31.
std::int16_t s214FromWord(std::uint16_t value) {
    const std::int32_t dividend = value * kWhiteS214 + kWhite16 / 2;
    return static_cast<std::int16_t>((dividend + (dividend >> 16) + 1) >> 16);
}

/// Exactly u16FromS214, which is 4 value - value / kWhiteS214, rounded to the nearest, halves up.
std::uint16_t wordFromS214(std::int16_t value) {
    const std::int16_t clamped = std::clamp<std::int16_t>(value, 0, kWhiteS214);
    return static_cast<std::uint16_t>(clamped * 4 - (clamped > kWhiteS214 / 2 ? 1 : 0));
}

/// The nearest S2.14 value to that of a component; `factor` is kWhiteS214 / white. Whites are odd,
/// so that no value is half way between two others.
std::int32_t s214FromFactor(std::uint16_t value, double factor) {
    return static_cast<std::int32_t>(value * factor + 0.5);
}

void unpackFourBytes(const std::uint8_t* line, const AVPixFmtDescriptor& format, int width,
                     std::uint8_t* pixels) {
    const auto shiftOf = [&](int component) { return 8 * format.comp[component].offset; };
    const int red = shiftOf(0);
    const int green = shiftOf(1);
    const int blue = shiftOf(2);
    const int alpha = formatHasAlpha(format) ? shiftOf(3) : 0;
    const std::uint32_t opaque = formatHasAlpha(format) ? 0 : kWhite8;
    for (std::ptrdiff_t x = 0; x < width; ++x) {
        const std::uint32_t word = Words8(line + 4 * x).word;
        const auto byte = [word](int shift) {
            return static_cast<std::int32_t>(word >> shift & 0xFF);
        };
        Words8::store(byte(red), byte(green), byte(blue),
                      byte(alpha) | static_cast<std::int32_t>(opaque), pixels + 4 * x);
    }
}

template <bool Swapped>
void unpackFourWords(const std::uint16_t* line, int width, std::int16_t* components) {
    for (std::ptrdiff_t i = 0; i < std::ptrdiff_t{4} * width; ++i) {
        const std::uint16_t word = line[i];
        components[i] =
            s214FromWord(Swapped ? static_cast<std::uint16_t>(word << 8 | word >> 8) : word);
    }
}

/// The lines of red, green and blue.
template <typename Word>
struct Planes {
    const Word* red;
    const Word* green;
    const Word* blue;
    const Word* alpha;  ///< That of red for a picture without alpha.
    std::int32_t mask;
    bool hasAlpha;

    Planes(const AVFrame& picture, const AVPixFmtDescriptor& format, int y)
        : mask((1 << format.comp[0].depth) - 1), hasAlpha(formatHasAlpha(format)) {
        const auto line = [&](int component) {
            return planeLine<Word>(picture, format.comp[component].plane, y);
        };
        red = line(0);
        green = line(1);
        blue = line(2);
        alpha = hasAlpha ? line(3) : red;
    }
};

void unpackPlanes8(const Planes<std::uint8_t>& from, int width, std::uint8_t* pixels) {
    const std::int32_t opaque = from.hasAlpha ? 0 : kWhite8;
    for (std::ptrdiff_t x = 0; x < width; ++x) {
        Words8::store(from.red[x], from.green[x], from.blue[x], from.alpha[x] | opaque,
                      pixels + 4 * x);
    }
}

void unpackPlanes16(const Planes<std::uint16_t>& from, int width, std::int16_t* pixels) {
    const std::int32_t mask = from.mask;
    const std::int32_t opaque = from.hasAlpha ? 0 : mask;
    const double factor = static_cast<double>(kWhiteS214) / mask;
    for (std::ptrdiff_t x = 0; x < width; ++x) {
        const auto value = [&](std::int32_t word) {
            return s214FromFactor(static_cast<std::uint16_t>(word & mask), factor);
        };
        Words16::store(value(from.red[x]), value(from.green[x]), value(from.blue[x]),
                       value(from.alpha[x] | opaque), pixels + 4 * x);
    }
}

}  // namespace

bool unpackUsualLine(const AVFrame& picture, const AVPixFmtDescriptor& format, int y, int row,
                     Frame& frame) {
    const int width = frame.width();
    if (frame.depth() == Depth::Bits8) {
        if (isFourBytes(format)) {
            unpackFourBytes(planeLine(picture, 0, y), format, width, frame.row8(row));
        } else if (isPlanar<std::uint8_t>(format)) {
            unpackPlanes8(Planes<std::uint8_t>(picture, format, y), width, frame.row8(row));
        } else {
            return false;
        }
        return true;
    }
    if (isFourWords(format)) {
        const auto unpack = isSwapped(format) ? unpackFourWords<true> : unpackFourWords<false>;
        unpack(planeLine<std::uint16_t>(picture, 0, y), width, frame.row16(row));
    } else if (isPlanar<std::uint16_t>(format)) {
        unpackPlanes16(Planes<std::uint16_t>(picture, format, y), width, frame.row16(row));
    } else {
        return false;
    }
    return true;
}

void packWords(const std::int16_t* components, int width, bool swapped, std::uint16_t* line) {
    const auto pack = [&](auto order) {
        for (std::ptrdiff_t i = 0; i < std::ptrdiff_t{4} * width; ++i) {
            line[i] = order(wordFromS214(components[i]));
        }
    };
    if (swapped) {
        pack([](std::uint16_t word) { return static_cast<std::uint16_t>(word << 8 | word >> 8); });
    } else {
        pack([](std::uint16_t word) { return word; });
    }
}

void swapRedAndBlue(const std::uint8_t* from, int width, std::uint8_t* to) {
    for (std::ptrdiff_t x = 0; x < width; ++x) {
        const Words8 pixel(from + 4 * x);
        Words8::store(pixel.component<2>(), pixel.component<1>(), pixel.component<0>(),
                      pixel.component<3>(), to + 4 * x);
    }
}

}  // namespace ruvex::media
