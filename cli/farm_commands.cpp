#include "cli/farm_commands.h"

#include <iostream>
#include <memory>

#include "cli/exit_status.h"
#include "cli/farm_options.h"
#include "cli/farm_words.h"
#include "cli/messages.h"
#include "cli/shell_text.h"
#include "cli/stop_signals.h"
#include "farm/batch_script.h"
#include "farm/cancelling.h"
#include "farm/submitting.h"

namespace ruvex::cli {
namespace {

struct ResumeOptions {
    std::string folder;
    SchedulerWords scheduler;
};

constexpr const char* kResumeNotes =
    R"(A chunk is done if its record and its files are there. Nothing that is done is rendered again, and what
waits or runs is left as it is: 'ruvex farm cancel' first, if it is to get other options too. The options
are those of this submission alone. While tasks of an earlier one run, --max-tasks does not count them.)";

constexpr const char* kCancelStopped =
    "stopped before all tasks had ended; 'ruvex farm cancel' again ends the rest and removes what "
    "they did not complete.";

int resume(const ResumeOptions& options) {
    const farm::SchedulerOptions scheduler = parsedScheduler(options.scheduler);
    const farm::Farm job(options.folder);
    const farm::Submission submission = submitMissing(job, scheduler);
    printMessage(job.layout().folder().string() + ": " + resumeText(submission) + ".");
    return kDone;
}

int cancel(const std::string& folder) {
    const farm::Farm job(folder);
    const StopSignals signals({}, kCancelStopped);
    const std::string place = job.layout().folder().string() + ": ";
    switch (cancelAll(job, signals.token())) {
        case farm::CancelEnd::NothingQueued:
            printMessage(place + "nothing was in the queue.");
            return kDone;
        case farm::CancelEnd::Stopped:
            printMessage(kCancelStopped);
            return kStopped;
        default:
            printMessage(place + "cancelled; what is done stays, and 'ruvex farm resume' goes on.");
            return kDone;
    }
}

void printCommand(const std::vector<std::string>& words) {
    std::string line = "ruvex farm";
    for (const std::string& word : words) line.append(" ").append(shellQuoted(word));
    std::cout << line << '\n';
}

struct PlanOptions {
    std::string folder;
    bool tasks = false;
    bool joins = false;
};

int plan(const PlanOptions& options) {
    const farm::Farm job(options.folder);
    const bool all = options.tasks == options.joins;
    const std::int64_t chunks = all || options.tasks ? job.chunks() : 0;
    const std::size_t clips = all || options.joins ? job.job().clips.size() : 0;
    for (std::int64_t chunk = 0; chunk < chunks; ++chunk) printCommand(taskWords(job, chunk));
    for (std::size_t clip = 0; clip < clips; ++clip) printCommand(joinWords(job, clip));
    return finishOutput();
}

Command farmPlanCommand() {
    const auto options = std::make_shared<PlanOptions>();
    return {
        .name = "farm plan",
        .summary = "Print the commands of a farm job, for another scheduler",
        .options = {{"FOLDER", "", "The folder of the farm job", &options->folder, true},
                    {"--tasks", "", "Those of the chunks alone", &options->tasks},
                    {"--joins", "", "Those of the joins alone", &options->joins}},
        .notes =
            "One command a line: every chunk, in any order and on any machine, and when all "
            "have ended the joins.\nA command that fails may be repeated.",
        .examples = {"ruvex farm plan out.mov.farm", "ruvex farm plan out.mov.farm --joins | sh"},
        .run = [options] { return plan(*options); }};
}

Command farmResumeCommand() {
    const auto options = std::make_shared<ResumeOptions>();
    OptionTable table = {{"FOLDER", "", "The folder of the farm job", &options->folder, true}};
    const OptionTable scheduler = schedulerOptions(options->scheduler, SubmissionKind::Later);
    table.insert(table.end(), scheduler.begin(), scheduler.end());
    return {.name = "farm resume",
            .summary = "Submit what a farm job has neither done nor in the queue",
            .options = table,
            .notes = kResumeNotes,
            .examples = {"ruvex farm resume out.mov.farm",
                         "ruvex farm resume out.mov.farm --time 2:00:00 --sbatch=--mem=16G"},
            .run = [options] { return resume(*options); }};
}

Command farmCancelCommand() {
    const auto folder = std::make_shared<std::string>();
    return {.name = "farm cancel",
            .summary = "Take a farm job out of the queue",
            .options = {{"FOLDER", "", "The folder of the farm job", folder.get(), true}},
            .notes =
                "Tasks that run are ended, and the files that they did not complete are "
                "removed. What is done\nstays.",
            .examples = {"ruvex farm cancel out.mov.farm"},
            .run = [folder] { return cancel(*folder); }};
}

}  // namespace

std::vector<Command> farmCommands() {
    return {farmSubmitCommand(), farmStatusCommand(), farmResumeCommand(), farmCancelCommand(),
            farmPlanCommand(),   farmTaskCommand(),   farmJoinCommand()};
}

}  // namespace ruvex::cli
