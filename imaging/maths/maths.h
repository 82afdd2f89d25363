// Elementary functions of our own, for every value that a picture depends on.
//
// C libraries differ in the last bits of these functions, and one library differs between
// processors; a picture must not. These are double-precision polynomials of plain additions,
// multiplications and divisions, so that every machine gives the same bits. They lie within 1 ulp
// of the true value in the ranges that are named. A result that is kept in single precision is
// narrowed by the caller.

#pragma once

#include <cstdint>

namespace ruvex::maths {

/// Sine, cosine and tangent of an angle in radians. Accurate up to a magnitude of a million; beyond
/// that still defined and periodic, but ever less accurate. NaN for infinities and NaN.
double sin(double x);
double cos(double x);
double tan(double x);

/// The sines of a row of angles, as sin gives them, narrowed. The two must not meet.
void sines(const float* angles, std::int32_t count, float* to);

/// e to the x: 0 below about -745, infinity above about 709.8.
double exp(double x);

/// The natural logarithm of x above 0; -infinity for 0, NaN below.
double log(double x);

/// x to the y for x of at least 0, with 0 to the 0 and 1 to anything being 1; NaN for x below 0.
double pow(double x, double y);

/// Square root, correctly rounded.
double sqrt(double x);

}  // namespace ruvex::maths
