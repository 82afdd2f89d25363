#include "cli/level_job.h"

#include <optional>

#include "cli/clip_choice.h"
#include "cli/usage_error.h"
#include "media/frame_reader.h"
#include "media/text.h"

namespace ruvex::cli {
namespace {

struct Wishes {
    std::optional<media::Rational> rate;
    std::optional<FrameRange> frames;
    std::optional<media::FrameSize> size;
};

Wishes wishesOf(const LevelOptions& options) {
    Wishes wishes;
    if (!options.rate.empty()) wishes.rate = parseFraction("--rate", options.rate);
    if (!options.frames.empty()) wishes.frames = parseFrames("--frames", options.frames);
    if (!options.size.empty()) wishes.size = parseSize("--size", options.size);
    return wishes;
}

void checkPlotName(const LevelOptions& options) {
    const std::filesystem::path plot = options.plot;
    if (!plot.empty() && media::lowerCase(plot.extension().string()) != ".svg") {
        throw UsageError("--plot: " + options.plot +
                         " is not the name of an SVG picture. Use one that ends in .svg.");
    }
}

void chooseWithoutClip(const Wishes& wishes, LevelJob& job) {
    if (!wishes.frames) {
        throw UsageError("Without an input, say which frames (--frames A-B).");
    }
    if (wishes.size) {
        throw UsageError("--size is for raw input frames, and there is no input.");
    }
    job.rate = wishes.rate.value_or(kUsualRate);
    job.frames = *wishes.frames;
}

void chooseFromClip(const std::filesystem::path& input, const Wishes& wishes, LevelJob& job) {
    checkNoStream(input);
    checkRawSize(input, wishes.size, std::nullopt);
    const auto reader = media::openReader(input, {.size = wishes.size});
    job.rate = chooseRate(input, reader->info(), wishes.rate, job.warnings);
    job.frames = chooseFrames(input, reader->info(), wishes.frames);
}

}  // namespace

LevelJob makeLevelJob(const LevelOptions& options) {
    LevelJob job;
    const Wishes wishes = wishesOf(options);
    checkPlotName(options);
    job.plot = options.plot;
    job.parameters = readParameters(options.parameters, job.warnings);
    if (options.input.empty()) {
        chooseWithoutClip(wishes, job);
    } else {
        chooseFromClip(options.input, wishes, job);
    }
    return job;
}

}  // namespace ruvex::cli
