#include "cli/render_job.h"

#include <limits>
#include <utility>

#include "cli/clip_choice.h"
#include "cli/mask_image.h"
#include "cli/media_options.h"
#include "cli/usage_error.h"
#include "media/frame_writer.h"
#include "media/numbered_path.h"
#include "media/video/video_codec.h"

namespace ruvex::cli {
namespace {

namespace fs = std::filesystem;

/// Each holds a few frames in memory.
constexpr int kMostJobs = 256;

template <class Parse>
auto ifGiven(const std::string& text, Parse parse) {
    return text.empty() ? std::nullopt : std::optional(parse(text));
}

media::Depth parseDepth(const std::string& text) {
    if (text != "8" && text != "16") {
        throw UsageError("--depth: '" + text + "' is not a depth; write 8 or 16.");
    }
    return text == "8" ? media::Depth::Bits8 : media::Depth::S214;
}

Talk talkOf(const RenderOptions& options) {
    if (options.quiet && options.verbose) {
        throw UsageError("--quiet and --verbose do not go together. Choose one.");
    }
    return options.quiet ? Talk::Quiet : options.verbose ? Talk::Verbose : Talk::Usual;
}

/// What is made in one piece cannot be gone on with.
void checkResume(const RenderJob& job) {
    if (job.resume && !media::NumberedPath(job.output).isPattern()) {
        throw UsageError("--resume goes on with numbered pictures, but " + job.output.string() +
                         " is made in one piece. Render into a sequence, as in out.%05d.png.");
    }
}

void checkOutput(const RenderJob& job) {
    if (!media::canWrite(job.output)) {
        throw UsageError(job.output.string() +
                         ": the ending says no kind of file that can be "
                         "written. Use one of " +
                         media::writableEndings() + ".");
    }
    const std::string fault = media::storageFault(job.output, job.codec, job.quality);
    if (!fault.empty()) {
        throw UsageError(job.output.string() + ": " + fault);
    }
    for (const auto& [file, what] : {std::pair(job.input, "input"), {job.mask, "mask"}}) {
        std::error_code ignored;
        if (media::fileKind(file) == media::FileKind::Stream) {
            continue;
        }
        if (file == job.output || fs::equivalent(file, job.output, ignored)) {
            throw UsageError("The output would replace the " + std::string(what) + ", " +
                             file.string() + ". Choose another name.");
        }
    }
}

}  // namespace

media::ReadOptions readingOf(const RenderJob& job) {
    return {.size = job.size,
            .depth = job.depth,
            .alpha = job.alpha,
            .format = job.inputFormat,
            .fields = job.fieldOrder};
}

RenderJob makeRenderJob(const RenderOptions& options) {
    RenderJob job;
    job.input = options.input;
    job.output = options.output;
    job.size = ifGiven(options.size, [](auto& text) { return parseSize("--size", text); });
    job.rate = ifGiven(options.rate, [](auto& text) { return parseFraction("--rate", text); });
    job.frames = ifGiven(options.frames, [](auto& text) { return parseFrames("--frames", text); });
    job.depth = ifGiven(options.depth, parseDepth);
    job.alpha = ifGiven(options.alpha, [](auto& text) { return parseAlpha("--alpha", text); });
    job.codec = ifGiven(options.codec, [](auto& text) { return text; });
    job.quality =
        ifGiven(options.quality, [](auto& text) { return parseWhole("--quality", text, 1, 100); });
    job.inputFormat = ifGiven(options.inputFormat, [&](auto& text) {
        return parseStreamFormat("--input-format", text, job.input);
    });
    job.outputFormat = ifGiven(options.outputFormat, [&](auto& text) {
        return parseStreamFormat("--output-format", text, job.output);
    });
    job.workers = ifGiven(options.workers, [](auto& text) {
        return parseWhole("--workers", text, 1, std::numeric_limits<int>::max());
    });
    job.projectSize =
        ifGiven(options.projectSize, [](auto& text) { return parseSize("--project-size", text); });
    job.region = ifGiven(options.region, [](auto& text) { return parseRegion("--region", text); });
    if (!options.pixelAspect.empty()) {
        job.pixelAspect = parseFraction("--pixel-aspect", options.pixelAspect).value();
    }
    job.fields = options.fields;
    job.fieldOrder = ifGiven(options.fieldOrder,
                             [](auto& text) { return parseFieldOrder("--field-order", text); });
    job.ends = options.ends.empty() ? ClipEnds::Blank : parseEnds("--ends", options.ends);
    job.mask = options.mask;
    if (!job.mask.empty()) {
        checkMaskName(job.mask);
    }
    job.parameters = readParameters(options.parameters, job.warnings);
    job.jobs = options.jobs.empty() ? 1 : parseWhole("--jobs", options.jobs, 1, kMostJobs);
    job.talk = talkOf(options);
    job.resume = options.resume;
    job.dryRun = options.dryRun;
    checkRawSize(job.input, job.size, job.depth, job.inputFormat);
    checkOutput(job);
    checkResume(job);
    return job;
}

}  // namespace ruvex::cli
