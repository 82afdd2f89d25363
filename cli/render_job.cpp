#include "cli/render_job.h"

#include <algorithm>
#include <limits>

#include "cli/usage_error.h"
#include "media/file_kind.h"
#include "media/frame_writer.h"
#include "media/media_error.h"

namespace ruvex::cli {
namespace {

namespace fs = std::filesystem;

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

/// Raw frames cannot do without a size, and nothing else takes one.
void checkSize(const RenderJob& job) {
    const auto depth = media::rawDepth(media::fileKind(job.input));
    if (depth && !job.size) {
        throw UsageError(job.input.string() + " holds bare pixels: say their size (--size WxH).");
    }
    if (!depth && job.size) {
        throw UsageError("--size is for raw frames; " + job.input.string() +
                         " knows its own size.");
    }
    if (depth) {
        try {
            media::checkFrameSize(*job.size, job.depth.value_or(*depth), "--size: the frame");
        } catch (const media::MediaError& error) {
            throw UsageError(error.what());
        }
    }
}

void checkOutput(const RenderJob& job) {
    if (!media::canWrite(job.output)) {
        throw UsageError(job.output.string() +
                         ": the ending says no kind of file that can be "
                         "written. Use one of " +
                         media::writableEndings() + ".");
    }
    std::error_code ignored;
    if (job.input == job.output || fs::equivalent(job.input, job.output, ignored)) {
        throw UsageError("The output would replace the input, " + job.input.string() +
                         ". Choose another name.");
    }
}

/// A parameter that is set and animated at once is a slip of the pen.
void checkNotBoth(const RenderJob& job) {
    for (std::size_t i = 0; i < job.animations.size(); ++i) {
        const ParameterRow* row = job.animations[i].row;
        const auto same = [row](const auto& other) { return other.row == row; };
        const auto rest = job.animations.begin() + static_cast<std::ptrdiff_t>(i) + 1;
        if (std::any_of(job.settings.begin(), job.settings.end(), same) ||
            std::any_of(rest, job.animations.end(), same)) {
            throw UsageError("--key: '" + std::string(row->label) +
                             "' is given twice. Put all its keys into one --key.");
        }
    }
}

void readParameters(const RenderOptions& options, RenderJob& job) {
    for (const std::string& text : options.settings) {
        job.settings.push_back(parseSetting(text, job.warnings));
    }
    for (const std::string& text : options.keys) {
        job.animations.push_back(parseAnimation(text, job.warnings));
    }
    checkNotBoth(job);
}

}  // namespace

RenderJob makeRenderJob(const RenderOptions& options) {
    RenderJob job;
    job.input = options.input;
    job.output = options.output;
    job.size = ifGiven(options.size, [](auto& text) { return parseSize("--size", text); });
    job.rate = ifGiven(options.rate, [](auto& text) { return parseFraction("--rate", text); });
    job.frames = ifGiven(options.frames, [](auto& text) { return parseFrames("--frames", text); });
    job.depth = ifGiven(options.depth, parseDepth);
    job.workers = ifGiven(options.workers, [](auto& text) {
        return parseWhole("--workers", text, 1, std::numeric_limits<int>::max());
    });
    job.projectSize =
        ifGiven(options.projectSize, [](auto& text) { return parseSize("--project-size", text); });
    job.region = ifGiven(options.region, [](auto& text) { return parseRegion("--region", text); });
    if (!options.pixelAspect.empty()) {
        job.pixelAspect = parseFraction("--pixel-aspect", options.pixelAspect).value();
    }
    readParameters(options, job);
    checkSize(job);
    checkOutput(job);
    return job;
}

}  // namespace ruvex::cli
