// Creeping lines, dot by dot, one worker after the other.

#pragma once

#include <cmath>

#include "imaging/maths/maths.h"
#include "imaging/maths/random.h"
#include "stages/signal_parameters.h"
#include "tests/stages/twins/twin_picture.h"

namespace ruvex::test {

template <class P>
class LinesTwin {
public:
    LinesTwin(TwinPicture<P>& picture, const SignalParameters& signal)
        : picture_(picture), s_(signal) {}

    void draw(const TwinArea& area, int workers) {
        if (!(s_.breakup > s_.lineThreshold) || s_.lineThreshold >= 1.0f) return;
        for (const TwinShare& share : twinShares(area.top, area.height(), workers)) {
            drawShare(share);
        }
    }

private:
    static float sine(float a) { return static_cast<float>(maths::sin(a)); }

    float creep() const {
        const float a = s_.lineAngle;
        if (a < 1.5707964f) return -(s_.lineOffset / sine(a));
        if (a < 3.1415927f) return -(s_.lineOffset / sine(3.1415927f - a));
        if (a < 4.712389f) return s_.lineOffset / sine(a - 3.1415927f);
        return s_.lineOffset / sine(6.2831855f - a);
    }

    static float periods(float v) {
        const int whole = truncateToInt(v);
        return static_cast<float>(v > 0.0f && static_cast<float>(whole) != v ? whole + 1 : whole);
    }

    void drawShare(const TwinShare& share) {
        const float a = s_.lineAngle > 3.1415927f ? s_.lineAngle - 3.1415927f : s_.lineAngle;
        const bool beyond = a > 1.5707964f;
        const float step = s_.lineSpacing / sine(beyond ? 3.1415927f - a : a);
        const auto slope = static_cast<float>(maths::tan(a));
        const float run = s_.height / slope;
        const int lines = truncateToInt((std::fabs(run) + s_.width) / step + 1.0f);
        if (lines < 1) return;
        const float period = static_cast<float>(lines - 1) * step + step;
        seed_ = static_cast<std::uint32_t>(s_.seed);
        const float start = uniform(seed_) * s_.width + creep();
        for (int i = 0; i < lines; ++i) {
            float p = static_cast<float>(i) * step + start;
            if (beyond) {
                if (p < 0.0f) {
                    p += periods((0.0f - p) / period) * period;
                } else if (p > std::fabs(run) + s_.width) {
                    p -= periods((p - s_.width + run) / period) * period;
                }
            } else if (p > s_.width) {
                p -= periods((p - s_.width) / period) * period;
            } else if (p < 0.0f - std::fabs(run)) {
                p += periods((0.0f - p - run) / period) * period;
            }
            if (a > 0.7853982f && a < 2.3561945f) {
                steep(share, slope, p);
            } else {
                shallow(share, slope, p);
            }
        }
    }

    float inside(float x) const {
        if (x > s_.width - 1.0f) x = s_.width - 1.0f;
        return x < 0.0f ? 0.0f : x;
    }

    void steep(const TwinShare& share, float slope, float p) {
        const float across = 1.0f / slope;
        const float xa = inside(static_cast<float>(share.first) * across + p);
        const float xb = inside(static_cast<float>(share.end) * across + p);
        const float yb = (xb - p) / across;
        int row = truncateToInt((xa - p) / across);
        float column = xa;
        while (yb > static_cast<float>(row)) {
            dot(truncateToInt(column), row);
            row += 3;
            column += across * 3.0f;
        }
    }

    void shallow(const TwinShare& share, float slope, float p) {
        const float c = slope * p;
        const int xa = truncateToInt((static_cast<float>(share.first) + c) / slope);
        const int xb = truncateToInt((static_cast<float>(share.end) + c) / slope);
        int xs = truncateToInt(inside(static_cast<float>(xa < xb ? xa : xb)));
        const int xe = truncateToInt(inside(static_cast<float>(xa < xb ? xb : xa)));
        float row = static_cast<float>(xs) * slope - c;
        while (xs < xe) {
            dot(xs, truncateToInt(row));
            xs += 3;
            row += slope * 3.0f;
        }
    }

    void dot(int x, int y) {
        const TwinArea area = picture_.area();
        if (x < area.left || x >= area.right || y < area.top || y >= area.bottom) return;
        const float strength = (s_.breakup - s_.lineThreshold) / (1.0f - s_.lineThreshold);
        P& pixel = picture_.at(x, y);
        using Component = typename P::Component;
        if (s_.tvType != TvType::Colour) {
            const float g = (uniform(seed_) * 0.5f + 0.5f) * strength;
            for (int k = 0; k < 4; ++k) {
                const auto c = static_cast<float>(pixel.c[k]);
                int v = truncateToInt((kTwinWhite<P> - c) * g + c);
                if (!kEightBits<P> && v < 0) v = 0;
                pixel.c[k] = static_cast<Component>(v);
            }
            return;
        }
        for (int k = 0; k < 3; ++k) {
            const float g = (uniform(seed_) * 0.5f + 0.5f) * strength;
            const int target = truncateToInt(uniform(seed_) * kTwinWhite<P>);
            const int c = pixel.c[k];
            pixel.c[k] = static_cast<Component>(heldTwin<P>(
                truncateToInt(static_cast<float>(target - c) * g + static_cast<float>(c))));
        }
    }

    TwinPicture<P>& picture_;
    const SignalParameters& s_;
    std::uint32_t seed_ = 0;
};

}  // namespace ruvex::test
