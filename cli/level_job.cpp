#include "cli/level_job.h"

#include <optional>
#include <utility>

#include "cli/job_words.h"
#include "cli/media_options.h"
#include "cli/option_text.h"
#include "cli/parameter_choice.h"
#include "cli/usage_error.h"
#include "files/words.h"
#include "jobs/clip_choice.h"
#include "jobs/files_written.h"
#include "jobs/render_job.h"
#include "media/frame_reader.h"

namespace ruvex::cli {
namespace {

struct Choices {
    std::optional<media::Rational> rate;
    std::optional<jobs::FrameRange> frames;
    std::optional<media::FrameSize> size;
};

Choices choicesOf(const LevelOptions& options) {
    Choices choices;
    if (!options.rate.empty()) choices.rate = parseFraction("--rate", options.rate);
    if (!options.frames.empty()) choices.frames = parseFrames("--frames", options.frames);
    if (!options.size.empty()) choices.size = parseSize("--size", options.size);
    return choices;
}

void checkPlotName(const LevelOptions& options) {
    const std::filesystem::path plot = options.plot;
    if (!plot.empty() && files::lowerCase(plot.extension().string()) != ".svg") {
        throw UsageError("--plot: " + options.plot +
                         " is not the name of an SVG picture. Use one that ends in .svg.");
    }
}

void chooseWithoutClip(const Choices& choices, LevelJob& job) {
    if (!choices.frames) {
        throw UsageError("Without an input, say which frames (--frames A-B).");
    }
    if (choices.size) {
        throw UsageError("--size is for raw input frames, and there is no input.");
    }
    job.rate = choices.rate.value_or(jobs::kUsualRate);
    job.frames = *choices.frames;
}

void chooseFromClip(const std::filesystem::path& input, const Choices& choices, LevelJob& job) {
    std::vector<jobs::Note> notes;
    inOptionWords([&] {
        jobs::checkNoStream(input);
        jobs::checkRawSize({.input = input, .size = choices.size});
        const auto reader = media::openReader(input, {.size = choices.size, .rate = choices.rate});
        job.rate = chooseRate(input, reader->info(), choices.rate, notes);
        job.frames = chooseFrames(input, reader->info(), choices.frames);
    });
    for (const jobs::Note& note : notes) {
        job.warnings.push_back(sentenceOf(note));
    }
}

/// A look may be saved over the file that it was read from.
void checkReadFilesKept(const LevelOptions& options) {
    jobs::FilesWritten plot;
    plot.add(options.plot);
    jobs::FilesWritten all = plot;
    all.add(options.parameters.saveParams);
    if (!options.input.empty()) all.checkInputKept(options.input);
    for (const std::filesystem::path& look : lookFilesOf(options.parameters)) {
        plot.checkKept(look, "look file");
    }
}

}  // namespace

OptionTable levelOptions(LevelOptions& options) {
    OptionTable table = {{"INPUT", "",
                          "A clip, for its rate and its frames; its pictures do not matter",
                          &options.input}};
    const OptionTable parameters = parameterOptions(options.parameters);
    table.insert(table.end(), parameters.begin(), parameters.end());
    const OptionTable list = {
        {"-f,--frames", "A-B",
         "First and last frame, inclusive, or one frame; default: all of the clip. Required "
         "without "
         "INPUT",
         &options.frames},
        {"--rate", "R", kRateHelp, &options.rate},
        {"--size", "WxH", "Size of raw input frames", &options.size},
        {"--csv", "", "Comma-separated values with all their digits, instead of a table",
         &options.csv},
        {"--plot", "FILE.svg", "Also draw the level over time, with the threshold of every stage",
         &options.plot},
    };
    table.insert(table.end(), list.begin(), list.end());
    return table;
}

LevelJob makeLevelJob(const LevelOptions& options) {
    LevelJob job;
    const Choices choices = choicesOf(options);
    checkPlotName(options);
    inOptionWords([&] { checkReadFilesKept(options); });
    job.plot = options.plot;
    job.saveParams = options.parameters.saveParams;
    looks::Look look = readParameters(options.parameters, job.warnings);
    job.parameters = std::move(look.changes);
    job.projectSize = look.projectSize;
    if (options.input.empty()) {
        chooseWithoutClip(choices, job);
    } else {
        chooseFromClip(options.input, choices, job);
    }
    return job;
}

}  // namespace ruvex::cli
