#include "media/pixels/yuv_unpack.h"

extern "C" {
#include <libavutil/pixdesc.h>
}

#include <algorithm>
#include <limits>

#include "media/av_functions.h"
#include "media/pixels/component_read.h"
#include "media/pixels/line_cache.h"
#include "media/pixels/rgb_lines.h"

namespace ruvex::media {
namespace {

constexpr int kBlueComponent = 1;
constexpr int kRedComponent = 2;

/// One line of a picture, chroma at each pixel. `alpha` is null for a picture without it.
struct YuvLine {
    const std::uint16_t* luma;
    const double* blue;
    const double* red;
    const std::uint16_t* alpha;
    int width;
};

/// R = Y + rv V, G = Y - gu U - gv V, B = Y + bu U, where Y = y0 (luma - black),
/// U = blue - neutral, V = red - neutral. The factors include the white of the frame.
class YuvDecoder {
public:
    YuvDecoder(const YuvCoding& coding, int white) : range_(codeRange(coding)), white_(white) {
        const LumaShares share = lumaShares(coding.matrix);
        // Colour differences are (B - Y) / (2 (1 - Kb)) and (R - Y) / (2 (1 - Kr)).
        const double chroma = 2.0 * white / range_.chroma / kLumaUnit;
        y0_ = static_cast<double>(white) / range_.luma;
        rv_ = chroma * (kLumaUnit - share.red);
        bu_ = chroma * (kLumaUnit - share.blue);
        gu_ = bu_ * share.blue / share.green;
        gv_ = rv_ * share.red / share.green;
        alpha0_ = static_cast<double>(white) / range_.top;
    }

    template <typename T>
    void decode(const YuvLine& line, T* pixel) const {
        for (int x = 0; x < line.width; ++x, pixel += kChannels) {
            const double luma = (line.luma[x] - range_.black) * y0_;
            const double blue = line.blue[x] - range_.neutral;
            const double red = line.red[x] - range_.neutral;
            pixel[0] = nearest<T>(luma + rv_ * red);
            pixel[1] = nearest<T>(luma - gu_ * blue - gv_ * red);
            pixel[2] = nearest<T>(luma + bu_ * blue);
            pixel[kAlpha] = line.alpha == nullptr ? static_cast<T>(white_)
                                                  : nearest<T>(line.alpha[x] * alpha0_);
        }
    }

private:
    /// Rounds to the nearest, halves up, and clamps to the range of T. Values are above -4 whites.
    template <typename T>
    static T nearest(double value) {
        // The conversion to an integer truncates, which rounds down where the value is not
        // negative.
        constexpr int kLift = 4 * kWhiteS214;
        const int rounded = static_cast<int>(value + (kLift + 0.5)) - kLift;
        // Of integers the compiler clamps without branches; colours are often near the limits.
        return static_cast<T>(
            std::clamp<int>(rounded, std::numeric_limits<T>::min(), std::numeric_limits<T>::max()));
    }

    CodeRange range_;
    int white_;
    double y0_, rv_, gu_, gv_, bu_, alpha0_;
};

std::uint8_t* rowOfFrame(Frame& frame, int row, std::uint8_t) {
    return frame.row8(row);
}
std::int16_t* rowOfFrame(Frame& frame, int row, std::int16_t) {
    return frame.row16(row);
}

}  // namespace

bool isYuv(AVPixelFormat format) {
    const AVPixFmtDescriptor& description = *av_pix_fmt_desc_get(format);
    constexpr std::uint64_t kUnsupported = AV_PIX_FMT_FLAG_HWACCEL | AV_PIX_FMT_FLAG_FLOAT |
                                           AV_PIX_FMT_FLAG_BAYER | AV_PIX_FMT_FLAG_RGB |
                                           AV_PIX_FMT_FLAG_PAL;
    const bool other = format == AV_PIX_FMT_XYZ12LE || format == AV_PIX_FMT_XYZ12BE ||
                       format == AV_PIX_FMT_UYYVYY411;
    return !other && (description.flags & kUnsupported) == 0 && description.nb_components >= 3 &&
           bitsPerComponent(format) <= 16;
}

YuvUnpacker::YuvUnpacker(FrameSize size, AVPixelFormat format, const YuvCoding& coding,
                         AVChromaLocation siting)
    : format_(*av_pix_fmt_desc_get(format)),
      size_(size),
      coding_(coding),
      across_(ChromaResampler::interpolator(chromaGrid(format, siting).across, size.width)),
      whole_(partsOf(chromaGrid(format, siting), false)),
      fields_(partsOf(chromaGrid(format, siting), true)),
      chromaWidth_(chromaGrid(format, siting).across.count(size.width)),
      values_(static_cast<std::size_t>(size.width)),
      alpha_(values_.size()),
      chroma_(static_cast<std::size_t>(chromaWidth_) * 2),
      blue_(values_.size()),
      red_(values_.size()) {}

std::vector<YuvUnpacker::Part> YuvUnpacker::partsOf(const ChromaGrid& grid, bool interlaced) const {
    std::vector<Part> parts;
    for (const PictureLines& lines : pictureLines(grid, size_.height, interlaced)) {
        parts.push_back({lines, ChromaResampler::interpolator(lines.down, lines.count)});
    }
    return parts;
}

void YuvUnpacker::unpack(const AVFrame& picture, bool interlaced, Frame& frame) {
    if (frame.depth() == Depth::Bits8) {
        unpackAs<std::uint8_t>(picture, interlaced, frame);
    } else {
        unpackAs<std::int16_t>(picture, interlaced, frame);
    }
}

template <typename T>
void YuvUnpacker::unpackAs(const AVFrame& picture, bool interlaced, Frame& frame) {
    for (const Part& part : interlaced ? fields_ : whole_) {
        unpackPart<T>(picture, part, frame);
    }
}

template <typename T>
void YuvUnpacker::unpackPart(const AVFrame& picture, const Part& part, Frame& frame) {
    const YuvDecoder decoder(coding_, frame.depth() == Depth::Bits8 ? kWhite8 : kWhiteS214);
    const bool withAlpha = (format_.flags & AV_PIX_FMT_FLAG_ALPHA) != 0;
    LineCache cache(part.down.taps(), 2 * chromaWidth_);
    for (int i = 0; i < part.lines.count; ++i) {
        cache.weightedSum(
            part.down.first(i), part.down.weights(i), chroma_, [&](int line, double* values) {
                readChroma(picture, part.lines.first + line * part.lines.step, values);
            });
        across_.resample(chroma_.data(), blue_.data());
        across_.resample(chroma_.data() + chromaWidth_, red_.data());
        const int y = part.lines.first + i * part.lines.step;
        readComponent(picture, format_, 0, y, values_);
        if (withAlpha) {
            readComponent(picture, format_, kAlpha, y, alpha_);
        }
        decoder.decode({values_.data(), blue_.data(), red_.data(),
                        withAlpha ? alpha_.data() : nullptr, size_.width},
                       rowOfFrame(frame, chainRowOfLine(y, size_.height), T{}));
    }
}

void YuvUnpacker::readChroma(const AVFrame& picture, int line, double* values) {
    const auto width = static_cast<std::size_t>(chromaWidth_);
    for (const int component : {kBlueComponent, kRedComponent}) {
        readComponent(picture, format_, component, line, {values_.data(), width});
        values = std::copy_n(values_.data(), width, values);
    }
}

}  // namespace ruvex::media
