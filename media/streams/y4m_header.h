// The first line of a Y4M stream: YUV pictures without compression, one after the other.

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
    std::optional<Rational> rate;
    Rational pixelAspect{1, 1};
    FieldOrder fields = FieldOrder::Progressive;
    AVPixelFormat format = AV_PIX_FMT_YUV420P;
    AVChromaLocation siting = AVCHROMA_LOC_CENTER;
    bool full = false;  ///< Black and white at the ends of the scale.

    friend bool operator==(const Y4mHeader&, const Y4mHeader&) = default;
};

/// What every stream begins with.
inline constexpr std::string_view kY4mMagic = "YUV4MPEG2";
/// Longer first lines are refused.
inline constexpr std::size_t kLongestY4mLine = 1024;

/// Reads the first line, without its line end. Throws MediaError, whose sentence begins with
/// `name`, on anything that is no header, and on kinds of pixels that are not known.
Y4mHeader parseY4mHeader(std::string_view line, const std::string& name);

/// The line for a header, with its line end.
std::string formatY4mHeader(const Y4mHeader& header);

/// The format with these colour differences and 8, 9, 10, 12, 14 or 16 bits; nothing for others.
std::optional<AVPixelFormat> y4mFormat(Chroma chroma, int bits);

}  // namespace ruvex::media
