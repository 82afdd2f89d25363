#include "stages/white_dot.h"

#include <algorithm>

#include "imaging/blur/blur_gauss.h"
#include "imaging/maths/maths.h"
#include "imaging/maths/wrap.h"
#include "stages/stage_pixel.h"

namespace ruvex {
namespace {

// The factor to which the picture shrinks is exp(White Dot (0 to 1) * softness * rate) plus the
// least size; one rate for each axis.
constexpr float kRateX = -100.0f;
constexpr float kRateY = -300.0f;
constexpr double kLeastSize = 0.005;
// The picture's upper rows shrink as if White Dot were larger by up to 1/10.
constexpr float kTiltPart = 10.0f;

// The reach of the glow at White Dot 1, in pixels of the project frame.
constexpr float kGlowReach = 5.0f;
constexpr std::int32_t kGlowIterations = 3;
constexpr float kGlowRadiusPart = 3.0f;  // each of the three blurs has a third of the reach

// The power in single precision, the least size added in double.
float shrunk(float exponent) {
    return static_cast<float>(static_cast<float>(maths::exp(exponent)) + kLeastSize);
}

struct DotGeometry {
    float width, height;
    float shrinkY;
    std::int32_t top, bottom;  // painted rows: top .. bottom - 1
};

DotGeometry dotGeometry(const SignalParameters& signal) {
    DotGeometry dot;
    const auto originY = static_cast<float>(signal.originY);
    dot.width = signal.width - static_cast<float>(signal.originX);
    dot.height = signal.height - originY;
    dot.shrinkY = shrunk(signal.whiteDotSoftness * kRateY * signal.whiteDot);
    const float cut = (1.0f - dot.shrinkY) * dot.height * 0.5f;
    dot.top = truncateToInt(cut + originY);
    dot.bottom = truncateToInt(signal.height - cut);
    return dot;
}

// A row of the picture. Outside it the first and the last pixel are repeated.
template <class P>
class SourceRow {
public:
    SourceRow(const VxTexture<P>& picture, float row) : columns_(picture.x) {
        const std::int64_t index = std::int64_t{truncateToInt(row)} - picture.y.offset;
        row_ = picture.bufferRow(
            static_cast<std::int32_t>(std::clamp<std::int64_t>(index, 0, picture.y.size - 1)));
    }

    const P& at(std::int64_t x) const {
        const std::int64_t index = x - columns_.offset;
        return row_[std::clamp<std::int64_t>(index, 0, columns_.size - 1)];
    }

private:
    const TexAxis& columns_;
    const P* row_;
};

// The sum of the `skip` pixels from column `sx` on that shrink into one, scaled by how much their
// width has shrunk and clamped to the top of the range.
template <class P>
void concentrate(const SourceRow<P>& source, float sx, float skip, float shrink, P& to) {
    float sum[3] = {};
    const std::int64_t first = truncateToInt(sx);
    for (std::int32_t read = 0; static_cast<float>(read) < skip; ++read) {
        const P& pixel = source.at(first + read);
        for (int k = 0; k < 3; ++k) sum[k] += static_cast<float>(pixel.c[k]);
    }
    for (int k = 0; k < 3; ++k) {
        const float light = sum[k] / shrink;
        to.c[k] = light >= StagePixel<P>::kTop
                      ? static_cast<typename P::Component>(StagePixel<P>::kTopInt)
                      : storeTruncated<typename P::Component>(light);
    }
}

}  // namespace

template <class P>
void shrinkToDot(const SignalParameters& signal, const VxTexture<P>& picture, VxTexture<P>& target,
                 Span rows, Span columns, InterruptionRecord* interrupt) {
    if (rows.first >= rows.end || columns.first >= columns.end) return;
    const DotGeometry dot = dotGeometry(signal);
    const float q = signal.whiteDotSoftness;
    const float d = signal.whiteDot;
    const float skipY = 1.0f / dot.shrinkY;
    float sy = rows.first >= dot.top
                   ? static_cast<float>(wrapSubtract(rows.first, dot.top)) / dot.shrinkY
                   : static_cast<float>(rows.first);
    const std::int32_t first = std::clamp(dot.top, rows.first, rows.end);
    const std::int32_t end = std::clamp(dot.bottom, rows.first, rows.end);
    const auto painted = static_cast<float>(wrapSubtract(dot.bottom, dot.top));
    const float lastRow = static_cast<float>(picture.y.size) + picture.y.originF;
    for (std::int32_t y = first; y < end; ++y) {
        if (interruptCheck(interrupt)) return;
        const float tilt = static_cast<float>(dot.bottom - y) / painted / kTiltPart;
        const float shrinkX = shrunk((tilt + d) * (q * kRateX));
        const float skipX = 1.0f / shrinkX;
        const float cut = (1.0f - shrinkX) * dot.width * 0.5f;
        const std::int32_t left = truncateToInt(cut + static_cast<float>(signal.originX));
        const std::int32_t right = truncateToInt(signal.width - cut);
        const SourceRow<P> source(picture, sy);
        P* to = target.writeAt(columns.first, y);
        std::fill(to, to + (std::clamp(left, columns.first, columns.end) - columns.first), P{});
        float sx = 0.0f;
        for (std::int32_t x = left; x < std::min(right, columns.end); ++x, sx += skipX) {
            if (x < columns.first) continue;
            P& pixel = to[x - columns.first];
            concentrate(source, sx, skipX, shrinkX, pixel);
        }
        std::fill(to + (std::clamp(right, columns.first, columns.end) - columns.first),
                  to + (columns.end - columns.first), P{});
        if (lastRow > skipY + sy) sy += skipY;
    }
}

template <class P>
void glowAroundDot(const SignalParameters& signal, float scaleY, VxTexture<P>& target,
                   InterruptionRecord* interrupt) {
    const float q = signal.whiteDotSoftness;
    const float d = signal.whiteDot;
    const auto originX = static_cast<float>(signal.originX);
    const auto originY = static_cast<float>(signal.originY);
    const float glowY = d * kGlowReach * signal.scale;
    const float glowX = glowY * scaleY;
    const float v = (1.0f - shrunk(q * kRateY * d)) * (signal.height - originY);
    const float u = (1.0f - shrunk(q * kRateX * d)) * (signal.width - originX) * 0.5f;

    BlurGeneralGauss<P> blur;
    blur.radiusX = glowX / kGlowRadiusPart;
    blur.radiusY = glowY / kGlowRadiusPart;
    blur.iterations = kGlowIterations;
    blur.interrupt = interrupt;
    blur.setWindow(truncateToInt(u + originX - glowX), truncateToInt(v * 0.5f + originY - glowY),
                   truncateToInt(signal.width - u + glowX),
                   truncateToInt(signal.height - v * 0.5f + glowY));
    // Read where it is written, wherever the host places the output.
    VxTexture<P> dot;
    dot.refer(target);
    dot.setOrigin(dot.x.offset, dot.y.offset);
    blur.process(&dot, &dot);
}

template void shrinkToDot(const SignalParameters&, const VxTexture<Rgba8>&, VxTexture<Rgba8>&, Span,
                          Span, InterruptionRecord*);
template void shrinkToDot(const SignalParameters&, const VxTexture<RgbaS214>&, VxTexture<RgbaS214>&,
                          Span, Span, InterruptionRecord*);
template void glowAroundDot(const SignalParameters&, float, VxTexture<Rgba8>&, InterruptionRecord*);
template void glowAroundDot(const SignalParameters&, float, VxTexture<RgbaS214>&,
                            InterruptionRecord*);

}  // namespace ruvex
