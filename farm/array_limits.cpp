#include "farm/array_limits.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <sstream>

#include "farm/farm_error.h"
#include "farm/process.h"

namespace ruvex::farm {
namespace {

/// The value of a setting, "1001" of "MaxArraySize            = 1001"; empty for other lines.
std::string valueIn(const std::string& line, const std::string& setting) {
    const std::size_t equals = line.find('=');
    if (equals == std::string::npos || !line.starts_with(setting)) return "";
    if (line.find_first_not_of(' ', setting.size()) != equals) return "";
    const std::size_t value = line.find_first_not_of(' ', equals + 1);
    return value == std::string::npos ? "" : line.substr(value);
}

/// The number with which the text begins.
std::optional<std::int64_t> numberAtStart(const std::string& text) {
    std::int64_t number = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    return read.ec == std::errc() ? std::optional(number) : std::nullopt;
}

/// Of "batch_sched_delay=0,max_array_tasks=500"; empty without such a part.
std::optional<std::int64_t> mostTasksIn(const std::string& parameters) {
    const std::string name = "max_array_tasks=";
    const std::size_t at = parameters.find(name);
    return at == std::string::npos ? std::nullopt
                                   : numberAtStart(parameters.substr(at + name.size()));
}

/// Chunks and joins, if chunks had so many frames.
std::int64_t elementsWith(FarmJob job, std::int64_t chunkFrames) {
    job.chunkFrames = chunkFrames;
    std::int64_t elements = std::ssize(job.clips);
    for (const FarmClip& clip : job.clips) elements += chunksOf(job, clip);
    return elements;
}

/// The least length of chunks with which the job has at most so many elements; 0 if there is none.
std::int64_t fittingChunk(const FarmJob& job, std::int64_t elements) {
    if (2 * std::ssize(job.clips) > elements) return 0;  // A chunk and a join a clip.
    std::int64_t tooShort = job.chunkFrames;
    std::int64_t fits = tooShort;
    for (const FarmClip& clip : job.clips) fits = std::max(fits, clip.frames.count());
    while (fits - tooShort > 1) {
        const std::int64_t middle = tooShort + (fits - tooShort) / 2;
        (elementsWith(job, middle) <= elements ? fits : tooShort) = middle;
    }
    return fits;
}

}  // namespace

ArrayLimits parseLimits(const std::string& config) {
    ArrayLimits limits;
    std::optional<std::int64_t> mostTasks;
    std::istringstream lines(config);
    for (std::string line; std::getline(lines, line);) {
        if (const auto size = numberAtStart(valueIn(line, "MaxArraySize"))) {
            limits.arrayLength = *size;
        } else if (const auto count = numberAtStart(valueIn(line, "MaxJobCount"))) {
            limits.queueLength = *count;
        } else if (const auto most = mostTasksIn(valueIn(line, "SchedulerParameters"))) {
            mostTasks = most;
        }
    }
    if (mostTasks) limits.arrayLength = std::min(limits.arrayLength, *mostTasks);
    if (limits.arrayLength >= 1) return limits;
    throw FarmError(
        "Slurm is set up without arrays of jobs (MaxArraySize or max_array_tasks): --no-submit "
        "makes the farm job, and 'ruvex farm plan' prints its commands for another scheduler.");
}

ArrayLimits schedulerLimits() {
    const auto result = runProgram({"scontrol", "show", "config"});
    return result && result->status == 0 ? parseLimits(result->out) : ArrayLimits();
}

void checkLimits(const FarmJob& job, const ArrayLimits& limits) {
    const std::int64_t elements = elementsWith(job, job.chunkFrames);
    if (elements <= limits.queueLength) return;
    const std::int64_t fits = fittingChunk(job, limits.queueLength);
    const std::size_t joins = job.clips.size();
    throw FarmError("The " + std::to_string(chunksOf(job)) + " chunks and " +
                    std::to_string(joins) + (joins == 1 ? " join" : " joins") +
                    " are more than the " + std::to_string(limits.queueLength) +
                    " jobs that Slurm takes here (MaxJobCount): " +
                    (fits > 0 ? "use --chunk " + std::to_string(fits) + " or more."
                              : "submit fewer clips at a time."));
}

}  // namespace ruvex::farm
