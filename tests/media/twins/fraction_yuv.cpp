#include "tests/media/twins/fraction_yuv.h"

#include <algorithm>
#include <cstdlib>

namespace ruvex::media {
namespace {

__extension__ using Whole = __int128;

/// Kr, Kg and Kb in ten thousandths.
struct Shares {
    int red;
    int green;
    int blue;
};

Shares sharesFor(int matrix) {
    switch (matrix) {
        case AVCOL_SPC_BT709:
            return {2126, 7152, 722};
        case AVCOL_SPC_FCC:
            return {3000, 5900, 1100};
        case AVCOL_SPC_SMPTE240M:
            return {2120, 7010, 870};
        case AVCOL_SPC_BT2020_NCL:
            return {2627, 6780, 593};
        default:
            return {2990, 5870, 1140};
    }
}

/// Fractions are kept in these units.
constexpr int kShare = 10000;
constexpr int kCubic = 2560;

/// Keys' cubic with a = -3/5, in units of 1 / kCubic; `d` is a distance in eighths.
Whole cubic(int d) {
    // (a + 2) d^3 - (a + 3) d^2 + 1, and a d^3 - 5 a d^2 + 8 a d - 4 a.
    if (d <= 8) return 7 * d * d * d - 12 * 8 * d * d + 5 * 512;
    if (d < 16) return -3 * d * d * d + 15 * 8 * d * d - 24 * 64 * d + 12 * 512;
    return 0;
}

/// A sample of a line by its place.
using Line = std::function<Whole(int)>;

/// The sum of the samples around `centre`, in eighths of a sample, by the cubic stretched by
/// `stretch`. In units of 1 / (kCubic * stretch).
Whole filtered(const Line& line, int count, int centre, int stretch) {
    Whole sum = 0;
    for (int i = centre / 8 - 3 * stretch - 2; i <= centre / 8 + 3 * stretch + 2; ++i) {
        const int distance = std::abs(8 * i - centre);
        if (distance >= 16 * stretch) continue;
        sum += cubic(distance / stretch) * line(std::clamp(i, 0, count - 1));
    }
    return sum;
}

int samples(int luma, int step) {
    return (luma + step - 1) / step;
}

/// Chroma at luma sample `i`, in units of 1 / kCubic.
Whole interpolated(const Line& line, const ChromaPlaces& places, int luma, int i) {
    if (places.step == 1) return kCubic * line(i);
    return filtered(line, samples(luma, places.step), (8 * i - places.offset) / places.step, 1);
}

/// What `decimated` is a multiple of the reciprocal of.
Whole decimatedUnit(const ChromaPlaces& places) {
    return Whole{kCubic} * places.step;
}
Whole decimated(const Line& line, const ChromaPlaces& places, int luma, int i) {
    if (places.step == 1) return kCubic * line(i);
    return filtered(line, luma, 8 * i * places.step + places.offset, places.step);
}

/// The nearest integer to a fraction, halves up; the divisor is positive.
int nearest(Whole dividend, Whole divisor) {
    const Whole doubled = 2 * dividend + divisor;
    Whole quotient = doubled / (2 * divisor);
    if (doubled % (2 * divisor) < 0) --quotient;
    return static_cast<int>(quotient);
}

int scale(const FractionYuv& yuv) {
    return 1 << (yuv.bits - 8);
}
int top(const FractionYuv& yuv) {
    return (1 << yuv.bits) - 1;
}
int lumaRange(const FractionYuv& yuv) {
    return yuv.full ? top(yuv) : 219 * scale(yuv);
}
int chromaRange(const FractionYuv& yuv) {
    return yuv.full ? top(yuv) : 224 * scale(yuv);
}
int black(const FractionYuv& yuv) {
    return yuv.full ? 0 : 16 * scale(yuv);
}
int neutral(const FractionYuv& yuv) {
    return 128 * scale(yuv);
}

}  // namespace

int FractionYuv::component(int index, int x, int y, const SampleAt& luma, const SampleAt& blue,
                           const SampleAt& red) const {
    const auto at = [&](const SampleAt& plane) {
        const Line column = [&](int line) {
            const Line row = [&](int sample) { return Whole{plane(sample, line)}; };
            return interpolated(row, across, width, x);
        };
        return interpolated(column, down, height, y) - Whole{neutral(*this)} * kCubic * kCubic;
    };
    const Shares share = sharesFor(matrix);
    // Luma as a fraction of white, and 2 (1 - Kb) U and 2 (1 - Kr) V, over one divisor.
    const Whole divisor = Whole{lumaRange(*this)} * chromaRange(*this) * kCubic * kCubic * kShare;
    const Whole light =
        Whole{luma(x, y) - black(*this)} * chromaRange(*this) * kCubic * kCubic * kShare;
    const Whole bluer = at(blue) * 2 * (kShare - share.blue) * lumaRange(*this);
    const Whole redder = at(red) * 2 * (kShare - share.red) * lumaRange(*this);
    if (index == 0) return nearest((light + redder) * white, divisor);
    if (index == 2) return nearest((light + bluer) * white, divisor);
    return nearest((light * share.green - share.blue * bluer - share.red * redder) * white,
                   divisor * share.green);
}

int FractionYuv::lumaCode(int red, int green, int blue) const {
    const Shares share = sharesFor(matrix);
    const Whole sum = Whole{share.red} * red + share.green * green + share.blue * blue;
    const Whole unit = Whole{kShare} * white;
    return std::clamp(nearest(black(*this) * unit + lumaRange(*this) * sum, unit), 0, top(*this));
}

int FractionYuv::chromaCode(bool ofRed, int sampleX, int sampleY, const SampleAt& red,
                            const SampleAt& green, const SampleAt& blue) const {
    const auto at = [&](const SampleAt& plane) {
        const Line column = [&](int line) {
            const Line row = [&](int sample) { return Whole{plane(sample, line)}; };
            return decimated(row, across, width, sampleX);
        };
        return decimated(column, down, height, sampleY);
    };
    const Shares share = sharesFor(matrix);
    const Whole r = at(red);
    const Whole g = at(green);
    const Whole b = at(blue);
    const Whole light = share.red * r + share.green * g + share.blue * b;
    const Whole difference = kShare * (ofRed ? r : b) - light;
    const Whole unit = 2 * Whole{kShare - (ofRed ? share.red : share.blue)} * white *
                       decimatedUnit(across) * decimatedUnit(down);
    return std::clamp(nearest(neutral(*this) * unit + chromaRange(*this) * difference, unit), 0,
                      top(*this));
}

int FractionYuv::alphaCode(int alpha) const {
    return nearest(Whole{alpha} * top(*this), white);
}

int FractionYuv::alphaComponent(int code) const {
    return nearest(Whole{code} * white, top(*this));
}

}  // namespace ruvex::media
