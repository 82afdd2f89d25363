#include "jobs/clip_choice.h"

#include <string>

#include "media/file_kind.h"

namespace ruvex::jobs {

static_assert(media::kEndless == kFrameNumberEnd - 1, "a stream ends where frame numbers do");

void checkNoStream(const std::filesystem::path& input) {
    if (media::fileKind(input) == media::FileKind::Stream) {
        throw JobError(JobField::Input, "standard input has no known length. Use a file.");
    }
}

media::Rational chooseRate(const std::filesystem::path& input, const media::ClipInfo& clip,
                           std::optional<media::Rational> named, std::vector<Note>& notes) {
    if (clip.rate && named && *clip.rate != *named) {
        notes.push_back({JobField::Rate, "this is ignored: " + input.string() +
                                             " has a rate of its own, " + toText(*clip.rate) +
                                             "."});
    }
    return clip.rate.value_or(named.value_or(kUsualRate));
}

FrameRange chooseFrames(const std::filesystem::path& input, const media::ClipInfo& clip,
                        std::optional<FrameRange> named) {
    const FrameRange frames = named.value_or(FrameRange{clip.first, clip.last});
    if (frames.first < clip.first || frames.last > clip.last) {
        throw JobError(JobField::Frames, input.string() + " has the frames " +
                                             toText(FrameRange{clip.first, clip.last}) +
                                             ", not all of " + toText(frames) + ".");
    }
    if (frames.last >= kFrameNumberEnd) {
        throw JobError(JobField::Input,
                       input.string() + " has frame numbers of " + std::to_string(kFrameNumberEnd) +
                           " and more, which cannot be rendered. Choose others.",
                       JobField::Frames);
    }
    return frames;
}

}  // namespace ruvex::jobs
