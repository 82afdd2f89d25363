#include "media/rgb_lines.h"

extern "C" {
#include <libavutil/pixdesc.h>
}

#include <bit>
#include <vector>

#include "media/row_order.h"
#include "media/sample_convert.h"

namespace ruvex::media {
namespace {

using Line = std::vector<std::uint16_t>;

const AVPixFmtDescriptor& descriptor(AVPixelFormat format) {
    return *av_pix_fmt_desc_get(format);
}

bool isPalette(const AVPixFmtDescriptor& format) {
    return (format.flags & AV_PIX_FMT_FLAG_PAL) != 0;
}

/// The library's component that holds channel `channel` (alpha is 3); -1 for an alpha not there.
int sourceOf(const AVPixFmtDescriptor& format, int channel) {
    const bool grey = format.nb_components <= 2;
    const bool alpha = (format.flags & AV_PIX_FMT_FLAG_ALPHA) != 0;
    if (channel == 3) {
        return alpha ? format.nb_components - 1 : -1;
    }
    return grey ? 0 : channel;
}

void readComponent(const AVFrame& picture, const AVPixFmtDescriptor& format, int component, int y,
                   Line& line) {
    const auto* const* data = const_cast<const std::uint8_t**>(picture.data);
    av_read_image_line2(line.data(), const_cast<const std::uint8_t**>(data), picture.linesize,
                        &format, 0, y, component, picture.width, 0, sizeof(std::uint16_t));
}

/// The picture's components, on a scale that ends at `white`, into one channel of a chain row.
template <typename T, class Convert>
void storeChannel(const Line& line, T* row, int channel, Convert convert) {
    for (std::size_t x = 0; x < line.size(); ++x) {
        row[x * kChannels + static_cast<std::size_t>(channel)] = convert(line[x]);
    }
}

void storeLine(const Line& line, int white, int channel, int row, Frame& frame) {
    if (frame.depth() == Depth::S214) {
        storeChannel(line, frame.row16(row), channel,
                     [white](int value) { return s214FromScale(value, white); });
    } else if (white == 255) {
        storeChannel(line, frame.row8(row), channel,
                     [](int value) { return static_cast<std::uint8_t>(value); });
    } else {
        storeChannel(line, frame.row8(row), channel, [white](int value) {
            return static_cast<std::uint8_t>((value * 255 + white / 2) / white);
        });
    }
}

/// Palette entries are words of alpha, red, green, blue from the top byte down.
void unpackPaletteLine(const AVFrame& picture, int y, int row, Line& line, Frame& frame) {
    constexpr int kShift[kChannels] = {16, 8, 0, 24};
    const std::uint8_t* index = picture.data[0] + std::ptrdiff_t{y} * picture.linesize[0];
    const auto* palette = reinterpret_cast<const std::uint32_t*>(picture.data[1]);
    for (int channel = 0; channel < kChannels; ++channel) {
        for (std::size_t x = 0; x < line.size(); ++x) {
            line[x] = static_cast<std::uint16_t>(palette[index[x]] >> kShift[channel] & 0xFF);
        }
        storeLine(line, 255, channel, row, frame);
    }
}

void unpackLine(const AVFrame& picture, const AVPixFmtDescriptor& format, int y, int row,
                Line& line, Frame& frame) {
    for (int channel = 0; channel < kChannels; ++channel) {
        const int component = sourceOf(format, channel);
        if (component < 0) {
            std::fill(line.begin(), line.end(), std::uint16_t{1});
            storeLine(line, 1, channel, row, frame);
        } else {
            readComponent(picture, format, component, y, line);
            storeLine(line, (1 << format.comp[component].depth) - 1, channel, row, frame);
        }
    }
}

void packLine8(const std::uint8_t* row, int width, bool blueFirst, std::uint8_t* line) {
    std::copy(row, row + std::ptrdiff_t{width} * kChannels, line);
    for (std::ptrdiff_t x = 0; blueFirst && x < width; ++x) {
        std::swap(line[x * kChannels], line[x * kChannels + 2]);
    }
}

void packLine16(const std::int16_t* row, int width, bool bigEndian, std::uint8_t* bytes) {
    auto* line = reinterpret_cast<std::uint16_t*>(bytes);
    for (std::ptrdiff_t i = 0; i < std::ptrdiff_t{width} * kChannels; ++i) {
        const std::uint16_t value = u16FromS214(row[i]);
        line[i] = bigEndian ? static_cast<std::uint16_t>(value << 8 | value >> 8) : value;
    }
}

}  // namespace

bool isRgbOrGrey(AVPixelFormat format) {
    const AVPixFmtDescriptor& description = descriptor(format);
    constexpr std::uint64_t kOther =
        AV_PIX_FMT_FLAG_HWACCEL | AV_PIX_FMT_FLAG_FLOAT | AV_PIX_FMT_FLAG_BAYER;
    if ((description.flags & kOther) != 0 || format == AV_PIX_FMT_MONOWHITE ||
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
        std::uint8_t* line = picture.data[0] + std::ptrdiff_t{y} * picture.linesize[0];
        if (frame.depth() == Depth::Bits8) {
            packLine8(frame.row8(row), frame.width(), picture.format == AV_PIX_FMT_BGRA, line);
        } else {
            packLine16(frame.row16(row), frame.width(), picture.format == AV_PIX_FMT_RGBA64BE,
                       line);
        }
    }
}

}  // namespace ruvex::media
