#include "tests/media/exact_yuv.h"

#include <algorithm>
#include <cmath>

namespace ruvex::media {
namespace {

/// Kr and Kb of ITU-T H.273, table 4.
struct Weights {
    double red;
    double blue;
    const char* name;
};

Weights weightsOf(int matrix) {
    switch (matrix) {
        case 1:
            return {0.2126, 0.0722, "BT.709"};
        case 4:
            return {0.30, 0.11, "FCC"};
        case 7:
            return {0.212, 0.087, "SMPTE 240M"};
        case 9:
            return {0.2627, 0.0593, "BT.2020"};
        default:
            return {0.299, 0.114, "BT.601"};
    }
}

}  // namespace

double ExactYuv::top() const {
    return std::exp2(bits) - 1;
}

Triple ExactYuv::codesOf(Triple rgb) const {
    for (double& component : rgb) component = std::clamp(component, 0.0, 1.0);
    const auto [kr, kb, unused] = weightsOf(matrix);
    const double y = kr * rgb[0] + (1 - kr - kb) * rgb[1] + kb * rgb[2];
    const double u = (rgb[2] - y) / (2 * (1 - kb));
    const double v = (rgb[0] - y) / (2 * (1 - kr));
    const double scale = std::exp2(bits - 8);
    if (full) return {top() * y, top() * u + 128 * scale, top() * v + 128 * scale};
    return {scale * (219 * y + 16), scale * (224 * u + 128), scale * (224 * v + 128)};
}

Triple ExactYuv::rgbOf(Triple codes) const {
    const auto [kr, kb, unused] = weightsOf(matrix);
    const double scale = std::exp2(bits - 8);
    const double y = full ? codes[0] / top() : (codes[0] / scale - 16) / 219;
    const double chroma = full ? top() : 224 * scale;
    const double u = (codes[1] - 128 * scale) / chroma;
    const double v = (codes[2] - 128 * scale) / chroma;
    const double red = y + 2 * (1 - kr) * v;
    const double blue = y + 2 * (1 - kb) * u;
    return {red, (y - kr * red - kb * blue) / (1 - kr - kb), blue};
}

std::string ExactYuv::name() const {
    return std::string(weightsOf(matrix).name) + (full ? ", full, " : ", limited, ") +
           std::to_string(bits) + " bits";
}

bool isNearest(int code, double exact, double top) {
    constexpr double kRoundingError = 1e-9;
    return std::abs(code - std::clamp(exact, 0.0, top)) <= 0.5 + kRoundingError * (top + 1);
}

bool isInGamut(const Triple& rgb) {
    return std::ranges::all_of(rgb, [](double c) { return c >= 0 && c <= 1; });
}

}  // namespace ruvex::media
