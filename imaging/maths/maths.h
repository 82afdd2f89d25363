// Elementary functions with the same result on every machine, for all values that pictures use.
//
// The last bits of these functions differ between C libraries, and in one library between
// processors. The functions here are double-precision polynomials made of additions,
// multiplications and divisions, which give the same bits everywhere. Their error is below 1 ulp in
// the ranges that the comments name. A caller that stores a float converts the result itself.

#pragma once

#include <cstdint>

namespace ruvex::maths {

/// Sine, cosine and tangent of an angle in radians. Accurate for |x| up to 1e6; the error grows
/// for larger angles. NaN for infinities and NaN.
double sin(double x);
double cos(double x);
double tan(double x);

/// to[i] = sin(angles[i]), converted to float. The arrays must not overlap.
void sines(const float* angles, std::int32_t count, float* to);

/// e to the x: 0 below about -745, infinity above about 709.8.
double exp(double x);

/// The natural logarithm of x above 0; -infinity for 0, NaN below.
double log(double x);

/// x to the power y for x >= 0. pow(0, 0) and pow(1, y) are 1; NaN for x < 0.
double pow(double x, double y);

/// Square root, correctly rounded.
double sqrt(double x);

}  // namespace ruvex::maths
