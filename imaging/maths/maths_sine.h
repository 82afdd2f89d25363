// The polynomials and the argument reduction of sine and cosine, for single values and for rows.
//
// They are those of Sun's fdlibm 5.3 (k_sin.c, k_cos.c, e_rem_pio2.c); the polynomials are for
// angles in -pi/4..pi/4. Without branches, so that loops over rows are vectorised. Always inline,
// because sources compiled for one instruction set use them: the linker must not take their copy
// for all.

#pragma once

#include <cmath>

namespace ruvex::maths::detail {

inline constexpr double kPiOver4 = 7.85398163397448278999e-01;
/// The largest angle in radians for which the number of quarter turns times a 33-bit piece of pi/2
/// is exact.
inline constexpr double kExactReduction = 1.6e6;

/// An angle in -pi/4..pi/4, as the sum high + low, and the number of quarter turns subtracted.
struct Reduced {
    double high;
    double low;
    double quarters;  ///< a whole number
};

/// Subtracts quarter turns from an angle of at most kExactReduction. pi/2 is the sum of three
/// 33-bit pieces and a tail.
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
    // The rounding errors of the subtractions are added to the result.
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

/// sin(angle + quarters * pi/2) for a reduced angle.
[[gnu::always_inline]] inline double sine(const Reduced& angle, double quarters) {
    const double sin = sinKernel(angle.high, angle.low);
    const double cos = cosKernel(angle.high, angle.low);
    const double value = isOdd(quarters) ? cos : sin;
    return isOdd(std::floor(quarters * 0.5)) ? -value : value;
}

}  // namespace ruvex::maths::detail
