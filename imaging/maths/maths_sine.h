// The polynomials and the reduction of sine and cosine, shared by the single value and the row.
//
// They are those of Sun's fdlibm 5.3 (k_sin.c, k_cos.c, e_rem_pio2.c), for angles in -pi/4..pi/4.
// Always inline, like all that sources for one processor alone use, and without branches, so that
// rows are widened.

#pragma once

#include <cmath>

namespace ruvex::maths::detail {

inline constexpr double kPiOver4 = 7.85398163397448278999e-01;
/// Beyond this the product of the quarter turns and the 33-bit pieces of pi/2 is no longer exact.
inline constexpr double kExactReduction = 1.6e6;

/// An angle in -pi/4..pi/4 as a sum of two doubles, and how many quarter turns were taken off.
struct Reduced {
    double high;
    double low;
    double quarters;  ///< whole
};

/// Takes whole quarter turns off an angle of up to kExactReduction by pi/2 in three pieces, each
/// subtraction but the last exact.
[[gnu::always_inline]] inline Reduced reduce(double x) {
    constexpr double kInvPiOver2 = 6.36619772367581382433e-01;
    constexpr double kPiece1 = 1.57079632673412561417e+00;
    constexpr double kPiece2 = 6.07710050630396597660e-11;
    constexpr double kPiece3 = 2.02226624871116645580e-21;
    constexpr double kPiece3Tail = 8.47842766036889956997e-32;

    const bool small = std::fabs(x) <= kPiOver4;
    const double turns = std::floor(x * kInvPiOver2 + 0.5);
    const double first = x - turns * kPiece1;
    const double second = turns * kPiece2;
    const double afterSecond = first - second;
    const double third = turns * kPiece3;
    // What each subtraction has rounded away is carried along.
    const double lostBySecond = (first - afterSecond) - second;
    const double afterThird = afterSecond - third;
    const double lostByThird = (afterSecond - afterThird) - third;
    const double rest = lostBySecond + (lostByThird - turns * kPiece3Tail);
    const double high = afterThird + rest;
    const double low = (afterThird - high) + rest;
    return {small ? x : high, small ? 0.0 : low, small ? 0.0 : turns};
}

[[gnu::always_inline]] inline double sinKernel(double x, double y) {
    constexpr double kS1 = -1.66666666666666324348e-01;
    constexpr double kS2 = 8.33333333332248946124e-03;
    constexpr double kS3 = -1.98412698298579493134e-04;
    constexpr double kS4 = 2.75573137070700676789e-06;
    constexpr double kS5 = -2.50507602534068634195e-08;
    constexpr double kS6 = 1.58969099521155010221e-10;
    const double z = x * x;
    const double v = z * x;
    const double r = kS2 + z * (kS3 + z * (kS4 + z * (kS5 + z * kS6)));
    return x - ((z * (0.5 * y - v * r) - y) - v * kS1);
}

[[gnu::always_inline]] inline double cosKernel(double x, double y) {
    constexpr double kC1 = 4.16666666666666019037e-02;
    constexpr double kC2 = -1.38888888888741095749e-03;
    constexpr double kC3 = 2.48015872894767294178e-05;
    constexpr double kC4 = -2.75573143513906633035e-07;
    constexpr double kC5 = 2.08757232129817482790e-09;
    constexpr double kC6 = -1.13596475577881948265e-11;
    const double z = x * x;
    const double r = z * (kC1 + z * (kC2 + z * (kC3 + z * (kC4 + z * (kC5 + z * kC6)))));
    const double half = 0.5 * z;
    const double w = 1.0 - half;
    return w + (((1.0 - w) - half) + (z * r - x * y));
}

/// Whether a whole number is odd.
[[gnu::always_inline]] inline bool isOdd(double whole) {
    return whole - 2.0 * std::floor(whole * 0.5) != 0.0;
}

/// The sine of a reduced angle with some more quarter turns.
[[gnu::always_inline]] inline double sine(const Reduced& angle, double quarters) {
    const double sin = sinKernel(angle.high, angle.low);
    const double cos = cosKernel(angle.high, angle.low);
    const double value = isOdd(quarters) ? cos : sin;
    return isOdd(std::floor(quarters * 0.5)) ? -value : value;
}

}  // namespace ruvex::maths::detail
