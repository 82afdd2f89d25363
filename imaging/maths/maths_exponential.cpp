// The polynomials are those of Sun's fdlibm 5.3 (e_exp.c, e_log.c). pow is exp(y * log(x)), with
// the logarithm in twice the precision of a double.

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

#include "imaging/maths/maths.h"

namespace ruvex::maths {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

// ln 2 as a sum of three. The first has 32 bits: its product with any exponent is exact.
constexpr double kLn2High = 6.93147180369123816490e-01;
constexpr double kLn2Low = 1.90821492927058770002e-10;
constexpr double kLn2LowTail = 1.1612227229362532e-26;
constexpr double kInvLn2 = 1.44269504088896338700e+00;
constexpr double kSqrtHalf = 0.70710678118654752440;

constexpr double kExpOverflow = 709.782712893383973096;
constexpr double kExpUnderflow = -745.13321910194110842;

// A number of twice a double's precision, as the unevaluated sum of two doubles.
struct Double2 {
    double high;
    double low;
};

// a + b, exact.
Double2 sum(double a, double b) {
    const double high = a + b;
    const double part = high - a;
    return {high, (a - (high - part)) + (b - part)};
}

// a * b, exact unless a step overflows or underflows (Dekker 1971).
Double2 product(double a, double b) {
    constexpr double kSplitter = 134217729.0;  // 2^27 + 1
    const auto split = [](double v) {
        const double scaled = kSplitter * v;
        const double high = scaled - (scaled - v);
        return Double2{high, v - high};
    };
    const double high = a * b;
    const Double2 x = split(a);
    const Double2 y = split(b);
    return {high, ((x.high * y.high - high) + x.high * y.low + x.low * y.high) + x.low * y.low};
}

Double2 product(const Double2& a, const Double2& b) {
    const Double2 p = product(a.high, b.high);
    return sum(p.high, p.low + (a.high * b.low + a.low * b.high));
}

Double2 add(const Double2& a, const Double2& b) {
    const Double2 s = sum(a.high, b.high);
    return sum(s.high, s.low + (a.low + b.low));
}

Double2 quotient(double a, const Double2& b) {
    const double first = a / b.high;
    const Double2 back = product(first, b.high);
    const double rest = ((a - back.high) - back.low) - first * b.low;
    return sum(first, rest / b.high);
}

// 2^n, for n from -1022 to 1023: the exponent bits of a double.
double powerOfTwo(std::int64_t n) {
    return std::bit_cast<double>(static_cast<std::uint64_t>(n + 1023) << 52);
}

double scaleByPowerOfTwo(double value, std::int64_t n) {
    // Where 2^n is no normal number, in two factors. The first product is exact.
    if (n > 1023) return value * powerOfTwo(1023) * powerOfTwo(n - 1023);
    if (n < -1021) return value * powerOfTwo(n + 100) * powerOfTwo(-100);
    return value * powerOfTwo(n);
}

// e^(x + tail), for |tail| much smaller than |x|: e^x = 2^k * e^r with r = x - k ln 2.
double expWithTail(double x, double tail) {
    constexpr double kP1 = 1.66666666666666019037e-01;
    constexpr double kP2 = -2.77777777770155933842e-03;
    constexpr double kP3 = 6.61375632143793436117e-05;
    constexpr double kP4 = -1.65339022054652515390e-06;
    constexpr double kP5 = 4.13813679705723846039e-08;
    const double k = std::floor(x * kInvLn2 + 0.5);
    const double high = x - k * kLn2High;
    const double low = k * kLn2Low - tail;
    const double r = high - low;
    const double t = r * r;
    const double c = r - t * (kP1 + t * (kP2 + t * (kP3 + t * (kP4 + t * kP5))));
    const double value = 1.0 - ((low - (r * c) / (2.0 - c)) - high);
    return scaleByPowerOfTwo(value, static_cast<std::int64_t>(k));
}

// x = mantissa * 2^exponent with sqrt(1/2) <= mantissa < sqrt(2), for finite x > 0.
struct Split {
    double mantissa;
    std::int64_t exponent;
};

Split split(double x) {
    std::int64_t exponent = 0;
    if (x < std::numeric_limits<double>::min()) {
        x *= 18014398509481984.0;  // 2^54
        exponent = -54;
    }
    const auto bits = std::bit_cast<std::uint64_t>(x);
    exponent += static_cast<std::int64_t>(bits >> 52) - 1022;
    auto mantissa = std::bit_cast<double>((bits & 0x000FFFFFFFFFFFFFu) | 0x3FE0000000000000u);
    if (mantissa < kSqrtHalf) {
        mantissa *= 2.0;
        --exponent;
    }
    return {mantissa, exponent};
}

// log(x) to about 100 bits. With x = m * 2^e it is e ln 2 + 2 atanh(s), s = (m - 1) / (m + 1), and
// atanh(s) = s + s^3 (1/3 + z/5 + z^2/7 + ...), z = s^2. The first terms have twice a double's
// precision.
Double2 logTwice(double x) {
    const auto [m, exponent] = split(x);
    const auto e = static_cast<double>(exponent);
    const Double2 s = quotient(m - 1.0, sum(m, 1.0));
    const Double2 z = product(s, s);
    // The terms from 1/9 to z^8 / 25. z is below 0.03, so that later terms are below the precision.
    double tail = 0.0;
    for (int n = 25; n >= 9; n -= 2) tail = 1.0 / n + z.high * tail;
    // 1/7, 1/5 and 1/3 with the error of the double in the second number.
    const Double2 seventh{1.0 / 7.0, 7.93016446160826e-18};
    const Double2 fifth{0.2, -1.1102230246251566e-17};
    const Double2 third{1.0 / 3.0, 1.850371707708594e-17};
    Double2 series = add(seventh, product(z, {tail, 0.0}));
    series = add(fifth, product(z, series));
    series = add(third, product(z, series));
    const Double2 cubic = product(product(s, z), series);
    const Double2 half = add(s, cubic);
    const Double2 ofMantissa{2.0 * half.high, 2.0 * half.low};
    const Double2 ofExponent = sum(e * kLn2High, e * kLn2Low);
    return add({ofExponent.high, ofExponent.low + e * kLn2LowTail}, ofMantissa);
}

}  // namespace

double exp(double x) {
    if (x != x) return x;
    if (x > kExpOverflow) return kInfinity;
    if (x < kExpUnderflow) return 0.0;
    return expWithTail(x, 0.0);
}

double log(double x) {
    if (x != x || x == kInfinity) return x;
    if (x < 0.0) return kNotANumber;
    if (x == 0.0) return -kInfinity;
    const Double2 result = logTwice(x);
    return result.high + result.low;
}

double pow(double x, double y) {
    if (y == 0.0 || x == 1.0) return 1.0;
    if (x != x || y != y) return kNotANumber;
    if (x < 0.0) return kNotANumber;
    if (x == 0.0 || x == kInfinity) return (x == 0.0) == (y > 0.0) ? 0.0 : kInfinity;
    // |log(x)| is at least 1e-16 for x other than 1: for |y| above this the result is 0 or infinity
    // anyway, while the exact product would overflow.
    constexpr double kDecided = 1e25;
    if (std::fabs(y) > kDecided) y = y > 0.0 ? kDecided : -kDecided;
    const Double2 exponent = product(logTwice(x), {y, 0.0});
    if (exponent.high > kExpOverflow) return kInfinity;
    if (exponent.high < kExpUnderflow) return 0.0;
    return expWithTail(exponent.high, exponent.low);
}

}  // namespace ruvex::maths
