// How far a farm job is.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "farm/farm.h"
#include "farm/records.h"
#include "farm/slurm.h"

namespace ruvex::farm {

/// A chunk or a join that is neither done nor in the queue.
struct FailedPart {
    std::string what;      ///< "chunk 17 (frames 400-424 of out.mov)".
    std::string host;      ///< Empty where it is not known.
    std::string sentence;  ///< The first error line.
};

struct FarmStatus {
    std::int64_t frames = 0;
    std::int64_t framesDone = 0;
    std::int64_t chunks = 0;
    std::int64_t chunksDone = 0;
    std::int64_t clips = 0;
    std::int64_t clipsComplete = 0;
    bool queueKnown = false;  ///< Without Slurm on this machine it is not.
    std::string queueFault;   ///< Why a Slurm that is here does not tell; may be empty.
    std::int64_t running = 0;
    std::int64_t waiting = 0;
    bool joinWaits = false;
    bool joinRuns = false;
    std::vector<std::string> held;  ///< Reasons for which the scheduler holds elements back.
    std::vector<FailedPart> failed;
    std::int64_t absent = 0;       ///< Chunks of which nothing is known.
    double framesPerSecond = 0.0;  ///< Over the chunks that ended last; 0 where it is not known.

    bool complete() const { return clipsComplete == clips; }
    /// Something waits or runs, or may do so where the queue is not known.
    bool underWay() const {
        return running + waiting > 0 || joinWaits || joinRuns || (!queueKnown && failed.empty());
    }
    /// Seconds until the last chunk is done; empty where it cannot be said.
    std::optional<double> secondsLeft() const;
};

/// Looks at a job again and again.
class StatusReader {
public:
    explicit StatusReader(const Farm& farm);

    /// Records that were read once are not read again.
    FarmStatus read();

private:
    void readRecords();
    double framesPerSecond() const;
    /// What is known of something that is neither done nor queued; empty if nothing is.
    std::optional<FailedPart> failureOf(const Queue& queue, Work work, std::int64_t number) const;
    void addFailures(FarmStatus& status, const Queue& queue, const std::vector<bool>& queuedChunks,
                     const std::vector<bool>& queuedJoins) const;

    const Farm& farm_;
    std::vector<std::optional<DoneRecord>> chunks_;
    std::vector<std::optional<DoneRecord>> clips_;
};

}  // namespace ruvex::farm
