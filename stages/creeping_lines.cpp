#include "stages/creeping_lines.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "imaging/maths/maths.h"
#include "imaging/maths/random.h"
#include "imaging/maths/wrap.h"
#include "stages/angles.h"
#include "stages/stage_pixel.h"
#include "stages/threshold.h"

namespace ruvex {
namespace {

// Angles between which a line is closer to the vertical than to the horizontal.
constexpr float kSteepFrom = 0.7853982f;  // pi / 4
constexpr float kSteepTo = 2.3561945f;    // 3 pi / 4
// A line has a dot on every third row (steep) or column (shallow).
constexpr std::int32_t kDotStep = 3;

float sine(float angle) {
    return static_cast<float>(maths::sin(angle));
}

// How far the lines have moved along a row when they have moved by `offset` across their direction.
// For angles above a half turn they move in the other direction.
float creepOf(float angle, float offset) {
    if (angle < kQuarterTurn) return -(offset / sine(angle));
    if (angle < kHalfTurn) return -(offset / sine(kHalfTurn - angle));
    if (angle < kThreeQuarterTurn) return offset / sine(angle - kHalfTurn);
    return offset / sine(kWholeTurn - angle);
}

// v rounded up to a whole number.
float wholeAbove(float v) {
    const std::int32_t whole = truncateToInt(v);
    const bool up = v > 0.0f && static_cast<float>(whole) != v;
    return static_cast<float>(whole) + (up ? 1.0f : 0.0f);
}

struct LineFamily {
    float angle;   // radians, 0 to pi
    float slope;   // rows per column
    float step;    // columns from one line to the next along a row
    float reach;   // columns a line covers over the picture's height; negative above pi / 2
    float period;  // columns after which the whole family repeats along a row
    std::int32_t lines;
    float strength;
};

LineFamily lineFamily(const SignalParameters& signal, float width, float height) {
    LineFamily family;
    family.strength = thresholdLine(signal.breakup, 1.0f, signal.lineThreshold);
    family.angle = signal.lineAngle > kHalfTurn ? signal.lineAngle - kHalfTurn : signal.lineAngle;
    const float a = family.angle;
    family.step = signal.lineSpacing / sine(a > kQuarterTurn ? kHalfTurn - a : a);
    family.slope = static_cast<float>(maths::tan(a));
    family.reach = height / family.slope;
    family.lines = truncateToInt((std::fabs(family.reach) + width) / family.step + 1.0f);
    family.period = static_cast<float>(wrapSubtract(family.lines, 1)) * family.step + family.step;
    return family;
}

template <class P>
class LineDrawer {
public:
    LineDrawer(const SignalParameters& signal, const LineFamily& family, VxTexture<P>& picture,
               Span rows, std::uint32_t seed)
        : signal_(signal), family_(family), picture_(picture), rows_(rows), seed_(seed) {}

    void drawLine(float p) {
        const float at = broughtIntoView(p);
        if (family_.angle > kSteepFrom && family_.angle < kSteepTo) {
            drawSteep(at);
        } else {
            drawShallow(at);
        }
    }

private:
    float originX() const { return static_cast<float>(signal_.originX); }

    float broughtIntoView(float p) const {
        const LineFamily& f = family_;
        const float left = originX();
        const float width = signal_.width;
        if (f.angle > kQuarterTurn) {
            if (p < left) return p + wholeAbove((left - p) / f.period) * f.period;
            if (p > std::fabs(f.reach) + width) {
                return p - wholeAbove((p - width + f.reach) / f.period) * f.period;
            }
            return p;
        }
        if (p > width) return p - wholeAbove((p - width) / f.period) * f.period;
        if (p < left - std::fabs(f.reach)) {
            return p + wholeAbove((left - p - f.reach) / f.period) * f.period;
        }
        return p;
    }

    float clampedAcross(float x) const {
        return std::max(originX(), std::min(x, signal_.width - 1.0f));
    }

    void drawSteep(float p) {
        const float dxdy = 1.0f / family_.slope;
        const float xa = clampedAcross(static_cast<float>(rows_.first) * dxdy + p);
        const float xb = clampedAcross(static_cast<float>(rows_.end) * dxdy + p);
        const float yb = (xb - p) / dxdy;
        std::int32_t row = truncateToInt((xa - p) / dxdy);
        // The row is out of the range of integers: the line has no dots in the picture.
        if (row == std::numeric_limits<std::int32_t>::min()) return;
        for (float column = xa; yb > static_cast<float>(row);
             row += kDotStep, column += dxdy * kDotStep) {
            paint(truncateToInt(column), row);
        }
    }

