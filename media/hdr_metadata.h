// Metadata of video of high dynamic range: the display it was graded on, and its brightest
// pictures.

#pragma once

#include <array>
#include <optional>

#include "media/rational.h"

struct AVFrame;
struct AVStream;

namespace ruvex::media {

/// CIE 1931 coordinates x, y of red, green, blue and white.
struct DisplayColours {
    std::array<std::array<Rational, 2>, 3> primaries{};
    std::array<Rational, 2> white{};
};

/// Candela per square metre.
struct DisplayLuminance {
    Rational least;
    Rational most;
};

/// The display on which a video was graded (SMPTE ST 2086).
struct MasteringDisplay {
    std::optional<DisplayColours> colours{};
    std::optional<DisplayLuminance> luminance{};
};

/// Candela per square metre (CTA-861.3).
struct LightLevel {
    unsigned brightestPixel = 0;
    unsigned brightestAverage = 0;  ///< Of a picture.
};

struct HdrMetadata {
    std::optional<MasteringDisplay> display{};
    std::optional<LightLevel> light{};
};

/// From the picture, or else from the container.
HdrMetadata readHdr(const AVFrame& picture, const AVStream& stream);

/// Sets the metadata of an output's stream. Call it before the header is written. Matroska, MP4 and
/// QuickTime store both. Throws std::bad_alloc.
void writeHdr(const HdrMetadata& hdr, AVStream& stream);

}  // namespace ruvex::media
