// How the code values of YUV pictures represent colours: matrix, range and depth.

#pragma once

namespace ruvex::media {

/// The matrix, range and depth of YUV or grey pictures.
struct YuvCoding {
    int matrix = 0;     ///< An AVColorSpace that matrixInUse returns.
    bool full = false;  ///< Full range, not limited range.
    int bits = 8;       ///< Bits of a component, 8 to 16.
};

/// Shares of red, green and blue in luma: luma = (red R + green G + blue B) / kLumaUnit.
struct LumaShares {
    int red;
    int green;
    int blue;
};
/// The sum of the shares.
inline constexpr int kLumaUnit = 10000;

/// The shares of a matrix that matrixInUse returns (ITU-T H.273, table 4).
LumaShares lumaShares(int matrix);

/// Code values: a luma of 0 is `black`, of 1 `black + luma`; a colour difference of 0 is `neutral`,
/// of -0.5 and 0.5 `neutral - chroma / 2` and `neutral + chroma / 2`.
struct CodeRange {
    int black;
    int luma;
    int neutral;
    int chroma;
    int top;  ///< The highest code value; the lowest is 0.
};

/// The code values of a range and depth (ITU-T H.273, equations 20 to 31).
CodeRange codeRange(const YuvCoding& coding);

}  // namespace ruvex::media
