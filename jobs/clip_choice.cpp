#include "jobs/clip_choice.h"

#include <string>

#include "media/file_kind.h"

namespace ruvex::jobs {

static_assert(media::kEndless == kFrameNumberEnd - 1, "a stream ends where frame numbers do");

namespace {

void noteUneven(const std::filesystem::path& input, const media::ClipInfo& clip,
                const media::Rational& rate, bool named, std::vector<Note>& notes) {
    std::string sentence = "The frames of " + input.string() +
                           " are of uneven length: they are rendered at a constant " +
                           toText(rate) + " frames a second.";
    if (clip.leftOut > 0) {
        sentence.append(" ").append(std::to_string(clip.leftOut)).append(" of its ");
        sentence.append(std::to_string(clip.pictures));
        sentence.append(
            " pictures are left out: at this rate they share a frame with the next one.");
    }
    notes.push_back(
        {JobField::Input, sentence, named ? std::nullopt : std::optional(JobField::Rate)});
}

}  // namespace

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
    const media::Rational rate = clip.rate.value_or(named.value_or(kUsualRate));
    if (clip.uneven) noteUneven(input, clip, rate, named.has_value(), notes);
    return rate;
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
