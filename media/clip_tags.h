// A video's metadata: its text tags, and the time code of its first frame.

#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "media/rational.h"

struct AVFormatContext;
struct AVStream;

namespace ruvex::media {

struct ClipTags {
    /// "10:00:00:00", or "10:00:00;00" for drop-frame time code; empty if there is none.
    std::string timecode;
    std::vector<std::pair<std::string, std::string>> words;  ///< Name and text ("title", "Reel 1").
};

/// The time code of the video stream or else of the container, and the container's tags. Tags that
/// describe the file itself (brand, encoder, creation time, duration) are left out.
ClipTags readTags(const AVFormatContext& file, const AVStream& video);

/// Sets the tags of an output. Call it before the header is written. The muxer drops tags that its
/// container cannot hold.
void writeTags(const ClipTags& tags, AVFormatContext& file, AVStream& video);

/// The time code `frames` frames after `timecode`. Empty if `timecode` is empty or invalid, or if
/// time code is not defined for this rate.
std::string timecodeAfter(const std::string& timecode, const Rational& rate, std::int64_t frames);

}  // namespace ruvex::media
