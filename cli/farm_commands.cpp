#include "cli/farm_commands.h"

#include <iostream>
#include <memory>

#include "cli/messages.h"
#include "cli/shell_text.h"
#include "cli/stop_signals.h"
#include "farm/batch_script.h"
#include "farm/cancelling.h"
#include "farm/submitting.h"

namespace ruvex::cli {
namespace {

std::string chunksText(std::int64_t count) {
    return std::to_string(count) + (count == 1 ? " chunk" : " chunks");
}

int resume(const std::string& folder) {
    const farm::Farm job(folder);
    const farm::Submission submission = submitMissing(job);
    std::string text = job.layout().folder().string() + ": ";
    if (submission.submitted + submission.joins + submission.queued == 0) {
        printMessage(text + "nothing is left to do.");
        return 0;
    }
    text += chunksText(submission.submitted) + " submitted";
    if (submission.joins > 0) {
        text += " and " + std::to_string(submission.joins) +
                (submission.joins == 1 ? " join" : " joins");
    }
    if (submission.complete > 0)
        text += ", " + std::to_string(submission.complete) + " done before";
    if (submission.queued > 0) text += ", " + std::to_string(submission.queued) + " in the queue";
    printMessage(text + ".");
    return 0;
}

int cancel(const std::string& folder) {
    const farm::Farm job(folder);
    const StopSignals signals;
    const std::int64_t ended = cancelAll(job, signals.token());
    printMessage(job.layout().folder().string() + ": " +
                 (ended == 0 ? "nothing was in the queue."
                             : "canceled; what is done stays, and 'ruvex farm resume' goes on."));
    return 0;
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
            folderCommand("farm resume", "Submit what a farm job has neither done nor in the queue",
                          "A chunk is done if its record and its files are there. Nothing that is "
                          "done is rendered again.",
                          "ruvex farm resume out.mov.farm", resume),
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
