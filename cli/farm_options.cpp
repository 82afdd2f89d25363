#include "cli/farm_options.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string_view>

#include "cli/option_text.h"
#include "cli/usage_error.h"
#include "cli/value_kind.h"
#include "looks/json_document.h"

namespace ruvex::cli {
namespace {

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

OptionTable farmOptions(FarmOptions& options) {
    OptionTable table = renderTable(options.render);
    const OptionTable farm = {
        {"--folder", "FOLDER",
         "Where the farm job is kept, seen by every machine; default: the output's name with .farm",
         &options.folder},
        {"--chunk", "FRAMES", "Frames that a task renders; default: 250", &options.chunk},
        {"--partition", "P", "Partition of the cluster; default: the scheduler's",
         &options.partition},
        {"--account", "A", "Account that the work is charged to; default: the scheduler's",
         &options.account},
        {"--time", "T",
         "Limit of a task, in the scheduler's words, as 1:00:00; default: the partition's",
         &options.time},
        {"--join-time", "T", "Limit of a join; default: that of --time", &options.joinTime},
        {"--max-tasks", "N", "Chunks that are rendered at a time; default: no limit",
         &options.maxTasks},
        {"--sbatch", "OPTION",
         "A further option of sbatch, as --sbatch=--mem=8G; may be given several times",
         &options.sbatch},
        {"--keep-chunks", "", "Do not remove the files of chunks after the join",
         &options.keepChunks},
        {"--no-submit", "", "Make the folder only; 'ruvex farm plan' prints the commands",
         &options.noSubmit},
    };
    table.insert(table.end(), farm.begin(), farm.end());
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
    constexpr int kMost = std::numeric_limits<int>::max();
    farm::FarmWish wish{.jobs = {},
                        .folder = options.folder,
                        .keepChunks = options.keepChunks,
                        .scheduler = {.partition = options.partition,
                                      .account = options.account,
                                      .time = options.time,
                                      .joinTime = options.joinTime,
                                      .extra = options.sbatch}};
    if (!options.chunk.empty()) wish.chunkFrames = parseWhole("--chunk", options.chunk, 1, kMost);
    if (!options.maxTasks.empty()) {
        wish.scheduler.maxTasks = parseWhole("--max-tasks", options.maxTasks, 1, kMost);
    }
    checkPlainText("--partition", options.partition);
    checkPlainText("--account", options.account);
    checkPlainText("--time", options.time);
    checkPlainText("--join-time", options.joinTime);
    for (const std::string& option : options.sbatch) checkPlainText("--sbatch", option);
    return wish;
}

}  // namespace ruvex::cli
