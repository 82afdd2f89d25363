// The ways in which video is coded, and the files that hold them.

#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace ruvex::media {

/// A way of coding video that can be written.
struct VideoCodec {
    const char* name;     ///< As it is typed: "h264".
    const char* title;    ///< As it is told: "H.264".
    const char* encoder;  ///< What the FFmpeg libraries call it.
    const char* endings;  ///< Of the files that may hold it, each followed by a blank.
    bool exact;           ///< RGB without loss, 8 or 16 bits a component.
    bool alpha;
    int quality;  ///< The usual one, from 1 to 100; 0 where there is none to choose.
    /// Frames of two fields need a height that is a multiple of this; 0 where they cannot be told
    /// from others.
    int fieldLines;
    /// Whether readers can be told that black and white are at the ends of the scale.
    bool fullRange;
};

/// The coding named, or without a name the ending's own: H.264 for .mp4 and .m4v, ProRes 4444 for
/// .mov, FFV1 for .mkv. Null if there is none of that name, or the file cannot hold it.
const VideoCodec* findVideoCodec(const std::filesystem::path& path,
                                 const std::optional<std::string>& name = {});

/// Why a file cannot be written so, as a sentence without the file's name, or nothing: a coding
/// that is not known or not for this file, a quality where there is none to choose.
std::string storageFault(const std::filesystem::path& path, const std::optional<std::string>& codec,
                         std::optional<int> quality);

}  // namespace ruvex::media
