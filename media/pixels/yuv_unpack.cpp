#include "media/pixels/yuv_unpack.h"

extern "C" {
#include <libavutil/pixdesc.h>
}

#include <algorithm>
#include <limits>

#include "media/av_functions.h"
#include "media/pixels/component_read.h"
#include "media/pixels/rgb_lines.h"

namespace ruvex::media {
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
                         AVChromaLocation siting, const YuvKernels& kernels)
    : format_(*av_pix_fmt_desc_get(format)),
      size_(size),
      coding_(coding),
      kernels_(kernels),
      across_(ChromaResampler::interpolator(chromaGrid(format, siting).across, size.width)),
      whole_(partsOf(chromaGrid(format, siting), false)),
      fields_(partsOf(chromaGrid(format, siting), true)),
      chroma_(interpolatorFor(format, coding, across_, whole_, fields_, kernels)),
      luma_(static_cast<std::size_t>(size.width)),
      alpha_(luma_.size()) {}

std::vector<YuvUnpacker::Part> YuvUnpacker::partsOf(const ChromaGrid& grid, bool interlaced) const {
    std::vector<Part> parts;
    for (const PictureLines& lines : pictureLines(grid, size_.height, interlaced)) {
        parts.push_back({lines, ChromaResampler::interpolator(lines.down, lines.count)});
    }
    return parts;
}

/// With integer sums if the largest fits them.
YuvUnpacker::AnyInterpolator YuvUnpacker::interpolatorFor(
    AVPixelFormat format, const YuvCoding& coding, const ChromaResampler& across,
    const std::vector<Part>& whole, const std::vector<Part>& fields, const YuvKernels& kernels) {
    const CodeRange range = codeRange(coding);
    std::int64_t down = 0;
    for (const Part& part : whole) down = std::max<std::int64_t>(down, part.down.gain());
    for (const Part& part : fields) down = std::max<std::int64_t>(down, part.down.gain());
    const AVPixFmtDescriptor& description = *av_pix_fmt_desc_get(format);
    // Between lines, sums begin with the neutral value, so that none exceeds the highest code.
    const std::int64_t largest = down * across.gain() * range.top;
    if (largest <= std::numeric_limits<std::int32_t>::max()) {
        return ChromaInterpolator<std::int32_t>(description, range.neutral, across,
                                                kernels.integers);
    }
    return ChromaInterpolator<double>(description, range.neutral, across, kernels.doubles);
}

void YuvUnpacker::unpack(const AVFrame& picture, bool interlaced, Frame& frame) {
    std::visit(
        [&](auto& chroma) {
            for (const Part& part : interlaced ? fields_ : whole_) {
                unpackPart(picture, part, chroma, frame);
            }
        },
        chroma_);
}

template <class Sum>
void YuvUnpacker::unpackPart(const AVFrame& picture, const Part& part,
                             ChromaInterpolator<Sum>& chroma, Frame& frame) {
    const int white = frame.depth() == Depth::Bits8 ? kWhite8 : kWhiteS214;
    const std::int64_t across = across_.unit();
    const ColourScale scale(coding_, white, across * part.down.unit(),
                            std::int64_t{across_.gain()} * part.down.gain());
    const bool withAlpha = (format_.flags & AV_PIX_FMT_FLAG_ALPHA) != 0;
    for (int i = 0; i < part.lines.count; ++i) {
        const int y = part.lines.first + i * part.lines.step;
        const auto sides = chroma.line(picture, part.lines, part.down, i, i == 0);
        readComponent(picture, format_, 0, y, luma_);
        if (withAlpha) readComponent(picture, format_, kAlpha, y, alpha_);
        const YuvLine<Sum> line{luma_.data(), sides.blue, sides.red,
                                withAlpha ? alpha_.data() : nullptr, size_.width};
        decode(line, scale, chainRowOfLine(y, size_.height), frame);
    }
}

template <class Sum>
void YuvUnpacker::decode(const YuvLine<Sum>& line, const ColourScale& scale, int row,
                         Frame& frame) const {
    const YuvSumKernels<Sum>& kernels = kernels_.with<Sum>();
    if (frame.depth() == Depth::Bits8) {
        kernels.decode8(line, scale, frame.row8(row));
    } else {
        kernels.decode16(line, scale, frame.row16(row));
    }
}

}  // namespace ruvex::media
