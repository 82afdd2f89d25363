#include "media/pixels/yuv_pack.h"

extern "C" {
#include <libavutil/pixdesc.h>
}

#include <limits>

#include "media/pixels/plane_line.h"
#include "media/pixels/rgb_lines.h"

namespace ruvex::media {
namespace {

constexpr int kBluePlane = 1;
constexpr int kRedPlane = 2;

int whiteOf(Depth depth) {
    return depth == Depth::Bits8 ? kWhite8 : kWhiteS214;
}

bool isSubsampled(const ChromaGrid& grid) {
    return grid.across.log2Step + grid.down.log2Step > 0;
}

/// Stores the code values of a line of a plane; encode8 and encode16 are loops for such a line.
template <class Line, class Codes, class Encode8, class Encode16>
void storeCodes(const Line& line, const Codes& codes, Encode8 encode8, Encode16 encode16,
                AVFrame& picture, int plane, int y) {
    if (bitsPerComponent(static_cast<AVPixelFormat>(picture.format)) == 8) {
        encode8(line, codes, planeLine<std::uint8_t>(picture, plane, y));
    } else {
        encode16(line, codes, planeLine<std::uint16_t>(picture, plane, y));
    }
}

}  // namespace

YuvPacker::Codes::Codes(const YuvCoding& coding, int white)
    : luma(lumaMix(coding, white)),
      blue(blueMix(coding, white)),
      red(redMix(coding, white)),
      alpha(alphaMix(coding, white)) {}

YuvPacker::YuvPacker(FrameSize size, const YuvForm& form, const YuvKernels& kernels)
    : size_(size),
      form_(form),
      coding_{form.matrix, form.full, bitsPerComponent(form.format)},
      grid_(chromaGrid(form.format, form.siting)),
      kernels_(kernels),
      across_(ChromaResampler::decimator(grid_.across, size.width)),
      red_(size.width),
      green_(size.width),
      blue_(size.width),
      alpha_(size.width) {}

void YuvPacker::prepare(Depth depth) {
    for (Part& part : parts_) part.next = 0;
    if (depth_ == depth) return;
    depth_ = depth;
    codes_.emplace(coding_, whiteOf(depth));
    parts_.clear();
    if (!isSubsampled(grid_)) return;
    for (const PictureLines& lines : pictureLines(grid_, size_.height, form_.interlaced)) {
        parts_.push_back(partOf(lines, whiteOf(depth)));
    }
}

YuvPacker::Part YuvPacker::partOf(const PictureLines& lines, int white) const {
    const auto down = ChromaResampler::decimator(lines.down, lines.count);
    const std::int64_t unit = std::int64_t{across_.unit()} * down.unit();
    const SumCodes blue(blueMix(coding_, white), unit);
    const SumCodes red(redMix(coding_, white), unit);
    const std::int64_t largestSum = std::int64_t{white} * across_.gain() * down.gain();
    if (largestSum <= std::numeric_limits<std::int32_t>::max()) {
        using Integers = ChromaDecimator<std::int32_t>;
        return {lines, Integers(across_, down, kernels_, kernels_.integers), blue, red};
    }
    using Doubles = ChromaDecimator<double>;
    return {lines, Doubles(across_, down, kernels_, kernels_.doubles), blue, red};
}

void YuvPacker::pack(const Frame& frame, AVFrame& picture) {
    prepare(frame.depth());
    for (int y = 0; y < size_.height; ++y) {
        split(frame, chainRowOfLine(y, size_.height));
        store(pixels(), codes_->luma, picture, 0, y);
        if (hasAlpha(form_.format)) {
            const RgbLine<std::int32_t> alpha{alpha_.data(), alpha_.data(), alpha_.data(),
                                              size_.width};
            store(alpha, codes_->alpha, picture, kAlpha, y);
        }
        if (parts_.empty()) {
            store(pixels(), codes_->blue, picture, kBluePlane, y);
            store(pixels(), codes_->red, picture, kRedPlane, y);
        } else {
            Part& part = parts_[static_cast<std::size_t>(y) % parts_.size()];
            packChroma(part, y / part.lines.step, picture);
        }
    }
}

void YuvPacker::split(const Frame& frame, int row) {
    const RgbaLines lines{red_.data(), green_.data(), blue_.data(), alpha_.data()};
    if (frame.depth() == Depth::Bits8) {
        kernels_.split8(frame.row8(row), size_.width, lines);
    } else {
        kernels_.split16(frame.row16(row), size_.width, lines);
    }
}

RgbLine<std::int32_t> YuvPacker::pixels() const {
    return {red_.data(), green_.data(), blue_.data(), size_.width};
}

void YuvPacker::store(const RgbLine<std::int32_t>& line, const PixelCodes& codes, AVFrame& picture,
                      int plane, int y) const {
    storeCodes(line, codes, kernels_.encode8, kernels_.encode16, picture, plane, y);
}

/// Takes a line of the part and stores the chroma lines that it completes.
void YuvPacker::packChroma(Part& part, int line, AVFrame& picture) {
    red_.extend();
    green_.extend();
    blue_.extend();
    const auto packReady = [&](auto& chroma, const auto& kernels) {
        chroma.add(line, pixels());
        for (; chroma.ready(part.next, line); ++part.next) {
            const auto sums = chroma.sums(part.next);
            const int y = part.lines.first + part.next * part.lines.step;
            storeCodes(sums, part.blue, kernels.encode8, kernels.encode16, picture, kBluePlane, y);
            storeCodes(sums, part.red, kernels.encode8, kernels.encode16, picture, kRedPlane, y);
        }
    };
    if (auto* integers = std::get_if<ChromaDecimator<std::int32_t>>(&part.chroma)) {
        packReady(*integers, kernels_.integers);
    } else {
        packReady(std::get<ChromaDecimator<double>>(part.chroma), kernels_.doubles);
    }
}

}  // namespace ruvex::media
