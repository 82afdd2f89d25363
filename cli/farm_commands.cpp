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
    "they "
    "did not complete.";

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

int plan(const std::string& folder) {
    const farm::Farm job(folder);
    for (std::int64_t chunk = 0; chunk < job.chunks(); ++chunk) printCommand(taskWords(job, chunk));
    for (std::size_t clip = 0; clip < job.job().clips.size(); ++clip) {
        printCommand(joinWords(job, clip));
    }
    return finishOutput();
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

/// A command that takes the folder of a farm job alone.
Command folderCommand(const char* name, const char* summary, const char* notes, const char* example,
                      int (*run)(const std::string& folder)) {
    const auto folder = std::make_shared<std::string>();
    return {.name = name,
            .summary = summary,
            .options = {{"FOLDER", "", "The folder of the farm job", folder.get(), true}},
            .notes = notes,
            .examples = {example},
            .run = [folder, run] { return run(*folder); }};
}

}  // namespace

std::vector<Command> farmCommands() {
    return {farmSubmitCommand(),
            farmStatusCommand(),
            farmResumeCommand(),
            folderCommand("farm cancel", "Take a farm job out of the queue",
                          "Tasks that run are ended, and the files that they did not complete are "
                          "removed. What is done\nstays.",
                          "ruvex farm cancel out.mov.farm", cancel),
            folderCommand("farm plan", "Print the commands of a farm job, for another scheduler",
                          "One command a line: every chunk, in any order and on any machine, and "
                          "when all have ended the joins.\nA command that fails may be repeated.",
                          "ruvex farm plan out.mov.farm", plan),
            farmTaskCommand(),
            farmJoinCommand()};
}

}  // namespace ruvex::cli
