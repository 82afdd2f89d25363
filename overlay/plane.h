// Points and matrices of the plane: turned, scaled, moved.

#pragma once

#include <cmath>

#include "overlay/matrix_stack.h"
#include "overlay/vx_message.h"

namespace ruvex {

inline constexpr float kPi = 3.14159265f;

inline float toRadians(float degrees) {
    return degrees * kPi / 180.0f;
}

inline float toDegrees(float radians) {
    return radians * 180.0f / kPi;
}

/// A rotation of points around (0, 0) by an angle in degrees, anticlockwise.
struct Turn {
    explicit Turn(float degrees)
        : sine(std::sin(toRadians(degrees))), cosine(std::cos(toRadians(degrees))) {}

    VxPosition operator()(VxPosition point) const {
        return {point.x * cosine - point.y * sine, point.x * sine + point.y * cosine};
    }

    float sine, cosine;
};

inline VxPosition operator-(VxPosition a, VxPosition b) {
    return {a.x - b.x, a.y - b.y};
}

/// The matrix that scales, then rotates, then moves by `shift`.
inline VxMatrix planeMatrix(VxPosition scale, float degrees, VxPosition shift) {
    const Turn turn(degrees);
    const VxMatrix scaling{{{scale.x, 0, 0}, {0, scale.y, 0}, {0, 0, 1}}};
    const VxMatrix turning{{{turn.cosine, turn.sine, 0}, {-turn.sine, turn.cosine, 0}, {0, 0, 1}}};
    const VxMatrix moving{{{1, 0, 0}, {0, 1, 0}, {shift.x, shift.y, 1}}};
    return scaling * turning * moving;
}

inline VxPosition transformed(VxPosition point, const VxMatrix& matrix) {
    const auto& m = matrix.m;
    return {point.x * m[0][0] + point.y * m[1][0] + m[2][0],
            point.x * m[0][1] + point.y * m[1][1] + m[2][1]};
}

}  // namespace ruvex
