#include "cli/run_command.h"

#include <memory>
#include <string>
#include <vector>

#include "cli/clip_render.h"
#include "cli/messages.h"
#include "cli/option_text.h"
#include "cli/shell_text.h"
#include "cli/talk_options.h"
#include "jobs/job_file.h"

namespace ruvex::cli {
namespace {

struct RunOptions {
    std::string job;
    std::string frames;
    bool resume = false;
    bool dryRun = false;
    TalkOptions talk{};
};

OptionTable runOptions(RunOptions& options) {
    OptionTable table = {
        {"JOB.json", "", "A job that --save-job has written", &options.job, true},
        {"-f,--frames", "A-B", "Render these frames only; default: those that the job names",
         &options.frames},
        {"--resume", "",
         "Continue a numbered sequence: files that are complete pictures of the right size are "
         "kept",
         &options.resume},
        {"--dry-run", "", "Report what would be done, and write nothing", &options.dryRun},
    };
    addTalkOptions(table, options.talk);
    return table;
}

/// The job with what the options change of it. The messages about it use the names of job files,
/// but for what was typed.
jobs::RenderJob chosenJob(const RunOptions& options, std::vector<std::string>& warnings) {
    jobs::RenderJob job = jobs::readJob(options.job, warnings);
    if (!options.frames.empty()) job.frames = parseFrames("--frames", options.frames);
    job.resume = job.resume || options.resume;
    return job;
}

int run(const RunOptions& options) {
    const Talk talk = talkOf(options.talk);
    std::vector<std::string> warnings;
    const jobs::RenderJob job = chosenJob(options, warnings);
    if (talk != Talk::Quiet) printWarnings(warnings);
    return renderClip(job, {.talk = talk,
                            .dryRun = options.dryRun,
                            .readFrom = {options.job},
                            .fieldText = jobFileText,
                            .repeat = [&](std::int64_t frame) {
                                RunOptions one{.job = options.job, .frames = std::to_string(frame)};
                                return commandText("run", runOptions(one));
                            }});
}

}  // namespace

Command runCommand() {
    const auto options = std::make_shared<RunOptions>();
    return {.name = "run",
            .summary = "Render a job that 'ruvex render --save-job' has saved",
            .options = runOptions(*options),
            .notes = "Relative file names in a job count from the folder of the job file.",
            .examples = {"ruvex run bad.json", "ruvex run bad.json --frames 100-199"},
            .run = [options] { return run(*options); }};
}

}  // namespace ruvex::cli
