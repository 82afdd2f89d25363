// The polynomials and the reduction are those of Sun's fdlibm 5.3 (k_sin.c, k_cos.c, k_tan.c,
// e_rem_pio2.c), for angles in -pi/4..pi/4.

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

#include "imaging/maths.h"

namespace ruvex::maths {
namespace {

// An angle in -pi/4..pi/4 as a sum of two doubles, and how many quarter turns were taken off.
struct Reduced {
    double high;
    double low;
    std::int64_t quarters;
};

constexpr double kPiOver4 = 7.85398163397448278999e-01;
constexpr double kPiOver4Low = 3.06161699786838301793e-17;
constexpr double kTwoPi = 6.283185307179586477;
// Beyond this the product of the quarter turns and the 33-bit pieces of pi/2 is no longer exact.
constexpr double kExactReduction = 1.6e6;

double withoutLowWord(double value) {
    return std::bit_cast<double>(std::bit_cast<std::uint64_t>(value) & 0xFFFFFFFF00000000u);
}

// Takes off whole quarter turns by pi/2 in three pieces, each subtraction but the last exact.
Reduced reduce(double x) {
    constexpr double kInvPiOver2 = 6.36619772367581382433e-01;
    constexpr double kPiece1 = 1.57079632673412561417e+00;
    constexpr double kPiece2 = 6.07710050630396597660e-11;
    constexpr double kPiece3 = 2.02226624871116645580e-21;
    constexpr double kPiece3Tail = 8.47842766036889956997e-32;

    if (std::fabs(x) <= kPiOver4) return {x, 0.0, 0};
    if (std::fabs(x) > kExactReduction) x = std::fmod(x, kTwoPi);
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
    return {high, (afterThird - high) + rest, static_cast<std::int64_t>(turns)};
}

double sinKernel(double x, double y) {
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

double cosKernel(double x, double y) {
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

// What tan(x + y) has beyond x, for |x| up to 0.6744.
double tanExcess(double x, double y) {
    constexpr double kT[] = {
        3.33333333333334091986e-01, 1.33333333333201242699e-01, 5.39682539762260521377e-02,
        2.18694882948595424599e-02, 8.86323982359930005737e-03, 3.59207910759131235356e-03,
        1.45620945432529025516e-03, 5.88041240820264096874e-04, 2.46463134818469906812e-04,
        7.81794442939557092300e-05, 7.14072491382608190305e-05, -1.85586374855275456654e-05,
        2.59073051863633712884e-05};
    const double z = x * x;
    const double w = z * z;
    const double odd = kT[1] + w * (kT[3] + w * (kT[5] + w * (kT[7] + w * (kT[9] + w * kT[11]))));
    const double even =
        z * (kT[2] + w * (kT[4] + w * (kT[6] + w * (kT[8] + w * (kT[10] + w * kT[12])))));
    const double s = z * x;
    return y + z * (s * (odd + even) + y) + kT[0] * s;
}

// tan, or -1 / tan for an odd number of quarter turns.
double tanKernel(double x, double y, bool inverted) {
    constexpr double kNearPiOver4 = 0.6744;
    const double sign = x < 0.0 ? -1.0 : 1.0;
    if (std::fabs(x) >= kNearPiOver4) {
        // tan(pi/4 - d) from tan d, where d is small.
        const double d = (kPiOver4 - sign * x) + (kPiOver4Low - sign * y);
        const double r = tanExcess(d, 0.0);
        const double w = d + r;
        const double v = inverted ? -1.0 : 1.0;
        return sign * (v - 2.0 * (d - (w * w / (w + v) - r)));
    }
    const double r = tanExcess(x, y);
    const double w = x + r;
    if (!inverted) return w;
    // -1 / (x + r) to full precision, by way of a first quotient of half the bits.
    const double z = withoutLowWord(w);
    const double v = r - (z - x);
    const double a = -1.0 / w;
    const double t = withoutLowWord(a);
    return t + a * ((1.0 + t * z) + t * v);
}

bool finite(double x) {
    return std::fabs(x) <= std::numeric_limits<double>::max();
}

double sinOfQuarters(const Reduced& angle, std::int64_t quarters) {
    const double value =
        (quarters & 1) != 0 ? cosKernel(angle.high, angle.low) : sinKernel(angle.high, angle.low);
    return (quarters & 2) != 0 ? -value : value;
}

constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

}  // namespace

double sin(double x) {
    if (!finite(x)) return kNotANumber;
    const Reduced angle = reduce(x);
    return sinOfQuarters(angle, angle.quarters);
}

double cos(double x) {
    if (!finite(x)) return kNotANumber;
    const Reduced angle = reduce(x);
    return sinOfQuarters(angle, angle.quarters + 1);
}

double tan(double x) {
    if (!finite(x)) return kNotANumber;
    const Reduced angle = reduce(x);
    return tanKernel(angle.high, angle.low, (angle.quarters & 1) != 0);
}

double sqrt(double x) {
    return std::sqrt(x);
}

}  // namespace ruvex::maths
