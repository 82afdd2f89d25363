// One position through a lens, and one pixel of a picture rendered through it.

#pragma once

#include <algorithm>
#include <cmath>

#include "imaging/maths/maths.h"
#include "imaging/warp/warp_render.h"
#include "tests/imaging/twins/sample_twin.h"

namespace ruvex::twin {

struct LensTwin {
    float radiusX, radiusY, centreX, centreY, rotation, aspect, exponent;

    float inverse(float radius) const {
        return std::fabs(radius) < 2.3509887e-38f ? 0.0f : 1.0f / radius;
    }
    bool flat() const { return inverse(radiusX) == 0.0f || inverse(radiusY) == 0.0f; }

    /// The affine part of the way to the unit circle: u = x a + y c + e, v = x b + y d + f.
    struct Affine {
        float a, b, c, d, e, f;
    };
    Affine toUnit() const {
        Affine m{1, 0, 0, 1, -centreX, -centreY};
        m.a *= aspect, m.c *= aspect, m.e *= aspect;
        const auto cosine = static_cast<float>(maths::cos(-rotation));
        const auto sine = static_cast<float>(maths::sin(-rotation));
        const auto turn = [&](float& first, float& second) {
            const float before = first;
            first = cosine * before - sine * second;
            second = cosine * second + sine * before;
        };
        turn(m.a, m.b), turn(m.c, m.d), turn(m.e, m.f);
        m.a *= inverse(radiusX), m.c *= inverse(radiusX), m.e *= inverse(radiusX);
        m.b *= inverse(radiusY), m.d *= inverse(radiusY), m.f *= inverse(radiusY);
        return m;
    }

    struct Moved {
        float x, y, amount;
    };
    Moved warp(float x, float y) const {
        if (flat()) return {x, y, 0.0f};
        const Affine m = toUnit();
        const float u = x * m.a + y * m.c + m.e;
        const float v = x * m.b + y * m.d + m.f;
        const float q = u * u + v * v;
        if (q >= 1.0f) return {x, y, 1.0f};
        if (std::fabs(q) < 1.1754944e-38f) return {x, y, 0.0f};
        const float s = q * exponent / (1.0f - q);
        const float t = s / ((s + 1.0f) * q);
        return {centreX + (x - centreX) * t, centreY + (y - centreY) * t, t * q};
    }

    struct Ends {
        float first, last;
    };
    Ends rowSpan(int y) const {
        if (flat()) return {0.0f, 0.0f};
        const Affine m = toUnit();
        const float yc = static_cast<float>(y) + 0.5f;
        const auto u = [&](float x) { return double{x * m.a + yc * m.c + m.e}; };
        const auto v = [&](float x) { return double{x * m.b + yc * m.d + m.f}; };
        const double dx = u(100) - u(0), dy = v(100) - v(0);
        const double a = dx * dx + dy * dy;
        const double b = 2.0 * (u(0) * dx + v(0) * dy);
        const double c = u(0) * u(0) + v(0) * v(0) - 1.0;
        const double inside = b * b - 4.0 * a * c;
        if (!(inside >= 0.0) || a == 0.0) return {0.0f, 0.0f};
        // The first column of the inverse, in single precision.
        const double determinant = double{m.a} * m.d - double{m.b} * m.c;
        const auto back0 = static_cast<float>(m.d / determinant);
        const auto back3 = static_cast<float>(-m.c / determinant);
        const auto back6 =
            static_cast<float>((double{m.c} * m.f - double{m.d} * m.e) / determinant);
        const auto back = [&](double t) {
            return static_cast<float>((u(0) + t * dx) * back0 + (v(0) + t * dy) * back3 + back6);
        };
        const float one = back((-b - std::sqrt(inside)) / (2.0 * a));
        const float other = back((-b + std::sqrt(inside)) / (2.0 * a));
        return {std::min(one, other), std::max(one, other)};
    }

    /// Whether pixel (x, y) is resampled and not copied.
    bool moves(int x, int y) const {
        const float r = std::max(radiusX, radiusY);
        const auto row = static_cast<float>(y);
        if (row < centreY - r || row > centreY + r) return false;
        const Ends ends = rowSpan(y);
        const auto column = static_cast<float>(x);
        return column >= std::floor(ends.first) && column < std::ceil(ends.last);
    }
};

template <class P>
P storedTwin(const RgbaFloat& sample) {
    P result;
    for (int k = 0; k < 4; ++k) {
        result.c[k] = static_cast<typename P::Component>(toInt(sample.c[k]));
    }
    return result;
}

template <class P>
P warpedPixelTwin(const LensTwin& lens, WarpFilter filter, const VxTexture<P>& source, int x,
                  int y) {
    if (!lens.moves(x, y)) return wholePixelTwin(source, x, y);
    const auto px = static_cast<float>(x), py = static_cast<float>(y);
    if (filter == WarpFilter::Corners) {
        const auto low = lens.warp(px, py);
        const auto high = lens.warp(px + 1.0f, py + 1.0f);
        return storedTwin<P>(sampleTwin(source, static_cast<float>((double{low.x} + high.x) * 0.5),
                                        static_cast<float>((double{low.y} + high.y) * 0.5)));
    }
    const auto to = lens.warp(px + 0.5f, py + 0.5f);
    if (filter == WarpFilter::Bilinear) return storedTwin<P>(sampleTwin(source, to.x, to.y));
    return wholePixelTwin(source, floorInt(to.x), floorInt(to.y));
}

}  // namespace ruvex::twin
