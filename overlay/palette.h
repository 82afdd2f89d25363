// The colours of the on-screen controls.

#pragma once

namespace ruvex {

/// Red, green and blue, 0..1.
struct VxColour {
    float r = 1.0f, g = 1.0f, b = 1.0f;

    friend bool operator==(const VxColour&, const VxColour&) = default;
};

inline constexpr VxColour paletteRed{0.7f, 0.0f, 0.0f};
inline constexpr VxColour paletteGreen{0.0f, 0.6f, 0.0f};
inline constexpr VxColour paletteBlue{0.0f, 0.0f, 0.9f};
inline constexpr VxColour paletteGrey{0.6f, 0.6f, 0.6f};
inline constexpr VxColour paletteDark{0.1f, 0.1f, 0.1f};
inline constexpr VxColour paletteWhite{1.0f, 1.0f, 1.0f};
inline constexpr VxColour paletteText{1.0f, 1.0f, 0.0f};

}  // namespace ruvex
