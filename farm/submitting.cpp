#include "farm/submitting.h"

#include <algorithm>
#include <map>
#include <set>

#include "farm/leftovers.h"
#include "farm/records.h"
#include "farm/slurm.h"
#include "farm/submission_lock.h"

namespace ruvex::farm {
namespace {

/// What the queue holds of a job.
struct Submitted {
    std::set<std::int64_t> chunks;
    std::set<ArrayId> taskArrays;
    std::set<std::int64_t> runningJoins;  ///< Their clips.
    std::map<std::int64_t, ArrayId> waitingJoins;

    explicit Submitted(const std::vector<QueuedElement>& elements) {
        for (const QueuedElement& element : elements) {
            if (element.work == Work::Task) {
                chunks.insert(element.number);
                taskArrays.insert(element.array);
            } else if (element.running) {
                runningJoins.insert(element.number);
            } else {
                waitingJoins[element.number] = element.array;
            }
        }
    }
};

/// What is to be submitted, and which arrays are to leave the queue before that.
struct Missing {
    std::vector<std::int64_t> chunks;
    std::set<std::int64_t> clips;  ///< To be joined.
    std::set<ArrayId> outdatedJoins;
};

void addChunks(const Farm& farm, std::size_t clip, const Submitted& queue, Missing& missing,
               Submission& submission) {
    const FarmClip& one = farm.job().clips[clip];
    const std::int64_t end = one.firstChunk + chunksOf(farm.job(), one);
    for (std::int64_t chunk = one.firstChunk; chunk < end; ++chunk) {
        const bool queued = queue.chunks.contains(chunk);
        const bool complete = !queued && completeChunk(farm, farm.chunk(chunk));
        submission.queued += queued ? 1 : 0;
        submission.complete += complete ? 1 : 0;
        if (!queued && !complete) missing.chunks.push_back(chunk);
    }
}

Missing missingOf(const Farm& farm, const Submitted& queue, Submission& submission) {
    Missing missing;
    for (std::size_t clip = 0; clip < farm.job().clips.size(); ++clip) {
        const auto number = static_cast<std::int64_t>(clip);
        if (queue.runningJoins.contains(number)) {
            // It finds all chunks, or tells which it lacks.
            ++submission.joinsRunning;
            continue;
        }
        if (completeClip(farm, clip)) {
            // A join that was killed may have left them.
            removeChunks(farm, clip);
            submission.complete += chunksOf(farm.job(), farm.job().clips[clip]);
            continue;
        }
        const std::size_t before = missing.chunks.size();
        addChunks(farm, clip, queue, missing, submission);
        const auto join = queue.waitingJoins.find(number);
        if (join == queue.waitingJoins.end()) {
            missing.clips.insert(number);
        } else if (missing.chunks.size() > before) {
            missing.outdatedJoins.insert(join->second);
        }
    }
    for (const auto& [clip, array] : queue.waitingJoins) {
        const bool outdated = missing.outdatedJoins.contains(array);
        submission.joinsWaiting += outdated ? 0 : 1;
        if (outdated) missing.clips.insert(clip);
    }
    return missing;
}

/// The numbers, in arrays. Each array after the first waits for the one before it where their
/// elements are limited, since the limit is that of one array.
std::vector<ArrayId> submitNumbers(const Farm& farm, const SchedulerOptions& options, Work work,
                                   const std::vector<std::int64_t>& numbers,
                                   const std::vector<ArrayId>& after) {
    std::vector<ArrayId> arrays;
    const bool limited = work == Work::Task && options.maxTasks;
    for (auto begin = numbers.begin(); begin != numbers.end();) {
        const std::int64_t first = arrayStart(farm.job(), *begin);
        const auto end = std::lower_bound(begin, numbers.end(), first + farm.job().arrayLength);
        NewArray array{{work, first}, {begin, end}, after};
        if (limited && !arrays.empty()) array.after = {arrays.back()};
        arrays.push_back(submitArray(farm, options, array));
        begin = end;
    }
    return arrays;
}

SchedulerOptions optionsFor(const FarmJob& job, const SchedulerOptions& given) {
    SchedulerOptions options = job.scheduler;
    if (!given.partition.empty()) options.partition = given.partition;
    if (!given.account.empty()) options.account = given.account;
    if (!given.time.empty()) options.time = given.time;
    if (!given.joinTime.empty()) options.joinTime = given.joinTime;
    if (given.maxTasks) options.maxTasks = given.maxTasks;
    if (!given.extra.empty()) options.extra = given.extra;
    return options;
}

}  // namespace

Submission submitMissing(const Farm& farm, const SchedulerOptions& given) {
    const SubmissionLock lock(farm.layout());
    checkProgram(farm);
    for (const FarmClip& clip : farm.job().clips) checkJobFile(farm, clip);
    const SchedulerOptions options = optionsFor(farm.job(), given);
    const Submitted queue(queueOf(farm.job()).value_or(Queue()).elements);
    Submission submission;
    const Missing missing = missingOf(farm, queue, submission);
    std::vector<ArrayId> after(queue.taskArrays.begin(), queue.taskArrays.end());
    for (const ArrayId array : submitNumbers(farm, options, Work::Task, missing.chunks, {})) {
        after.push_back(array);
    }
    submission.submitted = std::ssize(missing.chunks);
    // They wait for the earlier tasks alone. One that has begun meanwhile tells what it lacks.
    const std::vector<ArrayId> outdated(missing.outdatedJoins.begin(), missing.outdatedJoins.end());
    cancelArrays(outdated, Cancel::Waiting);
    const std::vector<std::int64_t> clips(missing.clips.begin(), missing.clips.end());
    submitNumbers(farm, options, Work::Join, clips, after);
    submission.joins = std::ssize(clips);
    return submission;
}

}  // namespace ruvex::farm
