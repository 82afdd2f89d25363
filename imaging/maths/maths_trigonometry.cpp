// The polynomial of the tangent is that of Sun's fdlibm 5.3 (k_tan.c), for angles in -pi/4..pi/4.

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

#include "imaging/maths/maths.h"
#include "imaging/maths/maths_sine.h"

namespace ruvex::maths {
namespace {

using detail::kPiOver4;
using detail::Reduced;

constexpr double kPiOver4Low = 3.06161699786838301793e-17;
constexpr double kTwoPi = 6.283185307179586477;

double withoutLowWord(double value) {
    return std::bit_cast<double>(std::bit_cast<std::uint64_t>(value) & 0xFFFFFFFF00000000u);
}

Reduced reduceAny(double x) {
    if (std::fabs(x) > detail::kExactReduction) x = std::fmod(x, kTwoPi);
    return detail::reduce(x);
}

// tan(x + y) - x, for |x| up to 0.6744; y is the low part of the reduced angle.
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

// tan(x + y), or with `inverted` -1 / tan(x + y), for an odd number of quarter turns.
double tanKernel(double x, double y, bool inverted) {
    constexpr double kNearPiOver4 = 0.6744;
    const double sign = x < 0.0 ? -1.0 : 1.0;
    if (std::fabs(x) >= kNearPiOver4) {
        // tan(pi/4 - d) = 1 - 2 tan(d) / (1 + tan(d)), where d is small.
        const double d = (kPiOver4 - sign * x) + (kPiOver4Low - sign * y);
        const double r = tanExcess(d, 0.0);
        const double w = d + r;
        const double v = inverted ? -1.0 : 1.0;
        return sign * (v - 2.0 * (d - (w * w / (w + v) - r)));
    }
    const double r = tanExcess(x, y);
    const double w = x + r;
    if (!inverted) return w;
    // -1 / (x + r) to full precision: a quotient of half the bits, and its correction.
    const double z = withoutLowWord(w);
    const double v = r - (z - x);
    const double a = -1.0 / w;
    const double t = withoutLowWord(a);
    return t + a * ((1.0 + t * z) + t * v);
}

bool finite(double x) {
    return std::fabs(x) <= std::numeric_limits<double>::max();
}

constexpr double kUndefined = std::numeric_limits<double>::quiet_NaN();

}  // namespace

double sin(double x) {
    if (!finite(x)) return kUndefined;
    const Reduced angle = reduceAny(x);
    return detail::sine(angle, angle.quarters);
}

double cos(double x) {
    if (!finite(x)) return kUndefined;
    const Reduced angle = reduceAny(x);
    return detail::sine(angle, angle.quarters + 1.0);
}

double tan(double x) {
    if (!finite(x)) return kUndefined;
    const Reduced angle = reduceAny(x);
    return tanKernel(angle.high, angle.low, detail::isOdd(angle.quarters));
}

double sqrt(double x) {
    return std::sqrt(x);
}

}  // namespace ruvex::maths
