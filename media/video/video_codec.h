// The codecs that video can be written in, and the files that hold them.

#pragma once

extern "C" {
#include <libavutil/pixfmt.h>
}

#include <filesystem>
#include <optional>
#include <string>

#include "media/frame.h"

namespace ruvex::media {

/// The kinds of encoders, each with options of its own.
enum class CodecFamily { Ffv1, ProRes, Dnxhr, H264, H265 };

/// A codec that video can be written in: a family, and of ProRes and DNxHR one profile.
struct VideoCodec {
    const char* name;   ///< Of the option --codec: "h264".
    const char* title;  ///< For messages: "H.264".
    CodecFamily family;
    const char* endings;  ///< Extensions of the files that may hold it, each followed by a blank.
    int profile = 0;      ///< Of ProRes and DNxHR, by the FFmpeg libraries' numbers.
    /// Of ProRes and DNxHR; the others have several.
    AVPixelFormat format = AV_PIX_FMT_NONE;
    bool exact = false;  ///< Lossless RGBA of 8 or 16 bits a component.
    bool alpha = false;
    int quality = 0;  ///< The default, 1 to 100; 0 for codecs without such a choice.
    /// Interlaced coding needs a height that is a multiple of this; 0 if the codec has none.
    int fieldLines = 0;
    bool fullRange = false;  ///< Whether a file can be marked as full range.
    FrameSize leastSize{1, 1};
};

/// The codec of this name, or by default the extension's: H.264 for .mp4 and .m4v, ProRes 4444 for
/// .mov, FFV1 for .mkv, DNxHR HQX for .mxf. "prores" is short for "prores-4444". Null if the name
/// is unknown or files of this extension cannot hold the codec.
const VideoCodec* findVideoCodec(const std::filesystem::path& path,
                                 const std::optional<std::string>& name = {});

/// Whether files of this extension are MXF.
bool isMxf(const std::filesystem::path& path);

/// The names of all codecs that files of this extension can hold, for messages.
std::string codecsFor(const std::filesystem::path& path);

/// The constant rate factor of H.264 and H.265 for a quality of 1 to 100: 50 to 1, of which 1 is
/// the best.
int rateFactor(int quality);

/// The lowest quality with at most this rate factor.
int qualityOfRateFactor(int factor);

}  // namespace ruvex::media
