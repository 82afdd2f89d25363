// The codecs that video can be written in, and the files that hold them.

#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace ruvex::media {

/// A codec that video can be written in.
struct VideoCodec {
    const char* name;     ///< Of the option --codec: "h264".
    const char* title;    ///< For messages: "H.264".
    const char* encoder;  ///< The FFmpeg libraries' name of the encoder.
    const char* endings;  ///< Extensions of the files that may hold it, each followed by a blank.
    bool exact;           ///< Lossless RGBA of 8 or 16 bits a component.
    bool alpha;
    int quality;  ///< The default, 1 to 100; 0 for a lossless codec, which has no quality.
    /// Interlaced coding needs a height that is a multiple of this; 0 if the codec has none.
    int fieldLines;
    bool fullRange;  ///< Whether a file can be marked as full range.
};

/// The codec of this name, or by default the extension's: H.264 for .mp4 and .m4v, ProRes 4444 for
/// .mov, FFV1 for .mkv. Null if the name is unknown or files of this extension cannot hold the
/// codec.
const VideoCodec* findVideoCodec(const std::filesystem::path& path,
                                 const std::optional<std::string>& name = {});

/// Why a file cannot be written with these options, as a sentence without the file's name; empty if
/// it can. Faults are a codec that is unknown or that the file cannot hold, and a quality for a
/// lossless format.
std::string storageFault(const std::filesystem::path& path, const std::optional<std::string>& codec,
                         std::optional<int> quality);

}  // namespace ruvex::media
