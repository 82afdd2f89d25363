#include <algorithm>
#include <chrono>
#include <cstdio>
#include <iostream>
#include <map>
#include <memory>
#include <thread>
#include <utility>
#include <vector>

#include "cli/exit_status.h"
#include "cli/farm_commands.h"
#include "cli/farm_words.h"
#include "cli/live_line.h"
#include "cli/messages.h"
#include "cli/stop_signals.h"
#include "cli/usage_error.h"
#include "farm/status.h"
#include "files/words.h"
#include "looks/json_document.h"

namespace ruvex::cli {
namespace {

using farm::FarmStatus;
using namespace std::chrono_literals;

struct StatusOptions {
    std::string folder;
    bool watch = false;
    bool json = false;
};

constexpr const char* kStatusNotes =
    R"(Reads the records of the chunks that are done, the queue of the scheduler, and what tasks have printed;
it works without the scheduler's accounting, and on a machine without the scheduler, where what is queued is
not known. The time left is that until the chunks are rendered; joins come after it. --watch goes on while
the scheduler does not answer. The exit status is 0 when all is complete, 3 while something waits or runs,
else 1.)";

/// Failures for one reason on one machine are told once.
void printFailures(const std::vector<farm::FailedPart>& failed) {
    constexpr std::size_t kMostShown = 20;
    std::map<std::pair<std::string, std::string>, std::size_t> counts;
    for (const farm::FailedPart& part : failed) ++counts[{part.host, part.sentence}];
    std::size_t shown = 0;
    for (const farm::FailedPart& part : failed) {
        auto& count = counts[{part.host, part.sentence}];
        if (count == 0) continue;
        if (++shown > kMostShown) {
            std::cout << "There are more failures, for other reasons.\n";
            return;
        }
        std::cout << part.what;
        if (count > 1) std::cout << " and " << count - 1 << " more";
        std::cout << " failed" << (part.host.empty() ? "" : " on " + files::printable(part.host))
                  << ": " << files::printable(part.sentence) << '\n';
        count = 0;
    }
}

/// Why nothing runs, or will not run by itself.
void printObstacles(const FarmStatus& status) {
    for (const std::string& reason : status.obstacles) {
        std::cout
            << "Tasks wait, and the scheduler gives a reason that may last: "
            << files::printable(reason)
            << ". If it does, 'ruvex farm cancel', and 'ruvex farm resume' with other options.\n";
    }
}

void printDetails(const FarmStatus& status) {
    printFailures(status.failed);
    printObstacles(status);
    if (!status.queueKnown && !status.complete()) {
        std::cout << (status.queueFault.empty() ? "Slurm is not installed here."
                                                : files::printable(status.queueFault))
                  << " What waits or runs is not known.\n";
    } else if (!status.underWay() && !status.complete()) {
        if (status.absent > 0) {
            std::cout << countText(status.absent, "chunk") << (status.absent == 1 ? " is" : " are")
                      << " neither done nor in the queue.\n";
        }
        std::cout << "'ruvex farm resume' submits what is missing.\n";
    }
}

int statusCode(const FarmStatus& status) {
    return status.complete() ? kDone : status.underWay() ? kUnderWay : kFailed;
}

int print(const FarmStatus& status) {
    std::cout << statusLine(status) << '\n';
    printDetails(status);
    const int written = finishOutput();
    return written == kDone ? statusCode(status) : written;
}

std::vector<std::string> printable(std::vector<std::string> texts) {
    for (std::string& text : texts) text = files::printable(text);
    return texts;
}

int printJson(const FarmStatus& status) {
    looks::Json failed = looks::Json::array();
    for (const farm::FailedPart& part : status.failed) {
        failed.push_back({{"what", files::printable(part.what)},
                          {"host", files::printable(part.host)},
                          {"sentence", files::printable(part.sentence)}});
    }
    looks::Json json = {{"complete", status.complete()},
                        {"frames", status.frames},
                        {"framesDone", status.framesDone},
                        {"chunks", status.chunks},
                        {"chunksDone", status.chunksDone},
                        {"clips", status.clips},
                        {"clipsComplete", status.clipsComplete},
                        {"queueKnown", status.queueKnown},
                        {"running", status.running},
                        {"waiting", status.waiting},
                        {"joining", status.joinRuns},
                        {"framesPerSecond", status.framesPerSecond},
                        {"absent", status.absent},
                        {"obstacles", printable(status.obstacles)},
                        {"failed", failed}};
    if (const auto left = status.secondsLeft()) json["secondsLeft"] = *left;
    std::cout << json.dump(2) << '\n';
    const int written = finishOutput();
    return written == kDone ? statusCode(status) : written;
}

/// Waits, but not after a stop.
void pause(std::chrono::milliseconds time, const std::stop_token& stop) {
    constexpr auto kStep = 100ms;
    for (auto waited = 0ms; waited < time && !stop.stop_requested(); waited += kStep) {
        std::this_thread::sleep_for(kStep);
    }
}

/// Whether there is nothing left to wait for. While the queue does not answer, nobody knows.
bool isOver(const FarmStatus& status) {
    return status.complete() || (!status.underWay() && status.queueFault.empty());
}

/// On a terminal one line that changes, elsewhere a line whenever it has changed.
int watch(const farm::Farm& job) {
    const StopSignals signals({}, "stopped watching; the farm job goes on.");
    LiveLine live(stdout);
    farm::StatusReader reader(job);
    std::string before;
    for (;;) {
        const FarmStatus status = reader.read();
        const std::string line = statusLine(status);
        if (live.onTerminal()) {
            live.show(line);
        } else if (line != before) {
            std::cout << line << std::endl;
        }
        before = line;
        if (isOver(status)) {
            live.end();
            printDetails(status);
            const int written = finishOutput();
            return written == kDone ? statusCode(status) : written;
        }
        pause(2000ms, signals.token());
        if (signals.token().stop_requested()) {
            live.end();
            return kStopped;
        }
    }
}

int run(const StatusOptions& options) {
    if (options.watch && options.json) {
        throw UsageError("--watch and --json exclude each other. Choose one.");
    }
    const farm::Farm job(options.folder);
    if (options.watch) return watch(job);
    const FarmStatus status = farm::StatusReader(job).read();
    return options.json ? printJson(status) : print(status);
}

}  // namespace

Command farmStatusCommand() {
    const auto options = std::make_shared<StatusOptions>();
    return {
        .name = "farm status",
        .summary = "Tell how far a farm job is, and what failed",
        .options = {{"FOLDER", "", "The folder of the farm job", &options->folder, true},
                    {"--watch", "", "Go on telling until nothing waits or runs", &options->watch},
                    {"--json", "", "The same as JSON", &options->json}},
        .notes = kStatusNotes,
        .examples = {"ruvex farm status out.mov.farm", "ruvex farm status out.mov.farm --watch"},
        .run = [options] { return run(*options); }};
}

}  // namespace ruvex::cli
