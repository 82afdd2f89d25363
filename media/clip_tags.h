// What a video's file says of it in words, and the time code of its first frame.

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
    /// "10:00:00:00", with ";" before the frames where some are dropped; empty if there is none.
    std::string timecode;
    std::vector<std::pair<std::string, std::string>> words;  ///< Such as a title; name and text.
};

/// Tags of a clip and its video, without those of the container itself and of how it was made.
ClipTags readTags(const AVFormatContext& file, const AVStream& video);

/// Puts them into a file before its header is written. A container leaves out what it cannot hold.
void writeTags(const ClipTags& tags, AVFormatContext& file, AVStream& video);

/// The time code of a later frame; empty if there is none or it cannot be counted at this rate.
std::string timecodeAfter(const std::string& timecode, const Rational& rate, std::int64_t frames);

}  // namespace ruvex::media
