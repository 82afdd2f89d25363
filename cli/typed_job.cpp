#include "cli/typed_job.h"

#include <limits>
#include <utility>

#include "cli/job_words.h"
#include "cli/media_options.h"
#include "cli/option_text.h"
#include "cli/parameter_choice.h"

namespace ruvex::cli {
namespace {

/// The value of an option: what `parse(name, text)` reads; empty where the option was not given.
template <class Parse>
auto ifGiven(const char* name, const std::string& text, Parse parse) {
    return text.empty() ? std::nullopt : std::optional(parse(std::string(name), text));
}

auto wholeFrom(int low, int high) {
    return [=](const std::string& name, const std::string& text) {
        return parseWhole(name, text, low, high);
    };
}

void readInput(const RenderOptions& options, jobs::RenderJob& job) {
    job.input = options.inputs.front();
    job.inputFormat = ifGiven("--input-format", options.inputFormat, parseStreamFormat);
    job.size = ifGiven("--size", options.size, parseSize);
    job.rate = ifGiven("--rate", options.rate, parseFraction);
    job.alpha = ifGiven("--alpha", options.alpha, parseAlpha);
    job.fieldOrder = ifGiven("--field-order", options.fieldOrder, parseFieldOrder);
}

void readOutput(const RenderOptions& options, jobs::RenderJob& job) {
    job.output = options.output;
    job.outputFormat = ifGiven("--output-format", options.outputFormat, parseStreamFormat);
    job.outputSize = ifGiven("--output-size", options.outputSize, parseSize);
    job.resultAlpha = ifGiven("--result-alpha", options.resultAlpha, parseResultAlpha);
    if (!options.codec.empty()) job.codec = options.codec;
    job.quality = ifGiven("--quality", options.quality, parseQuality);
    if (!options.encoderSpeed.empty()) job.encoderSpeed = options.encoderSpeed;
    job.encoderThreads = ifGiven("--encoder-threads", options.encoderThreads,
                                 wholeFrom(1, media::kMostEncoderThreads));
    job.exrPixels = ifGiven("--exr-pixels", options.exrPixels, parseExrPixels);
    job.exrCompression = ifGiven("--exr-compression", options.exrCompression, parseExrCompression);
    job.mute = options.mute;
    job.resume = options.resume;
}

void readPicture(const RenderOptions& options, jobs::RenderJob& job) {
    constexpr int kMostWorkers = std::numeric_limits<int>::max();
    job.frames = ifGiven("--frames", options.frames, parseFrames);
    job.depth = ifGiven("--depth", options.depth, parseDepth);
    job.workers = ifGiven("--workers", options.workers, wholeFrom(1, kMostWorkers));
    job.projectSize = ifGiven("--project-size", options.projectSize, parseSize);
    if (const auto aspect = ifGiven("--pixel-aspect", options.pixelAspect, parseFraction)) {
        job.pixelAspect = aspect->value();
    }
    job.region = ifGiven("--region", options.region, parseRegion);
    job.fields = options.fields;
    job.mask = options.mask;
    job.ends = ifGiven("--ends", options.ends, parseEnds).value_or(jobs::ClipEnds::Blank);
    job.framesAtOnce =
        ifGiven("--jobs", options.jobs, wholeFrom(1, jobs::kMostFramesAtOnce)).value_or(1);
}

}  // namespace

jobs::RenderJob typedJob(const RenderOptions& options, std::vector<std::string>& warnings,
                         const std::optional<jobs::Comparison>& comparison) {
    jobs::RenderJob job;
    readInput(options, job);
    readOutput(options, job);
    readPicture(options, job);
    looks::Look look = readParameters(options.parameters, warnings);
    job.parameters = std::move(look.changes);
    for (std::string& warning : effectWarnings(options.parameters, job.parameters)) {
        warnings.push_back(std::move(warning));
    }
    if (look.projectSize && !job.projectSize) {
        job.projectSize = media::FrameSize{look.projectSize->width, look.projectSize->height};
    }
    job.comparison = comparison;
    inOptionWords([&] { checkJob(job); });
    return job;
}

}  // namespace ruvex::cli