    void drawShallow(float p) {
        const float slope = family_.slope;
        const float c = slope * p;
        const auto crossing = [&](std::int32_t y) {
            return truncateToInt((static_cast<float>(y) + c) / slope);
        };
        const std::int32_t xa = crossing(rows_.first);
        const std::int32_t xb = crossing(rows_.end);
        const auto clampedColumn = [&](std::int32_t x) {
            return truncateToInt(clampedAcross(static_cast<float>(x)));
        };
        const std::int32_t end = clampedColumn(std::max(xa, xb));
        std::int32_t column = clampedColumn(std::min(xa, xb));
        float row = static_cast<float>(column) * slope - c;
        for (; column < end; column += kDotStep, row += slope * kDotStep) {
            paint(column, truncateToInt(row));
        }
    }

    // Outside the picture nothing is painted and no random number is drawn.
    void paint(std::int32_t x, std::int32_t y) {
        const auto inside = [](const TexAxis& axis, std::int32_t at) {
            const std::int64_t index = std::int64_t{at} - axis.offset;
            return index >= 0 && index < axis.size;
        };
        if (!inside(picture_.x, x) || !inside(picture_.y, y)) return;
        P& pixel = *picture_.writeAt(x, y);
        if (signal_.tvType == TvType::Colour) {
            sparkle(pixel);
        } else {
            whiten(pixel);
        }
    }

    // Colour television: blends each component with a random value. The weight of that is a random
    // number from half to all of the strength.
    void sparkle(P& pixel) {
        for (int k = 0; k < 3; ++k) {
            const float g = (uniform(seed_) * 0.5f + 0.5f) * family_.strength;
            const std::int32_t target = truncateToInt(uniform(seed_) * StagePixel<P>::kWhite);
            const std::int32_t c = pixel.c[k];
            pixel.c[k] = static_cast<typename P::Component>(StagePixel<P>::clamp(
                truncateToInt(static_cast<float>(target - c) * g + static_cast<float>(c))));
        }
    }

    // Black-and-white television: blends all components, alpha too, with white, with such a weight.
    // The result wraps in 8 bits; in S2.14 it is clamped to 0 and above.
    void whiten(P& pixel) {
        const float g = (uniform(seed_) * 0.5f + 0.5f) * family_.strength;
        for (int k = 0; k < 4; ++k) {
            const auto c = static_cast<float>(pixel.c[k]);
            const std::int32_t v = truncateToInt((StagePixel<P>::kWhite - c) * g + c);
            const bool mayDip = sizeof(P) != sizeof(Rgba8);
            pixel.c[k] = static_cast<typename P::Component>(mayDip ? std::max(v, 0) : v);
        }
    }

    const SignalParameters& signal_;
    const LineFamily& family_;
    VxTexture<P>& picture_;
    Span rows_;
    std::uint32_t seed_;
};

}  // namespace

template <class P>
void drawCreepingLines(const SignalParameters& signal, VxTexture<P>& picture, Span rows,
                       InterruptionRecord* interrupt) {
    if (!actsAt(signal.breakup, signal.lineThreshold) || rows.first >= rows.end) return;
    const float width = signal.width - static_cast<float>(signal.originX);
    const float height = signal.height - static_cast<float>(signal.originY);
    const LineFamily family = lineFamily(signal, width, height);
    auto seed = static_cast<std::uint32_t>(signal.seed);
    const float start = uniform(seed) * width + creepOf(signal.lineAngle, signal.lineOffset);
    LineDrawer<P> drawer(signal, family, picture, rows, seed);
    for (std::int32_t i = 0; i < family.lines; ++i) {
        if (interruptCheck(interrupt)) return;
        drawer.drawLine(static_cast<float>(i) * family.step + start);
    }
}

template void drawCreepingLines(const SignalParameters&, VxTexture<Rgba8>&, Span,
                                InterruptionRecord*);
template void drawCreepingLines(const SignalParameters&, VxTexture<RgbaS214>&, Span,
                                InterruptionRecord*);

}  // namespace ruvex
