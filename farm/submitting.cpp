#include "farm/submitting.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <set>
#include <sys/file.h>
#include <unistd.h>

#include "farm/farm_error.h"
#include "farm/records.h"
#include "farm/slurm.h"
#include "files/whole_file.h"

namespace ruvex::farm {
namespace {

/// One submission of a job at a time. Released by the system too, when the program ends.
class SubmissionLock {
public:
    explicit SubmissionLock(const Layout& layout)
        : descriptor_(open(layout.lock().c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666)) {
        if (descriptor_ < 0) throw FarmError(files::writeFailure(layout.lock(), errno));
        // On a file system without locks, two submissions are noticed by the queue alone.
        if (flock(descriptor_, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK) return;
        close(descriptor_);
        throw FarmError("Another submission of " + layout.folder().string() +
                        " is under way. Wait for its end.");
    }
    ~SubmissionLock() { close(descriptor_); }
    SubmissionLock(const SubmissionLock&) = delete;
    SubmissionLock& operator=(const SubmissionLock&) = delete;

private:
    int descriptor_;
};

/// What the queue holds of a job.
struct Submitted {
    std::set<std::int64_t> chunks;
    std::vector<std::string> taskArrays;
    std::vector<std::string> waitingJoins;  ///< Their arrays.
    bool joinRuns = false;

    explicit Submitted(const std::vector<QueuedElement>& elements) {
        for (const QueuedElement& element : elements) {
            if (element.work == Work::Task) {
                chunks.insert(element.number);
                addOnce(taskArrays, element.array);
            } else if (element.running) {
                joinRuns = true;
            } else {
                addOnce(waitingJoins, element.array);
            }
        }
    }

private:
    static void addOnce(std::vector<std::string>& all, const std::string& one) {
        if (std::ranges::count(all, one) == 0) all.push_back(one);
    }
};

/// The numbers, in arrays. Each array after the first waits for the one before it where their
/// elements are limited, since the limit is that of one array.
std::vector<std::string> submitNumbers(const Farm& farm, Work work,
                                       const std::vector<std::int64_t>& numbers,
                                       const std::vector<std::string>& after) {
    std::vector<std::string> arrays;
    const bool limited = work == Work::Task && farm.job().scheduler.maxTasks;
    for (auto begin = numbers.begin(); begin != numbers.end();) {
        const std::int64_t first = *begin - *begin % kMostInArray;
        const auto end = std::lower_bound(begin, numbers.end(), first + kMostInArray);
        NewArray array{{work, first}, {begin, end}, after};
        if (limited && !arrays.empty()) array.after = {arrays.back()};
        arrays.push_back(submitArray(farm, array));
        begin = end;
    }
    return arrays;
}

struct Missing {
    std::vector<std::int64_t> chunks;
    std::vector<std::int64_t> clips;
};

Missing missingOf(const Farm& farm, const Submitted& queue, Submission& submission) {
    Missing missing;
    for (std::size_t clip = 0; clip < farm.job().clips.size(); ++clip) {
        const FarmClip& one = farm.job().clips[clip];
        const std::int64_t count = chunksOf(farm.job(), one);
        if (completeClip(farm, clip)) {
            submission.complete += count;
            continue;
        }
        missing.clips.push_back(static_cast<std::int64_t>(clip));
        for (std::int64_t chunk = one.firstChunk; chunk < one.firstChunk + count; ++chunk) {
            const bool queued = queue.chunks.contains(chunk);
            const bool complete = !queued && completeChunk(farm, farm.chunk(chunk));
            submission.queued += queued ? 1 : 0;
            submission.complete += complete ? 1 : 0;
            if (!queued && !complete) missing.chunks.push_back(chunk);
        }
    }
    return missing;
}

}  // namespace

Submission submitMissing(const Farm& farm) {
    const SubmissionLock lock(farm.layout());
    checkProgram(farm);
    for (const FarmClip& clip : farm.job().clips) checkJobFile(farm, clip);
    const Submitted queue(queueOf(farm.job()).value_or(Queue()).elements);
    Submission submission;
    const Missing missing = missingOf(farm, queue, submission);
    const bool joinWaits = !queue.waitingJoins.empty() || queue.joinRuns;
    if (missing.chunks.empty() && joinWaits) return submission;
    std::vector<std::string> after = queue.taskArrays;
    for (std::string& array : submitNumbers(farm, Work::Task, missing.chunks, {})) {
        after.push_back(std::move(array));
    }
    submission.submitted = std::ssize(missing.chunks);
    // They wait for the earlier tasks alone.
    cancelArrays(queue.waitingJoins);
    submission.joins = std::ssize(missing.clips);
    submitNumbers(farm, Work::Join, missing.clips, after);
    return submission;
}

}  // namespace ruvex::farm
