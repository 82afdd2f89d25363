#include "media/clip_tags.h"

extern "C" {
#include <libavutil/timecode.h>
}

#include <algorithm>
#include <string_view>

#include "files/words.h"
#include "media/av_library.h"

namespace ruvex::media {
namespace {

constexpr const char* kTimecode = "timecode";

/// Tags that describe the file that is read and would be wrong in another. The time code is kept
/// apart from the text tags.
constexpr std::string_view kNotCopied[] = {"major_brand", "minor_version", "compatible_brands",
                                           "encoder",     "creation_time", "duration",
                                           kTimecode};

bool isCopied(const std::string& name) {
    return std::ranges::find(kNotCopied, files::lowerCase(name)) == std::end(kNotCopied);
}

std::string textOf(const AVDictionary* tags, const char* name) {
    const AVDictionaryEntry* entry = av_dict_get(tags, name, nullptr, 0);
    return entry == nullptr ? "" : entry->value;
}

}  // namespace

ClipTags readTags(const AVFormatContext& file, const AVStream& video) {
    ClipTags tags;
    tags.timecode = textOf(video.metadata, kTimecode);
    if (tags.timecode.empty()) {
        tags.timecode = textOf(file.metadata, kTimecode);
    }
    const AVDictionaryEntry* entry = nullptr;
    while ((entry = av_dict_get(file.metadata, "", entry, AV_DICT_IGNORE_SUFFIX)) != nullptr) {
        if (isCopied(entry->key)) {
            tags.words.emplace_back(entry->key, entry->value);
        }
    }
    return tags;
}

void writeTags(const ClipTags& tags, AVFormatContext& file, AVStream& video) {
    if (!tags.timecode.empty()) {
        av_dict_set(&video.metadata, kTimecode, tags.timecode.c_str(), 0);
    }
    for (const auto& [name, text] : tags.words) {
        av_dict_set(&file.metadata, name.c_str(), text.c_str(), 0);
    }
}

std::string timecodeAfter(const std::string& timecode, const Rational& rate, std::int64_t frames) {
    quietLibraries();
    AVTimecode counter;
    if (timecode.empty() ||
        av_timecode_init_from_string(&counter, toAvRational(rate), timecode.c_str(), nullptr) < 0) {
        return "";
    }
    char text[AV_TIMECODE_STR_SIZE];
    return av_timecode_make_string(&counter, text, static_cast<int>(frames));
}

}  // namespace ruvex::media
