// YUV by its plain formulas in real numbers, for comparison with the code values that are written.

#pragma once

#include <array>
#include <string>

namespace ruvex::media {

/// Red, green and blue, 0 to 1 from black to white; or luma, blue and red difference as code
/// values.
using Triple = std::array<double, 3>;

/// A matrix, a range and a depth.
struct ExactYuv {
    int matrix;  ///< An AVColorSpace.
    bool full;
    int bits;

    /// The real numbers whose nearest integers are the code values. Components beyond black and
    /// white are clamped.
    Triple codesOf(Triple rgb) const;
    /// The colour of code values, which may lie beyond black and white.
    Triple rgbOf(Triple codes) const;
    /// The highest code value.
    double top() const;
    /// "BT.709, limited, 10 bits".
    std::string name() const;
};

/// All matrices that are supported.
inline constexpr std::array kMatrices = {1, 4, 6, 7, 9};

/// Whether `code` is a nearest integer of `exact`, clamped to 0 to `top`. Where an exact value is
/// half way between two integers, rounding errors of this computation may favour either.
bool isNearest(int code, double exact, double top);

/// The largest and the smallest component are between black and white.
bool isInGamut(const Triple& rgb);

}  // namespace ruvex::media
