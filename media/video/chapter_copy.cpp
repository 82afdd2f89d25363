#include "media/video/chapter_copy.h"

#include <algorithm>
#include <new>

#include "media/av_functions.h"

namespace ruvex::media {
namespace {

/// Adds an empty chapter, which `output` owns.
AVChapter& addChapter(AVFormatContext& output) {
    auto* grown = static_cast<AVChapter**>(
        av_realloc_array(output.chapters, output.nb_chapters + 1, sizeof(AVChapter*)));
    if (grown == nullptr) {
        throw std::bad_alloc();
    }
    output.chapters = grown;
    auto* chapter = static_cast<AVChapter*>(av_mallocz(sizeof(AVChapter)));
    if (chapter == nullptr) {
        throw std::bad_alloc();
    }
    output.chapters[output.nb_chapters++] = chapter;
    return *chapter;
}

}  // namespace

void copyChapters(const AVFormatContext& input, const CopySource& source, std::int64_t lead,
                  AVFormatContext& output) {
    for (unsigned i = 0; i < input.nb_chapters; ++i) {
        const AVChapter& from = *input.chapters[i];
        const std::int64_t start = av_rescale_q(from.start, from.time_base, kMicroseconds);
        const std::int64_t end = av_rescale_q(from.end, from.time_base, kMicroseconds);
        if (start >= source.to || end <= source.from) {
            continue;
        }
        AVChapter& to = addChapter(output);
        to.id = from.id;
        to.time_base = kMicroseconds;
        to.start = std::max(std::max(start, source.from) - source.zero + lead, std::int64_t{0});
        to.end = std::max(std::min(end, source.to) - source.zero + lead, to.start);
        av_dict_copy(&to.metadata, from.metadata, 0);
    }
}

}  // namespace ruvex::media
