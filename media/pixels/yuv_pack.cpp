#include "media/pixels/yuv_pack.h"

extern "C" {
#include <libavutil/pixdesc.h>
}

#include <algorithm>

#include "media/pixels/line_cache.h"
#include "media/pixels/plane_line.h"
#include "media/pixels/rgb_lines.h"

namespace ruvex::media {
namespace {

constexpr int kBluePlane = 1;
constexpr int kRedPlane = 2;

int whiteOf(const Frame& frame) {
    return frame.depth() == Depth::Bits8 ? kWhite8 : kWhiteS214;
}

/// Code values of a line: zero + range * value / unit, rounded to the nearest, halves up, clamped
/// to 0 to top. `unit` is a value that stands for 1.
///
/// Luma and colour differences of whole pixels are integers times 1 / unit, and all products here
/// integers below 2^53, which doubles hold exactly. A quotient that is not half way between two
/// codes is at least 1 / (2 unit) away from it, far more than the division's rounding error.
/// Therefore each code is exactly the nearest.
struct CodeScale {
    int zero;
    int range;
    double unit;
    int top;

    template <typename Word>
    void store(std::span<const double> values, Word* line) const {
        const double offset = (zero + 0.5) * unit;
        const double last = top;
        for (std::size_t x = 0; x < values.size(); ++x) {
            const double code = (offset + range * values[x]) / unit;
            line[x] = static_cast<Word>(static_cast<int>(std::min(std::max(code, 0.0), last)));
        }
    }

    /// Stores line y of a plane of 8-bit or 16-bit words.
    void store(std::span<const double> values, AVFrame& picture, int plane, int y) const {
        if (bitsPerComponent(static_cast<AVPixelFormat>(picture.format)) == 8) {
            store(values, planeLine<std::uint8_t>(picture, plane, y));
        } else {
            store(values, planeLine<std::uint16_t>(picture, plane, y));
        }
    }
};

template <typename T>
void loadClamped(const T* from, int white, std::vector<double>& to) {
    for (std::size_t i = 0; i < to.size(); ++i) {
        to[i] = std::clamp<int>(from[i], 0, white);
    }
}

void loadRow(const Frame& frame, int row, std::vector<double>& to) {
    if (frame.depth() == Depth::Bits8) {
        loadClamped(frame.row8(row), kWhite8, to);
    } else {
        loadClamped(frame.row16(row), kWhiteS214, to);
    }
}

/// weights[0] R + weights[1] G + weights[2] B of each pixel; weights are integers.
void mix(const std::vector<double>& pixels, const LumaShares& weights, std::vector<double>& to) {
    const double red = weights.red;
    const double green = weights.green;
    const double blue = weights.blue;
    const double* pixel = pixels.data();
    for (std::size_t x = 0; x < to.size(); ++x, pixel += kChannels) {
        to[x] = red * pixel[0] + green * pixel[1] + blue * pixel[2];
    }
}

/// The weights of B - Y and of R - Y, in the unit of the shares.
LumaShares blueDifference(const LumaShares& shares) {
    return {-shares.red, -shares.green, kLumaUnit - shares.blue};
}
LumaShares redDifference(const LumaShares& shares) {
    return {kLumaUnit - shares.red, -shares.green, -shares.blue};
}

}  // namespace

YuvPacker::YuvPacker(FrameSize size, const YuvForm& form)
    : format_(form.format),
      size_(size),
      coding_{form.matrix, form.full, bitsPerComponent(form.format)},
      shares_(lumaShares(form.matrix)),
      across_(ChromaResampler::decimator(chromaGrid(form.format, form.siting).across, size.width)),
      pixels_(static_cast<std::size_t>(size.width) * kChannels),
      plain_(static_cast<std::size_t>(size.width)),
      chroma_(static_cast<std::size_t>(across_.size()) * 2) {
    const ChromaGrid grid = chromaGrid(form.format, form.siting);
    for (const PictureLines& lines : pictureLines(grid, size.height, form.interlaced)) {
        parts_.push_back({lines, ChromaResampler::decimator(lines.down, lines.count)});
    }
}

void YuvPacker::pack(const Frame& frame, AVFrame& picture) {
    for (int y = 0; y < size_.height; ++y) {
        packPlain(frame, y, picture);
    }
    for (const Part& part : parts_) {
        packChroma(frame, part, picture);
    }
}

/// Stores luma and alpha of line y.
void YuvPacker::packPlain(const Frame& frame, int y, AVFrame& picture) {
    const CodeRange range = codeRange(coding_);
    const double white = whiteOf(frame);
    loadRow(frame, chainRowOfLine(y, size_.height), pixels_);
    mix(pixels_, shares_, plain_);
    CodeScale{range.black, range.luma, kLumaUnit * white, range.top}.store(plain_, picture, 0, y);
    if (hasAlpha(format_)) {
        for (std::size_t x = 0; x < plain_.size(); ++x) {
            plain_[x] = pixels_[x * kChannels + kAlpha];
        }
        CodeScale{0, range.top, white, range.top}.store(plain_, picture, kAlpha, y);
    }
}

void YuvPacker::packChroma(const Frame& frame, const Part& part, AVFrame& picture) {
    const CodeRange range = codeRange(coding_);
    // Colour differences are (B - Y) / (2 (1 - Kb)) and (R - Y) / (2 (1 - Kr)).
    const double unit = 2.0 * whiteOf(frame);
    const CodeScale blue{range.neutral, range.chroma, unit * (kLumaUnit - shares_.blue), range.top};
    const CodeScale red{range.neutral, range.chroma, unit * (kLumaUnit - shares_.red), range.top};
    const auto width = static_cast<std::size_t>(across_.size());
    LineCache cache(part.down.taps(), 2 * across_.size());
    for (int i = 0; i < part.down.size(); ++i) {
        cache.weightedSum(
            part.down.first(i), part.down.weights(i), chroma_, [&](int line, double* values) {
                readDifferences(frame, part.lines.first + line * part.lines.step, values);
            });
        const int y = part.lines.first + i * part.lines.step;
        blue.store({chroma_.data(), width}, picture, kBluePlane, y);
        red.store({chroma_.data() + width, width}, picture, kRedPlane, y);
    }
}

void YuvPacker::readDifferences(const Frame& frame, int y, double* values) {
    loadRow(frame, chainRowOfLine(y, size_.height), pixels_);
    mix(pixels_, blueDifference(shares_), plain_);
    across_.resample(plain_.data(), values);
    mix(pixels_, redDifference(shares_), plain_);
    across_.resample(plain_.data(), values + across_.size());
}

}  // namespace ruvex::media
