#include "cli/farm_options.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string_view>

#include "cli/option_text.h"
#include "cli/usage_error.h"
#include "cli/value_kind.h"
#include "farm/sbatch_options.h"
#include "looks/json_document.h"

namespace ruvex::cli {
namespace {

constexpr int kMostOfAWhole = std::numeric_limits<int>::max();

/// They belong to a render on this machine.
bool staysHere(const Option& option) {
    static constexpr std::array<std::string_view, 5> kNames = {
        "--dry-run", "--save-job", "--save-params", "--input-format", "--output-format"};
    return std::ranges::count(kNames, longName(option)) > 0;
}

static_assert(farm::kUsualWorkers == 8 && farm::kUsualEncoderThreads == 8,
              "the help below names these numbers");

/// The options of a render. A job that was saved has its output.
OptionTable renderTable(RenderOptions& options) {
    OptionTable table = renderOptions(options);
    std::erase_if(table, staysHere);
    for (Option& option : table) {
        if (longName(option) == "--output") option.required = false;
        if (longName(option) == "--workers") {
            option.help =
                "Shares that each picture is cut into, the same on every machine; default: 8";
        }
        if (longName(option) == "--encoder-threads") {
            option.help =
                "Threads of the video encoder, the same on every machine; default: 8. With more "
                "than one, the bit rate of H.264 and H.265 has no limit";
        }
        if (isPlace(option)) {
            option.help =
                "Clips to render, or jobs (.json) that 'ruvex render --save-job' has "
                "written; several clips, if the output is a folder";
        }
    }
    return table;
}

bool isGiven(bool value) {
    return value;
}

template <class Value>
bool isGiven(const Value& value) {
    return !value.empty();
}

/// What --sbatch gives goes into a JSON file and to another program.
void checkPlainText(const std::string& option, const std::string& text) {
    if (looks::isUtf8(text)) return;
    throw UsageError(option + ": " + "the text is not UTF-8.");
}

}  // namespace

OptionTable schedulerOptions(SchedulerWords& words, SubmissionKind kind) {
    const auto help = [&](const char* first, const char* later) {
        return kind == SubmissionKind::First ? first : later;
    };
    return {
        {"--partition", "P",
         help("Partition of the cluster; default: the scheduler's",
              "Partition of the cluster; default: as submitted"),
         &words.partition},
        {"--account", "A",
         help("Account that the work is charged to; default: the scheduler's",
              "Account that the work is charged to; default: as submitted"),
         &words.account},
        {"--time", "T",
         help("Limit of a task, in the scheduler's words, as 1:00:00; default: the partition's",
              "Limit of a task, in the scheduler's words, as 1:00:00; default: as submitted"),
         &words.time},
        {"--join-time", "T",
         help("Limit of a join; default: that of --time", "Limit of a join; default: as submitted"),
         &words.joinTime},
        {"--max-tasks", "N",
         help("Chunks that are rendered at a time; default: no limit",
              "Chunks of this submission that are rendered at a time; default: as submitted"),
         &words.maxTasks},
        {"--sbatch", "OPTION",
         help("A further option of sbatch, as --sbatch=--mem=8G; may be given several times",
              "A further option of sbatch, in place of all that were submitted; may be given "
              "several times"),
         &words.sbatch},
    };
}

farm::SchedulerOptions parsedScheduler(const SchedulerWords& words) {
    checkPlainText("--partition", words.partition);
    checkPlainText("--account", words.account);
    checkPlainText("--time", words.time);
    checkPlainText("--join-time", words.joinTime);
    for (const std::string& option : words.sbatch) checkPlainText("--sbatch", option);
    if (const std::string fault = farm::faultIn(words.sbatch); !fault.empty()) {
        throw UsageError("--sbatch: " + fault);
    }
    farm::SchedulerOptions options{.partition = words.partition,
                                   .account = words.account,
                                   .time = words.time,
                                   .joinTime = words.joinTime,
                                   .extra = words.sbatch};
    if (!words.maxTasks.empty()) {
        options.maxTasks = parseWhole("--max-tasks", words.maxTasks, 1, kMostOfAWhole);
    }
    return options;
}

OptionTable farmOptions(FarmOptions& options) {
    OptionTable table = renderTable(options.render);
    const OptionTable farm = {
        {"--folder", "FOLDER",
         "Where the farm job is kept, seen by every machine; default: the output's name with .farm",
         &options.folder},
        {"--chunk", "FRAMES", "Frames that a task renders; default: 250", &options.chunk},
        {"--keep-chunks", "", "Do not remove the files of chunks after the join",
         &options.keepChunks},
        {"--no-submit", "", "Make the folder only; 'ruvex farm plan' prints the commands",
         &options.noSubmit},
    };
    const OptionTable scheduler = schedulerOptions(options.scheduler, SubmissionKind::First);
    table.insert(table.end(), farm.begin(), farm.end());
    table.insert(table.end(), scheduler.begin(), scheduler.end());
    return table;
}

std::string givenRenderOption(FarmOptions& options) {
    for (const Option& option : renderTable(options.render)) {
        const std::string name = longName(option);
        if (isPlace(option) || name == "--quiet" || name == "--verbose") continue;
        if (std::visit([](const auto* value) { return isGiven(*value); }, option.value)) {
            return name;
        }
    }
    return "";
}

farm::FarmWish farmWish(const FarmOptions& options) {
    farm::FarmWish wish{.jobs = {},
                        .folder = options.folder,
                        .keepChunks = options.keepChunks,
                        .scheduler = parsedScheduler(options.scheduler)};
    if (!options.chunk.empty()) {
        wish.chunkFrames = parseWhole("--chunk", options.chunk, 1, kMostOfAWhole);
    }
    return wish;
}

}  // namespace ruvex::cli
