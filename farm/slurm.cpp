#include "farm/slurm.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <sstream>
#include <string_view>

#include "farm/farm_error.h"
#include "farm/number_list.h"
#include "farm/process.h"
#include "farm/sbatch_options.h"
#include "files/words.h"

namespace ruvex::farm {
namespace {

/// Enough for a task to remove what is incomplete, and little of any limit on time.
constexpr const char* kSecondsBeforeKill = "30";

std::string firstLine(const std::string& text) {
    return files::printable(text.substr(0, text.find('\n')));
}

/// The first line of what a program says of its failure, as a sentence without the program's name.
std::string reasonIn(const std::string& program, const std::string& err) {
    std::string line = firstLine(err);
    for (const std::string& start : {program + ": ", std::string("error: ")}) {
        if (line.starts_with(start)) line.erase(0, start.size());
    }
    if (line.empty()) return "it gives no reason.";
    return line.ends_with('.') ? line : line + ".";
}

/// Throws FarmError unless the program has ended with 0.
void checkEnd(const std::string& program, const ProcessResult& result) {
    if (result.status == 0) return;
    throw FarmError(program + " failed: " + reasonIn(program, result.err));
}

[[noreturn]] void refuseWithoutSlurm(const Farm& farm) {
    throw FarmError("Slurm is not installed here: 'ruvex farm plan " +
                    farm.layout().folder().string() +
                    "' prints the commands for another scheduler.");
}

void addIfGiven(std::vector<std::string>& words, const char* option, const std::string& value) {
    if (!value.empty()) words.push_back(option + value);
}

std::string timeOf(const SchedulerOptions& options, Work work) {
    return work == Work::Join && !options.joinTime.empty() ? options.joinTime : options.time;
}

/// The list of elements, "0-5,7%20".
std::string elementsOf(const NewArray& array, const SchedulerOptions& options) {
    std::vector<std::int64_t> elements;
    for (const std::int64_t number : array.numbers) elements.push_back(number - array.name.first);
    std::string text = numberList(elements);
    if (options.maxTasks && array.name.work == Work::Task) {
        text.append("%").append(std::to_string(*options.maxTasks));
    }
    return text;
}

/// The further options for this array.
std::vector<std::string> extraWords(const SchedulerOptions& options, const NewArray& array) {
    std::vector<std::string> words = withoutDependency(options.extra);
    if (array.name.work == Work::Task && array.after.empty()) {
        const std::vector<std::string> dependency = dependencyIn(options.extra);
        words.insert(words.end(), dependency.begin(), dependency.end());
    }
    return words;
}

std::vector<std::string> wordsFor(const Farm& farm, const SchedulerOptions& options,
                                  const NewArray& array) {
    std::vector<std::string> words = {
        "sbatch",
        "--parsable",
        "--job-name=" + toText(array.name, farm.job()),
        "--array=" + elementsOf(array, options),
        "--chdir=" + farm.layout().folder().string(),
        // %x is the name, %a the number of the element.
        "--output=logs/%x_%a.txt",
        "--open-mode=append",
        "--requeue",
        std::string("--signal=B:TERM@") + kSecondsBeforeKill,
    };
    addIfGiven(words, "--partition=", options.partition);
    addIfGiven(words, "--account=", options.account);
    addIfGiven(words, "--time=", timeOf(options, array.name.work));
    std::string after;
    for (const ArrayId id : array.after) after.append(":").append(std::to_string(id));
    addIfGiven(words, "--dependency=afterany", after);
    const std::vector<std::string> extra = extraWords(options, array);
    words.insert(words.end(), extra.begin(), extra.end());
    words.insert(words.end(), {farm.layout().script().string(), wordOf(array.name.work),
                               std::to_string(array.name.first)});
    return words;
}

std::optional<std::int64_t> wholeNumber(const std::string& text) {
    std::int64_t number = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool whole = read.ec == std::errc() && read.ptr == text.data() + text.size();
    return whole ? std::optional(number) : std::nullopt;
}

std::optional<QueuedElement> elementIn(const FarmJob& job, const std::string& line) {
    std::istringstream stream(line);
    std::string name;
    std::string array;
    std::string index;
    QueuedElement element;
    for (std::string* part : {&name, &array, &index, &element.state, &element.node}) {
        std::getline(stream, *part, '|');
    }
    std::getline(stream, element.reason);
    const auto known = arrayNamed(name, job);
    const auto id = wholeNumber(array);
    const auto number = wholeNumber(index);
    if (!known || !id || !number) return std::nullopt;
    element.array = *id;
    element.work = known->work;
    element.number = known->first + *number;
    return element;
}

bool hasEnded(const std::string& state) {
    static constexpr std::array<std::string_view, 9> kEnds = {
        "BOOT_FAIL", "CANCELLED",     "COMPLETED", "DEADLINE", "FAILED",
        "NODE_FAIL", "OUT_OF_MEMORY", "PREEMPTED", "TIMEOUT"};
    return std::ranges::count(kEnds, state) > 0;
}

}  // namespace

ArrayId submitArray(const Farm& farm, const SchedulerOptions& options, const NewArray& array) {
    const auto result = runProgram(wordsFor(farm, options, array));
    if (!result) refuseWithoutSlurm(farm);
    checkEnd("sbatch", *result);
    // "123", or "123;CLUSTER".
    const std::string answer = firstLine(result->out);
    if (const auto id = wholeNumber(answer.substr(0, answer.find(';')))) return *id;
    throw FarmError("sbatch names no number of a job: it says '" + answer + "'.");
}

Queue parseQueue(const FarmJob& job, const std::string& text) {
    Queue queue;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        auto element = elementIn(job, line);
        if (!element) continue;
        const bool ended = hasEnded(element->state);
        element->running = !ended && element->state != "PENDING";
        (ended ? queue.ended : queue.elements).push_back(*std::move(element));
    }
    return queue;
}

std::optional<Queue> queueOf(const FarmJob& job) {
    const auto result = runProgram({"squeue", "--noheader", "--array", "--states=all",
                                    "--name=" + allArrayNames(job), "--format=%j|%F|%K|%T|%N|%r"});
    if (!result) return std::nullopt;
    checkEnd("squeue", *result);
    return parseQueue(job, result->out);
}

void cancelArrays(std::span<const ArrayId> arrays, Cancel which) {
    if (arrays.empty()) return;
    std::vector<std::string> words = {"scancel"};
    if (which == Cancel::Waiting) words.push_back("--state=PENDING");
    for (const ArrayId array : arrays) words.push_back(std::to_string(array));
    const auto result = runProgram(words);
    if (!result) throw FarmError("Slurm is not installed here: there is no program scancel.");
    checkEnd("scancel", *result);
}

}  // namespace ruvex::farm
