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
constexpr int kColours = 3;

int whiteOf(Depth depth) {
    return depth == Depth::Bits8 ? kWhite8 : kWhiteS214;
}

bool isSubsampled(const ChromaGrid& grid) {
    return grid.across.log2Step + grid.down.log2Step > 0;
}

const std::uint8_t* pixelsOf(const Frame& frame, int row, std::uint8_t) {
    return frame.row8(row);
}
const std::int16_t* pixelsOf(const Frame& frame, int row, std::int16_t) {
    return frame.row16(row);
}

/// The loop for sums of one type to words of one type.
template <class Sum>
EncodeSums<Sum, std::uint8_t> encodeSums(const YuvSumKernels<Sum>& kernels, std::uint8_t) {
    return kernels.encode8;
}
template <class Sum>
EncodeSums<Sum, std::uint16_t> encodeSums(const YuvSumKernels<Sum>& kernels, std::uint16_t) {
    return kernels.encode16;
}

/// Frames' rows follow each other downwards in memory, against the order that processors expect.
void prefetchRow(const Frame& frame, int row) {
    constexpr std::size_t kCacheLine = 64;
    if (row < 0) return;
    const std::byte* const bytes = frame.row(row);
    for (std::size_t i = 0; i < frame.rowBytes(); i += kCacheLine) __builtin_prefetch(bytes + i);
}

}  // namespace

YuvPacker::YuvPacker(FrameSize size, const YuvForm& form, const YuvKernels& kernels)
    : size_(size),
      form_(form),
      coding_{form.matrix, form.full, bitsPerComponent(form.format)},
      grid_(chromaGrid(form.format, form.siting)),
      kernels_(kernels),
      across_(ChromaResampler::decimator(grid_.across, size.width)) {
    if (isSubsampled(grid_)) {
        even_.assign(kColours, EdgeLine<std::int32_t>((size.width + 1) / 2));
        odd_ = even_;
    }
}

void YuvPacker::prepare(Depth depth) {
    for (Part& part : parts_) part.next = 0;
    if (depth_ == depth) return;
    depth_ = depth;
    const int white = whiteOf(depth);
    colourCodes_ = {PixelCodes(lumaMix(coding_, white)), PixelCodes(blueMix(coding_, white)),
                    PixelCodes(redMix(coding_, white))};
    alphaCodes_ = {PixelCodes(alphaMix(coding_, white))};
    parts_.clear();
    if (!isSubsampled(grid_)) return;
    for (const PictureLines& lines : pictureLines(grid_, size_.height, form_.interlaced)) {
        parts_.push_back(partOf(lines, white));
    }
}

YuvPacker::Part YuvPacker::partOf(const PictureLines& lines, int white) const {
    const auto down = ChromaResampler::decimator(lines.down, lines.count);
    const std::int64_t unit = std::int64_t{across_.unit()} * down.unit();
    const std::int64_t gain = std::int64_t{across_.gain()} * down.gain();
    const SumCodes blue(blueMix(coding_, white), unit, gain);
    const SumCodes red(redMix(coding_, white), unit, gain);
    if (white * gain <= std::numeric_limits<std::int32_t>::max()) {
        using Integers = ChromaDecimator<std::int32_t>;
        return {lines, Integers(across_, down, kernels_), blue, red};
    }
    using Doubles = ChromaDecimator<double>;
    return {lines, Doubles(across_, down, kernels_), blue, red};
}

void YuvPacker::pack(const Frame& frame, AVFrame& picture) {
    prepare(frame.depth());
    const bool toBytes = coding_.bits == 8;
    if (frame.depth() == Depth::Bits8) {
        const auto& from = kernels_.from8;
        toBytes ? packAs(frame, from, from.to8, picture) : packAs(frame, from, from.to16, picture);
    } else {
        const auto& from = kernels_.from16;
        toBytes ? packAs(frame, from, from.to8, picture) : packAs(frame, from, from.to16, picture);
    }
}

template <class Component, class Word>
void YuvPacker::packAs(const Frame& frame, const PixelKernels<Component>& kernels,
                       const EncodeKernels<Component, Word>& encode, AVFrame& picture) {
    const int width = size_.width;
    for (int y = 0; y < size_.height; ++y) {
        const int row = chainRowOfLine(y, size_.height);
        const Component* const pixels = pixelsOf(frame, row, Component{});
        Word* const colours[] = {planeLine<Word>(picture, 0, y),
                                 parts_.empty() ? planeLine<Word>(picture, kBluePlane, y) : nullptr,
                                 parts_.empty() ? planeLine<Word>(picture, kRedPlane, y) : nullptr};
        prefetchRow(frame, row - 1);
        (parts_.empty() ? encode.lumaBlueRed : encode.luma)(pixels, width, colourCodes_.data(),
                                                            colours);
        if (hasAlpha(form_.format)) {
            Word* const alpha[] = {planeLine<Word>(picture, kAlpha, y)};
            encode.alpha(pixels, width, alphaCodes_.data(), alpha);
        }
        if (!parts_.empty()) {
            kernels.split(pixels, width, pairLines());
            Part& part = parts_[static_cast<std::size_t>(y) % parts_.size()];
            packChroma<Word>(part, y / part.lines.step, picture);
        }
    }
}

PairLines YuvPacker::pairLines() {
    return {{even_[0].data(), even_[1].data(), even_[2].data()},
            {odd_[0].data(), odd_[1].data(), odd_[2].data()}};
}

/// Repeats the outermost pixels.
void YuvPacker::extendPairs() {
    for (std::size_t colour = 0; colour < kColours; ++colour) {
        const std::int32_t first = even_[colour].data()[0];
        const std::int32_t last = odd_[colour].data()[(size_.width - 1) / 2];
        even_[colour].extend(first, last);
        odd_[colour].extend(first, last);
    }
}

/// Takes the line in pairLines and stores the chroma lines of the part that it completes.
template <class Word>
void YuvPacker::packChroma(Part& part, int line, AVFrame& picture) {
    extendPairs();
    const auto packReady = [&]<class Sum>(ChromaDecimator<Sum>& chroma) {
        chroma.add(line, pairLines());
        const auto encode = encodeSums(kernels_.with<Sum>(), Word{});
        for (; chroma.ready(part.next, line); ++part.next) {
            const auto sums = chroma.sums(part.next);
            const int y = part.lines.first + part.next * part.lines.step;
            encode(sums, part.blue, planeLine<Word>(picture, kBluePlane, y));
            encode(sums, part.red, planeLine<Word>(picture, kRedPlane, y));
        }
    };
    std::visit(packReady, part.chroma);
}

}  // namespace ruvex::media
