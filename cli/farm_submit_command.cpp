#include <algorithm>
#include <filesystem>
#include <memory>
#include <utility>

#include "cli/farm_commands.h"
#include "cli/farm_options.h"
#include "cli/farm_words.h"
#include "cli/job_words.h"
#include "cli/messages.h"
#include "cli/several_clips.h"
#include "cli/shell_text.h"
#include "cli/typed_job.h"
#include "cli/usage_error.h"
#include "farm/absolute_name.h"
#include "farm/farm_error.h"
#include "farm/submitting.h"
#include "jobs/job_file.h"

namespace ruvex::cli {
namespace {

namespace fs = std::filesystem;

constexpr const char* kSubmitNotes =
    R"(The folder has to be on a disk that every machine sees under the same name, and so do clips and
results. A picture's rows are cut into 8 shares unless --workers names another number, so that every machine
makes the same bytes. Each task renders a chunk of the frames; a last one joins the chunks of a video, or
checks that all pictures of a sequence are there. Where there are more chunks than an array of the
scheduler holds (usually 1001), there are several arrays; with --max-tasks, each of them waits for the
whole one before it. A --dependency among the --sbatch options is that of the tasks.)";

bool isJobFile(const std::string& input) {
    return fs::path(input).extension() == ".json";
}

std::vector<jobs::RenderJob> savedJobs(FarmOptions& options, std::vector<std::string>& warnings) {
    if (const std::string given = givenRenderOption(options); !given.empty()) {
        throw UsageError(given + " does not go with a saved job, which says how it is rendered.");
    }
    if (options.render.inputs.size() > 1 && options.folder.empty()) {
        throw UsageError("Several jobs need a folder for the farm job: name it with --folder.");
    }
    std::vector<jobs::RenderJob> all;
    for (const std::string& input : options.render.inputs) {
        all.push_back(jobs::readJob(input, warnings));
    }
    return all;
}

/// Where the results of several clips go to a folder, the farm job is named after it.
fs::path folderFor(const FarmOptions& options, std::size_t clips) {
    if (!options.folder.empty() || clips == 1) return options.folder;
    return farm::absoluteName(options.render.output) += ".farm";
}

std::vector<jobs::RenderJob> typedJobs(const FarmOptions& options,
                                       std::vector<std::string>& warnings) {
    if (options.render.output.empty()) throw UsageError("--output is required.");
    std::vector<jobs::RenderJob> all;
    for (const RenderOptions& clip : clipsOf(options.render)) {
        // What is told of the look is told once.
        std::vector<std::string> again;
        all.push_back(typedJob(clip, all.empty() ? warnings : again));
    }
    makeResultFolder(options.render);
    return all;
}

/// Several renders of one clip have the same to say.
void removeRepeated(std::vector<jobs::Note>& notes) {
    std::vector<jobs::Note> kept;
    for (jobs::Note& note : notes) {
        const auto same = [&](const jobs::Note& other) {
            return other.field == note.field && other.sentence == note.sentence;
        };
        if (std::ranges::none_of(kept, same)) kept.push_back(std::move(note));
    }
    notes = std::move(kept);
}

farm::Farm madeFarm(FarmOptions& options, bool quiet) {
    std::vector<std::string> warnings;
    std::vector<jobs::Note> notes;
    farm::FarmWish wish = farmWish(options);
    const auto saved = std::ranges::count_if(options.render.inputs, isJobFile);
    if (saved > 0 && saved < std::ssize(options.render.inputs)) {
        throw UsageError("Saved jobs and clips do not go together. Submit them one after another.");
    }
    wish.jobs = saved > 0 ? savedJobs(options, warnings) : typedJobs(options, warnings);
    wish.folder = folderFor(options, wish.jobs.size());
    if (!options.noSubmit) wish.limits = farm::schedulerLimits();
    if (!quiet) printWarnings(warnings);
    farm::Farm job = makeFarm(wish, notes);
    removeRepeated(notes);
    if (!quiet) printNotes(notes, saved > 0 ? jobFileText : optionText);
    return job;
}

int submit(FarmOptions& options) {
    const bool quiet = talkOf(options.render.talk) == Talk::Quiet;
    const farm::Farm job = madeFarm(options, quiet);
    const std::string folder = job.layout().folder().string();
    if (options.noSubmit) {
        if (!quiet) {
            printMessage(folder + ": " + chunksText(job.job()) + ". 'ruvex farm plan " +
                         shellQuoted(folder) + "' prints the commands.");
        }
        return 0;
    }
    try {
        submitMissing(job);
    } catch (const farm::FarmError& error) {
        throw farm::FarmError(std::string(error.what()) + " The job is kept in " + folder +
                              "; 'ruvex farm resume' submits it.");
    }
    if (!quiet) {
        printMessage(folder + ": " + chunksText(job.job()) + " submitted. 'ruvex farm status " +
                     shellQuoted(folder) + " --watch' shows how far they are.");
    }
    return 0;
}

}  // namespace

Command farmSubmitCommand() {
    const auto options = std::make_shared<FarmOptions>();
    return {.name = "farm submit",
            .summary = "Render clips in chunks on many machines, through Slurm",
            .options = farmOptions(*options),
            .notes = kSubmitNotes,
            .examples = {"ruvex farm submit clip.mp4 -o out.mov --preset \"Bad Colour TV\"",
                         "ruvex farm submit job.json --chunk 500 --partition render --time 1:00:00",
                         "ruvex farm submit clip.mp4 other.mp4 -o results/ --preset worn-tape"},
            .run = [options] { return submit(*options); }};
}

}  // namespace ruvex::cli
