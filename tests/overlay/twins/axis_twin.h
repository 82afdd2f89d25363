// The numbers of an axis of handles, step by step.

#pragma once

#include <cfloat>
#include <cmath>
#include <cstdint>

namespace ruvex::test {

/// What a pen can hit: each handle by itself, whether or not it exists.
struct AxisRegions {
    bool aspect, centre, rotate, corner, edgeX, edgeY, translateY, translateX;
    bool flippedX, flippedY;

    /// The first of the handles that exist; sets which sides are flipped if it is one of a scale.
    std::uint32_t first(std::uint32_t handles, std::uint32_t& flipped) const {
        const std::uint32_t x = flippedX ? 8 : 0, y = flippedY ? 16 : 0;
        if ((handles & 64) && aspect) return 64;
        if ((handles & 1) && (handles & 2) && centre) return 3;
        if ((handles & 32) && rotate) return 32;
        if ((handles & 4) && corner) {
            flipped = x + y;
            return 4;
        }
        if ((handles & 8) && edgeX) {
            flipped = x;
            return 8;
        }
        if ((handles & 16) && edgeY) {
            flipped = y;
            return 16;
        }
        if ((handles & 2) && translateY) return 2;
        if ((handles & 1) && translateX) return 1;
        return 0;
    }
};

struct AxisTwin {
    static constexpr float pi = 3.14159265f;

    float centreX = 0, centreY = 0;
    float scaleX = 1, scaleY = 1, scaleUniform = 1;
    float rotation = 0, aspect = 0, uiScale = 1;
    std::uint32_t handles = 0, active = 0, flipped = 0;
    float lastX = 0, lastY = 0, lastAngle = 0, dragSin = 0, dragCos = 0;

    float factorX() const {
        if (!(aspect < 0)) return 1;
        return -aspect > 1 ? 0 : 1 - -aspect;
    }
    float factorY() const {
        if (!(aspect > 0)) return 1;
        return aspect < 1 ? 1 - aspect : 0;
    }
    float wholeX() const { return scaleUniform * scaleX * factorX(); }
    float wholeY() const { return scaleUniform * scaleY * factorY(); }

    void aspectHandle(float& x, float& y) const {
        const float L = uiScale * 37;
        if (!(handles & (4 + 8 + 16))) {
            x = factorX() * L;
            y = factorY() * L;
            return;
        }
        x = wholeX() * L;
        y = wholeY() * L;
        const float distance = hypotf(x, y);
        const float unitX = distance == 0 ? x : x / distance;
        const float unitY = distance == 0 ? y : y / distance;
        x = x + 10 * uiScale * unitX;
        y = y + 10 * uiScale * unitY;
    }

    AxisRegions regionsAt(float x, float y, float radiusX, float radiusY) const {
        AxisRegions at{};
        const float L = uiScale * 37;
        const float px = x - centreX, py = y - centreY;
        const float radians = -rotation * pi / 180;
        const float c = cosf(radians), s = sinf(radians);
        const float qx = px * c - py * s, qy = py * c + px * s;

        float hx, hy;
        aspectHandle(hx, hy);
        at.aspect = fabsf(hx - qx) < radiusX + 3 && fabsf(hy - qy) < radiusY + 3;
        at.centre = fabsf(px) < radiusX + 3 && fabsf(py) < radiusY + 3;
        const float angle = atan2f(qy, qx);
        at.rotate = fabsf(hypotf(qx, qy) - uiScale * 32) < radiusX && angle >= -0.7853982f &&
                    angle <= 0.7853982f;
        const float sx = wholeX(), sy = wholeY();
        const float u = qx / sx, v = qy / sy;
        const bool nearX = fabsf(fabsf(u) - L) < radiusX / fabsf(sx);
        const bool nearY = fabsf(fabsf(v) - L) < radiusY / fabsf(sy);
        at.corner = nearX && nearY;
        at.edgeX = nearX && -L < v && v < L;
        at.edgeY = nearY && -L < u && u < L;
        at.flippedX = sx * qx < 0;
        at.flippedY = sy * qy < 0;
        at.translateY = fabsf(px) < radiusX && fabsf(py) < L + radiusY;
        at.translateX = fabsf(py) < radiusY && fabsf(px) < L + radiusX;
        return at;
    }

