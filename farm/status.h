// How far a farm job is.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "farm/failure_reading.h"
#include "farm/farm.h"
#include "farm/records.h"
#include "farm/slurm.h"

namespace ruvex::farm {

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
    std::int64_t videosToJoin = 0;  ///< Clips that are files to be joined, and are not complete.
    /// Reasons, in the scheduler's words, for which what waits may wait for ever.
    std::vector<std::string> obstacles;
    std::vector<FailedPart> failed;
    std::int64_t absent = 0;  ///< Chunks that are neither done nor queued nor known to have failed.
    double framesPerSecond = 0.0;  ///< Of all tasks together; 0 where it is not known.

    bool complete() const { return clipsComplete == clips; }
    bool somethingRuns() const { return running > 0 || joinRuns; }
    /// Something waits or runs, or may do so where the queue is not known.
    bool underWay() const {
        if (!queueKnown) return absent > 0 || failed.empty();
        return running + waiting > 0 || joinWaits || joinRuns;
    }
    /// Seconds until the last chunk is rendered, without the joins; empty where it cannot be said.
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
    void addCounts(FarmStatus& status) const;
    double rate(const FarmStatus& status) const;
    /// The numbers of what is neither done nor known to wait or run.
    std::vector<std::int64_t> doubtfulChunks(const std::optional<Queue>& queue) const;
    std::vector<std::int64_t> doubtfulJoins(const std::optional<Queue>& queue) const;
    void addFailures(FarmStatus& status, const std::optional<Queue>& queue) const;

    const Farm& farm_;
    std::vector<std::optional<DoneRecord>> chunks_;
    std::vector<std::optional<DoneRecord>> clips_;
};

}  // namespace ruvex::farm
