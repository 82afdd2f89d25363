// The options of `ruvex farm submit`, as typed.

#pragma once

#include <string>
#include <vector>

#include "cli/render_options.h"
#include "farm/make_farm.h"

namespace ruvex::cli {

/// How the scheduler is asked. Empty where an option was not given.
struct SchedulerWords {
    std::string partition;
    std::string account;
    std::string time;
    std::string joinTime;
    std::string maxTasks;
    std::vector<std::string> sbatch;
};

/// Empty where an option was not given.
struct FarmOptions {
    RenderOptions render;
    std::string folder;
    std::string chunk;
    SchedulerWords scheduler;
    bool keepChunks = false;
    bool noSubmit = false;
};

/// Of a job: what is not given the first time is left to the scheduler, and later is as it was.
enum class SubmissionKind { First, Later };

/// --partition and so on.
OptionTable schedulerOptions(SchedulerWords& words, SubmissionKind kind);

/// Throws UsageError for a number that is none, and for options of sbatch that the farm needs as it
/// sets them.
farm::SchedulerOptions parsedScheduler(const SchedulerWords& words);

/// The options of a render that many machines can do, and those of the farm.
OptionTable farmOptions(FarmOptions& options);

/// The long name of an option of the render itself that was given; empty if there is none.
std::string givenRenderOption(FarmOptions& options);

/// What the options say of chunks and scheduler; the renders are left out. Throws UsageError.
farm::FarmWish farmWish(const FarmOptions& options);

}  // namespace ruvex::cli
