#include "jobs/comparison.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace ruvex::jobs {
namespace {

constexpr int kWidthOfOneLine = 720;

/// `count` pixels from one row to another of the same depth.
void copyPixels(const std::byte* from, std::byte* to, int count, media::Depth depth) {
    std::memcpy(to, from, static_cast<std::size_t>(count) * media::bytesPerPixel(depth));
}

/// Pixel `x` of a row; Byte is std::byte, const or not.
template <class Byte>
Byte* pixel(Byte* row, int x, media::Depth depth) {
    return row + static_cast<std::size_t>(x) * media::bytesPerPixel(depth);
}

void fillWhite(media::Frame& frame, int row, int first, int end) {
    for (int i = first * media::kChannels; i < end * media::kChannels; ++i) {
        if (frame.depth() == media::Depth::Bits8) {
            frame.row8(row)[i] = 255;
        } else {
            frame.row16(row)[i] = media::kWhiteS214;
        }
    }
}

void joinRow(const media::Frame& before, const media::Frame& after, int row, media::Frame& result) {
    const int width = before.width();
    const media::Depth depth = before.depth();
    copyPixels(before.row(row), result.row(row), width, depth);
    copyPixels(after.row(row), pixel(result.row(row), width, depth), width, depth);
}

void splitRow(const media::Frame& before, const media::Frame& after, int row, int split,
              media::Frame& result) {
    const int width = before.width();
    const media::Depth depth = before.depth();
    copyPixels(before.row(row), result.row(row), split, depth);
    copyPixels(pixel(after.row(row), split, depth), pixel(result.row(row), split, depth),
               width - split, depth);
    const int line = dividerWidth(width);
    const int first = split - line / 2;
    fillWhite(result, row, std::clamp(first, 0, width), std::clamp(first + line, 0, width));
}

}  // namespace

media::FrameSize comparedSize(const Comparison& comparison, media::FrameSize size) {
    return comparison.kind == Comparison::Kind::SideBySide
               ? media::FrameSize{size.width * 2, size.height}
               : size;
}

int dividerWidth(int width) {
    return std::max(1, (width + kWidthOfOneLine / 2) / kWidthOfOneLine);
}

void compareFrames(const Comparison& comparison, const media::Frame& before,
                   const media::Frame& after, media::Frame& result) {
    const int split = static_cast<int>(std::lround(comparison.splitAt * before.width()));
    for (int row = 0; row < before.height(); ++row) {
        if (comparison.kind == Comparison::Kind::SideBySide) {
            joinRow(before, after, row, result);
        } else {
            splitRow(before, after, row, split, result);
        }
    }
}

}  // namespace ruvex::jobs
