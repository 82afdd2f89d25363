#include "media/pixels/float_lines.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>

#include "media/frame.h"
#include "media/pixels/plane_line.h"

namespace ruvex::media {
namespace {

/// The plane of each channel: the library's planes are green, blue, red, alpha.
constexpr std::array<int, kChannels> kPlane = {2, 0, 1, 3};

std::int16_t s214FromUnit(double value) {
    if (std::isnan(value)) {
        return 0;
    }
    return static_cast<std::int16_t>(std::lrint(std::clamp(value * kWhiteS214, -32768.0, 32767.0)));
}

/// The divisor of a pixel's colours; 1 where alpha is 0, infinite or NaN.
double divisorOf(float alpha, AlphaForm form) {
    const bool divides = form == AlphaForm::Premultiplied && alpha != 0 && std::isfinite(alpha);
    return divides ? alpha : 1.0;
}

void unpackLine(const std::array<const float*, kChannels>& line, AlphaForm form, int width,
                std::int16_t* pixel) {
    for (int x = 0; x < width; ++x, pixel += kChannels) {
        const float alpha = line[kAlpha] == nullptr ? 1.0F : line[kAlpha][x];
        const double divisor = divisorOf(alpha, form);
        for (std::size_t channel = 0; channel < kAlpha; ++channel) {
            pixel[channel] = s214FromUnit(line[channel][x] / divisor);
        }
        pixel[kAlpha] = s214FromUnit(alpha);
    }
}

/// `white` is that of the frame.
template <typename T>
void packLine(const T* pixel, double white, AlphaForm form, int width,
              const std::array<float*, kChannels>& line) {
    for (int x = 0; x < width; ++x, pixel += kChannels) {
        const double alpha = pixel[kAlpha] / white;
        const double factor = form == AlphaForm::Straight || alpha == 0 ? 1.0 : alpha;
        for (std::size_t channel = 0; channel < kAlpha; ++channel) {
            line[channel][x] = static_cast<float>(factor * pixel[channel] / white);
        }
        line[kAlpha][x] = static_cast<float>(alpha);
    }
}

/// The half float nearest to the value, as a single one; of two equally near the one whose last bit
/// is 0. Values are below 65504, the largest half float.
float nearestHalf(float value) {
    constexpr float kLeastNormal = 0x1p-14F;  // Of half floats. Below, they are 2^-24 apart.
    if (std::fabs(value) < kLeastNormal) {
        // In [0.5, 1), where the sum lies, single floats are 2^-24 apart too.
        constexpr float kShift = 0.75F;
        return (value + kShift) - kShift;
    }
    constexpr unsigned kDropped = 13;  // Bits of a single float's mantissa that a half lacks.
    constexpr std::uint32_t kBelowHalf = (1U << (kDropped - 1)) - 1;
    const auto bits = std::bit_cast<std::uint32_t>(value);
    const std::uint32_t odd = bits >> kDropped & 1U;
    return std::bit_cast<float>((bits + kBelowHalf + odd) >> kDropped << kDropped);
}

}  // namespace

bool isFloat(AVPixelFormat format) {
    return format == AV_PIX_FMT_GBRPF32LE || format == AV_PIX_FMT_GBRAPF32LE ||
           format == AV_PIX_FMT_GRAYF32LE;
}

void unpackFloat(const AVFrame& picture, AlphaForm alpha, Frame& frame) {
    const bool grey = picture.format == AV_PIX_FMT_GRAYF32LE;
    const bool withAlpha = picture.format == AV_PIX_FMT_GBRAPF32LE;
    for (int y = 0; y < picture.height; ++y) {
        std::array<const float*, kChannels> line{};
        for (std::size_t channel = 0; channel < kAlpha; ++channel) {
            line[channel] = planeLine<float>(picture, grey ? 0 : kPlane[channel], y);
        }
        line[kAlpha] = withAlpha ? planeLine<float>(picture, kAlpha, y) : nullptr;
        unpackLine(line, alpha, picture.width, frame.row16(chainRowOfLine(y, picture.height)));
    }
}

void packFloat(const Frame& frame, AlphaForm alpha, AVFrame& picture) {
    for (int y = 0; y < frame.height(); ++y) {
        std::array<float*, kChannels> line{};
        for (std::size_t channel = 0; channel < kChannels; ++channel) {
            line[channel] = planeLine<float>(picture, kPlane[channel], y);
        }
        const int row = chainRowOfLine(y, frame.height());
        if (frame.depth() == Depth::Bits8) {
            packLine(frame.row8(row), kWhite8, alpha, frame.width(), line);
        } else {
            packLine(frame.row16(row), kWhiteS214, alpha, frame.width(), line);
        }
    }
}

void roundToHalf(AVFrame& picture) {
    for (int plane = 0; plane < kChannels; ++plane) {
        for (int y = 0; y < picture.height; ++y) {
            float* line = planeLine<float>(picture, plane, y);
            std::transform(line, line + picture.width, line, nearestHalf);
        }
    }
}

}  // namespace ruvex::media
