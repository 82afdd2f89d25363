#include "cli/clip_choice.h"

#include "cli/usage_error.h"
#include "media/file_kind.h"
#include "media/media_error.h"

namespace ruvex::cli {
namespace {

std::string rangeText(std::int64_t first, std::int64_t last) {
    return std::to_string(first) + "-" + std::to_string(last);
}

/// A size says that a stream is raw, if nothing else does.
media::FileKind kindOf(const std::filesystem::path& input, std::optional<media::FrameSize> size,
                       std::optional<media::FileKind> format) {
    const media::FileKind kind = media::fileKind(input);
    if (kind != media::FileKind::Stream) {
        return kind;
    }
    return format.value_or(size ? media::FileKind::RawRgba8 : media::FileKind::Y4m);
}

}  // namespace

void checkRawSize(const std::filesystem::path& input, std::optional<media::FrameSize> size,
                  std::optional<media::Depth> depth, std::optional<media::FileKind> format) {
    const auto stored = media::rawDepth(kindOf(input, size, format));
    if (stored && !size) {
        throw UsageError(input.string() + " holds bare pixels: say their size (--size WxH).");
    }
    if (!stored && size) {
        throw UsageError("--size is for raw frames; " + input.string() + " knows its own size.");
    }
    if (stored) {
        try {
            media::checkFrameSize(*size, depth.value_or(*stored), "--size: the frame");
        } catch (const media::MediaError& error) {
            throw UsageError(error.what());
        }
    }
}

void checkNoStream(const std::filesystem::path& input) {
    if (media::fileKind(input) == media::FileKind::Stream) {
        throw UsageError(
            "This has to know the whole clip beforehand, which standard input does not "
            "tell. Use a file.");
    }
}

media::Rational chooseRate(const std::filesystem::path& input, const media::ClipInfo& clip,
                           std::optional<media::Rational> named,
                           std::vector<std::string>& warnings) {
    if (clip.rate && named && *clip.rate != *named) {
        warnings.push_back("--rate is left aside: " + input.string() + " has a rate of its own, " +
                           toText(*clip.rate) + ".");
    }
    return clip.rate.value_or(named.value_or(kUsualRate));
}

FrameRange chooseFrames(const std::filesystem::path& input, const media::ClipInfo& clip,
                        std::optional<FrameRange> named) {
    const FrameRange frames = named.value_or(FrameRange{clip.first, clip.last});
    if (frames.first < clip.first || frames.last > clip.last) {
        throw UsageError("--frames: " + input.string() + " has the frames " +
                         rangeText(clip.first, clip.last) + ", not all of " +
                         rangeText(frames.first, frames.last) + ".");
    }
    if (frames.last >= kFrameNumberEnd) {
        throw UsageError(input.string() + " has frame numbers of " +
                         std::to_string(kFrameNumberEnd) +
                         " and more, which cannot be rendered. "
                         "Choose others with --frames.");
    }
    return frames;
}

}  // namespace ruvex::cli