    void press(float x, float y) {
        lastX = x;
        lastY = y;
        if (active & 32) lastAngle = atan2f(y - centreY, x - centreX);
        if (active & (4 + 8 + 16 + 64)) {
            dragSin = sinf(rotation * -pi / 180);
            dragCos = cosf(rotation * -pi / 180);
        }
    }

    void drag(float x, float y) {
        const float L = uiScale * 37;
        const float ex = x - centreX, ey = y - centreY;
        const float px = dragCos * ex - dragSin * ey, py = dragCos * ey + dragSin * ex;
        switch (active) {
            case 1:
            case 2:
            case 3:
                if (active & 1) centreX += x - lastX;
                if (active & 2) centreY += y - lastY;
                lastX = x;
                lastY = y;
                break;
            case 32:
                rotate(atan2f(ey, ex));
                break;
            case 4:
                scaleBoth(px / scaleX, py / scaleY, L);
                break;
            case 8:
                scaleX = px / scaleUniform / L;
                if (flipped & 8) scaleX = -scaleX;
                break;
            case 16:
                scaleY = py / scaleUniform / L;
                if (flipped & 16) scaleY = -scaleY;
                break;
            case 64:
                squeeze(px / scaleX, py / scaleY);
                break;
            default:
                break;
        }
    }

    /// Lowest x, highest x, lowest y, highest y.
    void extent(bool showsAll, float (&out)[4]) const {
        const std::uint32_t mask = showsAll ? 63 : handles;
        if (mask == 0) {
            out[0] = out[1] = uiScale * centreX;
            out[2] = out[3] = uiScale * centreY;
            return;
        }
        out[0] = out[2] = FLT_MAX;
        out[1] = out[3] = -FLT_MAX;
        const float L = uiScale * 37, arc = uiScale * 32;
        const float signs[4][2] = {{1, 1}, {1, -1}, {-1, 1}, {-1, -1}};
        for (const auto& sign : signs) {
            if (mask & 1) include(out, sign[0] * L, sign[1] * 3);
            if (mask & 2) include(out, sign[0] * 3, sign[1] * L);
            if (mask & 32) include(out, sign[0] * arc, sign[1] * arc);
            if (mask & (4 + 8 + 16)) {
                const float x = sign[0] * (scaleUniform * 37 * uiScale * scaleX);
                const float y = sign[1] * (scaleUniform * 37 * uiScale * scaleY);
                includeTurned(out, x, y, 0);
            }
        }
        if (mask & 64) {
            float x, y;
            aspectHandle(x, y);
            includeTurned(out, x, y, 3);
        }
        out[0] += centreX;
        out[1] += centreX;
        out[2] += centreY;
        out[3] += centreY;
    }

private:
    void rotate(float angle) {
        float degrees = (angle - lastAngle) * 180 / pi;
        lastAngle = angle;
        if (degrees > 180) {
            degrees -= 360;
        } else if (degrees < -180) {
            degrees += 360;
        }
        rotation += degrees;
    }

    void scaleBoth(float x, float y, float L) {
        if (fabsf(x) > fabsf(y)) {
            scaleUniform = x / L;
            if (flipped & 8) scaleUniform = -scaleUniform;
        } else {
            scaleUniform = y / L;
            if (flipped & 16) scaleUniform = -scaleUniform;
        }
    }

    void squeeze(float x, float y) {
        if (x < 0 || y < 0) {
            if (aspect < 0) {
                aspect = -1;
            } else if (aspect > 0) {
                aspect = 1;
            }
        } else if (y > x) {
            aspect = x / y - 1;
        } else {
            aspect = 1 - y / x;
        }
    }

    static void include(float (&out)[4], float x, float y) {
        out[0] = fminf(out[0], x);
        out[1] = fmaxf(out[1], x);
        out[2] = fminf(out[2], y);
        out[3] = fmaxf(out[3], y);
    }

    void includeTurned(float (&out)[4], float x, float y, float more) const {
        const float radians = rotation * pi / 180;
        const float c = cosf(radians), s = sinf(radians);
        include(out, x * c - y * s + more, x * s + y * c + more);
    }
};

}  // namespace ruvex::test
