#include <algorithm>
#include <chrono>
#include <cstdio>
#include <iostream>
#include <map>
#include <memory>
#include <thread>
#include <unistd.h>
#include <utility>

#include "cli/amount_text.h"
#include "cli/exit_status.h"
#include "cli/farm_commands.h"
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
not known. The exit status is 0 when all is complete, 3 while something waits or runs, else 1.)";

/// "250 of 1000 frames, 10 of 40 chunks; 2 running, 28 waiting; 25.0 frames a second, 30 s left"
std::string lineOf(const FarmStatus& status) {
    std::string text = std::to_string(status.framesDone) + " of " + std::to_string(status.frames) +
                       " frames, " + std::to_string(status.chunksDone) + " of " +
                       std::to_string(status.chunks) + " chunks";
    if (status.complete()) return text + "; complete";
    if (status.queueKnown) {
        text += "; " + std::to_string(status.running) + " running, " +
                std::to_string(status.waiting) + " waiting";
    }
    if (!status.failed.empty()) text += ", " + std::to_string(status.failed.size()) + " failed";
    if (status.joinRuns) return text + "; joining";
    if (status.joinWaits && status.running + status.waiting == 0) return text + "; the join waits";
    if (status.framesPerSecond > 0.0 && (status.running > 0 || !status.queueKnown)) {
        text += "; " + oneDecimal(status.framesPerSecond) + " frames a second";
    }
    if (const auto left = status.secondsLeft(); left && *left > 0.0) {
        text += ", " + durationText(*left) + " left";
    }
    return text;
}

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

void printDetails(const FarmStatus& status) {
    printFailures(status.failed);
    for (const std::string& reason : status.held) {
        std::cout << "The scheduler holds tasks back: " << files::printable(reason) << ".\n";
    }
    if (!status.queueKnown && !status.complete()) {
        std::cout << (status.queueFault.empty() ? "Slurm is not installed here."
                                                : files::printable(status.queueFault))
                  << " What waits or runs is not known.\n";
    } else if (!status.underWay() && !status.complete()) {
        if (status.absent > 0) {
            std::cout << status.absent << (status.absent == 1 ? " chunk is" : " chunks are")
                      << " neither done nor in the queue.\n";
        }
        std::cout << "'ruvex farm resume' submits what is missing.\n";
    }
}

int statusCode(const FarmStatus& status) {
    return status.complete() ? kDone : status.underWay() ? kUnderWay : kFailed;
}

int print(const FarmStatus& status) {
    std::cout << lineOf(status) << '\n';
    printDetails(status);
    const int written = finishOutput();
    return written == kDone ? statusCode(status) : written;
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

/// On a terminal one line that changes, elsewhere a line whenever it has changed.
int watch(const farm::Farm& job) {
    const bool terminal = isatty(STDOUT_FILENO) != 0;
    const StopSignals signals;
    farm::StatusReader reader(job);
    std::string before;
    for (;;) {
        const FarmStatus status = reader.read();
        const std::string line = lineOf(status);
        const bool over = !status.underWay();
        if (terminal) {
            std::cout << '\r' << line
                      << std::string(before.size() > line.size() ? before.size() - line.size() : 0,
                                     ' ')
                      << (over ? "\n" : "") << std::flush;
        } else if (line != before) {
            std::cout << line << std::endl;
        }
        before = line;
        if (over) {
            printDetails(status);
            const int written = finishOutput();
            return written == kDone ? statusCode(status) : written;
        }
        pause(2000ms, signals.token());
        if (signals.token().stop_requested()) {
            if (terminal) std::cout << std::endl;
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
