// The header of a Y4M stream of uncompressed YUV pictures: its first line.

#pragma once

extern "C" {
#include <libavutil/pixfmt.h>
}

#include <optional>
#include <string>
#include <string_view>

#include "media/clip_info.h"

namespace ruvex::media {

struct Y4mHeader {
    FrameSize size;
    std::optional<Rational> rate;  ///< Frames a second; empty if unknown.
    Rational pixelAspect{1, 1};    ///< Width of a pixel over its height.
    FieldOrder fields = FieldOrder::Progressive;
    AVPixelFormat format = AV_PIX_FMT_YUV420P;
    AVChromaLocation siting = AVCHROMA_LOC_CENTER;
    bool full = false;  ///< Full range, not limited range.

    friend bool operator==(const Y4mHeader&, const Y4mHeader&) = default;
};

/// The signature that every stream begins with.
inline constexpr std::string_view kY4mMagic = "YUV4MPEG2";
/// Bytes; a longer line is refused.
inline constexpr std::size_t kLongestY4mLine = 1024;

/// Parses the first line, given without its line end. Throws MediaError, whose message names the
/// stream `name`, if it is no valid header or its pixel format is unknown.
Y4mHeader parseY4mHeader(std::string_view line, const std::string& name);

/// The header as a line, with its line end. Its format must be one that parseY4mHeader can return.
std::string formatY4mHeader(const Y4mHeader& header);

/// The pixel format with this chroma subsampling (Unspecified is 4:2:0) and 8, 9, 10, 12, 14 or 16
/// bits; empty for other numbers of bits.
std::optional<AVPixelFormat> y4mFormat(Chroma chroma, int bits);

}  // namespace ruvex::media
