#include "media/pixels/rgb_lines.h"

extern "C" {
#include <libavutil/pixdesc.h>
}

#include <algorithm>
#include <bit>
#include <cstring>
#include <vector>

#include "media/av_functions.h"
#include "media/frame.h"
#include "media/pixels/component_read.h"
#include "media/pixels/plane_line.h"
#include "media/pixels/usual_lines.h"
#include "media/pixels/yuv_coding.h"
#include "sdk/images/sample_convert.h"

namespace ruvex::media {
namespace {

/// The values of one component along a line.
using Line = std::vector<std::uint16_t>;

const AVPixFmtDescriptor& descriptor(AVPixelFormat format) {
    return *av_pix_fmt_desc_get(format);
}

bool isPalette(const AVPixFmtDescriptor& format) {
    return (format.flags & AV_PIX_FMT_FLAG_PAL) != 0;
}

/// The index of the component that holds a channel; -1 for alpha if the format has none.
int sourceOf(const AVPixFmtDescriptor& format, int channel) {
    const bool grey = format.nb_components <= 2;
    const bool alpha = (format.flags & AV_PIX_FMT_FLAG_ALPHA) != 0;
    if (channel == kAlpha) {
        return alpha ? format.nb_components - 1 : -1;
    }
    return grey ? 0 : channel;
}

/// A line of equal values, for the alpha of a picture that has none.
struct ConstantLine {
    int value;
    int operator[](std::ptrdiff_t) const { return value; }
};

/// One channel of a chain row.
struct Channel {
    Frame& frame;
    int row;
    int channel;
};

template <typename T, class Values, class Convert>
void storeValues(const Values& values, T* row, int width, int channel, Convert convert) {
    for (std::ptrdiff_t x = 0; x < width; ++x) {
        row[x * kChannels + channel] = convert(static_cast<int>(values[x]));
    }
}

/// Stores values whose white is `white`. The usual whites have loops of their own, in which the
/// compiler knows the divisor and needs no division.
template <class Values>
void store(const Values& values, int white, Channel to) {
    const auto write = [&](auto* row, auto convert) {
        storeValues(values, row, to.frame.width(), to.channel, convert);
    };
    if (to.frame.depth() == Depth::S214) {
        std::int16_t* row = to.frame.row16(to.row);
        if (white == kWhite16) {
            write(row, [](int value) { return s214FromScale(value, kWhite16); });
        } else {
            write(row, [white](int value) { return s214FromScale(value, white); });
        }
        return;
    }
    std::uint8_t* row = to.frame.row8(to.row);
    if (white == kWhite8) {
        write(row, [](int value) { return static_cast<std::uint8_t>(value); });
    } else {
        write(row, [white](int value) {
            return static_cast<std::uint8_t>((value * kWhite8 + white / 2) / white);
        });
    }
}

/// dividend / divisor, rounded to the nearest, halves up; `divisor` is above 0, and twice the
/// dividend fits an int.
constexpr int nearestQuotient(int dividend, int divisor) {
    const int doubled = 2 * dividend + divisor;
    const int quotient = doubled / (2 * divisor);
    return quotient - (doubled % (2 * divisor) < 0 ? 1 : 0);
}

/// Stores luma of limited range.
template <class Values>
void storeLimited(const Values& values, const CodeRange& range, Channel to) {
    const auto level = [&range](int white) {
        return [&range, white](int value) {
            return nearestQuotient((value - range.black) * white, range.luma);
        };
    };
    if (to.frame.depth() == Depth::S214) {
        storeValues(
            values, to.frame.row16(to.row), to.frame.width(), to.channel,
            [at = level(kWhiteS214)](int value) { return static_cast<std::int16_t>(at(value)); });
    } else {
        storeValues(values, to.frame.row8(to.row), to.frame.width(), to.channel,
                    [at = level(kWhite8)](int value) {
                        return static_cast<std::uint8_t>(std::clamp(at(value), 0, kWhite8));
                    });
    }
}

/// `line` is working memory. A palette entry is a 32-bit word 0xAARRGGBB.
void unpackPaletteLine(const AVFrame& picture, int y, int row, Line& line, Frame& frame) {
    constexpr int kShift[kChannels] = {16, 8, 0, 24};
    const std::uint8_t* index = planeLine(picture, 0, y);
    const auto* palette = reinterpret_cast<const std::uint32_t*>(picture.data[1]);
    for (int channel = 0; channel < kChannels; ++channel) {
        for (std::size_t x = 0; x < line.size(); ++x) {
            line[x] = static_cast<std::uint16_t>(palette[index[x]] >> kShift[channel] & 0xFF);
        }
        store(line, kWhite8, {frame, row, channel});
    }
}

void unpackChannel(const AVFrame& picture, const AVPixFmtDescriptor& format, int component, int y,
                   Line& line, Channel to) {
    const AVComponentDescriptor& layout = format.comp[component];
    const int white = (1 << layout.depth) - 1;
    if (isByte(format, layout)) {
        store(ComponentLine<std::uint8_t>(picture, layout, y), white, to);
    } else if (isInWord(format, layout)) {
        store(ComponentLine<std::uint16_t>(picture, layout, y), white, to);
    } else {
        readComponent(picture, format, component, y, line);
        store(line, white, to);
    }
}

/// Whether the picture is grey of limited range. Below 8 bits there is no limited range.
bool isLimitedGrey(const AVFrame& picture, const AVPixFmtDescriptor& format) {
    return format.nb_components <= 2 && !isPalette(format) && format.comp[0].depth >= 8 &&
           picture.color_range == AVCOL_RANGE_MPEG;
}

/// Stores the grey of a line in red, green and blue.
void unpackLimitedGrey(const AVFrame& picture, const AVPixFmtDescriptor& format, int y, int row,
                       Line& line, Frame& frame) {
    const CodeRange range = codeRange({.bits = format.comp[0].depth});
    readComponent(picture, format, 0, y, line);
    for (int channel = 0; channel < kAlpha; ++channel) {
        storeLimited(line, range, {frame, row, channel});
    }
}

void unpackLine(const AVFrame& picture, const AVPixFmtDescriptor& format, int y, int row,
                Line& line, Frame& frame) {
    if (picture.format == AV_PIX_FMT_RGBA && frame.depth() == Depth::Bits8) {
        std::memcpy(frame.row(row), planeLine(picture, 0, y), frame.rowBytes());
        return;
    }
    if (unpackUsualLine(picture, format, y, row, frame)) return;
    const bool limited = isLimitedGrey(picture, format);
    if (limited) {
        unpackLimitedGrey(picture, format, y, row, line, frame);
    }
    for (int channel = limited ? kAlpha : 0; channel < kChannels; ++channel) {
        const int component = sourceOf(format, channel);
        if (component < 0) {
            store(ConstantLine{1}, 1, {frame, row, channel});
        } else {
            unpackChannel(picture, format, component, y, line, {frame, row, channel});
        }
    }
}

void packLine8(const std::uint8_t* row, int width, bool blueFirst, std::uint8_t* line) {
    if (blueFirst) {
        swapRedAndBlue(row, width, line);
    } else {
        std::copy_n(row, std::ptrdiff_t{width} * kChannels, line);
    }
}

}  // namespace

bool isRgbOrGrey(AVPixelFormat format) {
    const AVPixFmtDescriptor& description = descriptor(format);
    constexpr std::uint64_t kUnsupported =
        AV_PIX_FMT_FLAG_HWACCEL | AV_PIX_FMT_FLAG_FLOAT | AV_PIX_FMT_FLAG_BAYER;
    if ((description.flags & kUnsupported) != 0 || format == AV_PIX_FMT_MONOWHITE ||
        format == AV_PIX_FMT_XYZ12LE || format == AV_PIX_FMT_XYZ12BE) {
        return false;
    }
    const bool rgb = (description.flags & AV_PIX_FMT_FLAG_RGB) != 0;
    const bool grey = description.nb_components <= 2;
    return (rgb || grey || isPalette(description)) && bitsPerComponent(format) <= 16;
}

int bitsPerComponent(AVPixelFormat format) {
    const AVPixFmtDescriptor& description = descriptor(format);
    int bits = 0;
    for (int i = 0; i < description.nb_components; ++i) {
        bits = std::max(bits, description.comp[i].depth);
    }
    return bits;
}

bool hasAlpha(AVPixelFormat format) {
    return (descriptor(format).flags & AV_PIX_FMT_FLAG_ALPHA) != 0;
}

void unpackRgb(const AVFrame& picture, Frame& frame) {
    const AVPixFmtDescriptor& format = descriptor(static_cast<AVPixelFormat>(picture.format));
    Line line(static_cast<std::size_t>(picture.width));
    for (int y = 0; y < picture.height; ++y) {
        const int row = chainRowOfLine(y, picture.height);
        if (isPalette(format)) {
            unpackPaletteLine(picture, y, row, line, frame);
        } else {
            unpackLine(picture, format, y, row, line, frame);
        }
    }
}

void packRgb(const Frame& frame, AVFrame& picture) {
    for (int y = 0; y < frame.height(); ++y) {
        const int row = chainRowOfLine(y, frame.height());
        std::uint8_t* line = planeLine(picture, 0, y);
        if (frame.depth() == Depth::Bits8) {
            packLine8(frame.row8(row), frame.width(), picture.format == AV_PIX_FMT_BGRA, line);
        } else {
            const bool bigEndian = picture.format == AV_PIX_FMT_RGBA64BE;
            const bool swapped = bigEndian != (std::endian::native == std::endian::big);
            packWords(frame.row16(row), frame.width(), swapped,
                      planeLine<std::uint16_t>(picture, 0, y));
        }
    }
}

}  // namespace ruvex::media
