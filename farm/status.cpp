#include "farm/status.h"

#include <algorithm>
#include <array>
#include <set>
#include <string_view>
#include <utility>

#include "farm/farm_error.h"
#include "farm/fresh_folder.h"
#include "farm/render_rate.h"

namespace ruvex::farm {
namespace {

/// Whether an element waits for a person, not for a turn.
bool isHeld(const std::string& reason) {
    return reason.find("eld") != std::string::npos ||
           reason.find("DependencyNeverSatisfied") != std::string::npos;
}

/// Whether an element waits for its turn, which comes.
bool isUsual(const std::string& reason) {
    static constexpr std::array<std::string_view, 7> kUsual = {
        "", "None", "Resources", "Priority", "Dependency", "BeginTime", "JobArrayTaskLimit"};
    return std::ranges::count(kUsual, reason) > 0;
}

void addQueue(FarmStatus& status, const Queue& queue) {
    std::set<std::string> unusual;
    for (const QueuedElement& element : queue.elements) {
        if (element.work == Work::Join) {
            (element.running ? status.joinRuns : status.joinWaits) = true;
        } else {
            (element.running ? status.running : status.waiting) += 1;
        }
        if (!element.running && !isUsual(element.reason)) unusual.insert(element.reason);
    }
    for (const std::string& reason : unusual) {
        // While something runs, another reason than these may pass with it.
        if (isHeld(reason) || !status.somethingRuns()) status.obstacles.push_back(reason);
    }
}

/// Empty where it is not known.
std::optional<Queue> knownQueue(const FarmJob& job, FarmStatus& status) {
    try {
        auto queue = queueOf(job);
        status.queueKnown = queue.has_value();
        return queue;
    } catch (const FarmError& error) {
        status.queueFault = error.what();
        return std::nullopt;
    }
}

void mark(std::vector<bool>& all, std::int64_t number) {
    if (number >= 0 && number < std::ssize(all)) all[static_cast<std::size_t>(number)] = true;
}

/// Which chunks or clips of a number wait or run.
std::vector<bool> queued(const std::optional<Queue>& queue, Work work, std::size_t count) {
    std::vector<bool> all(count);
    if (!queue) return all;
    for (const QueuedElement& element : queue->elements) {
        if (element.work == work) mark(all, element.number);
    }
    return all;
}

}  // namespace

std::optional<double> FarmStatus::secondsLeft() const {
    if (!(framesPerSecond > 0.0) || (queueKnown && running == 0)) return std::nullopt;
    return static_cast<double>(frames - framesDone) / framesPerSecond;
}

StatusReader::StatusReader(const Farm& farm)
    : farm_(farm),
      chunks_(static_cast<std::size_t>(farm.chunks())),
      clips_(farm.job().clips.size()) {}

void StatusReader::readRecords() {
    refreshFolder(farm_.layout().done());
    const auto names = namesIn(farm_.layout().done());
    const auto isThere = [&](const std::filesystem::path& record) {
        return names.contains(record.filename().string());
    };
    for (std::size_t i = 0; i < chunks_.size(); ++i) {
        if (chunks_[i]) continue;
        const FarmChunk chunk = farm_.chunk(static_cast<std::int64_t>(i));
        const auto record = farm_.layout().doneRecord(chunk.number);
        if (isThere(record)) chunks_[i] = readDone(record, chunk.frames);
    }
    for (std::size_t i = 0; i < clips_.size(); ++i) {
        if (!clips_[i] && isThere(farm_.layout().joinRecord(i))) clips_[i] = completeClip(farm_, i);
    }
}

double StatusReader::rate(const FarmStatus& status) const {
    std::vector<const DoneRecord*> records;
    for (const auto& record : chunks_) {
        if (record) records.push_back(&*record);
    }
    return framesPerSecond(std::move(records),
                           status.queueKnown ? std::optional(status.running) : std::nullopt);
}

std::vector<std::int64_t> StatusReader::doubtfulChunks(const std::optional<Queue>& queue) const {
    std::vector<std::int64_t> numbers;
    const std::vector<bool> inQueue = queued(queue, Work::Task, chunks_.size());
    for (std::size_t i = 0; i < chunks_.size(); ++i) {
        if (chunks_[i] || inQueue[i]) continue;
        const auto number = static_cast<std::int64_t>(i);
        if (!clips_[farm_.chunk(number).clip]) numbers.push_back(number);
    }
    return numbers;
}

std::vector<std::int64_t> StatusReader::doubtfulJoins(const std::optional<Queue>& queue) const {
    std::vector<std::int64_t> numbers;
    const std::vector<bool> inQueue = queued(queue, Work::Join, clips_.size());
    for (std::size_t i = 0; i < clips_.size(); ++i) {
        if (!clips_[i] && !inQueue[i]) numbers.push_back(static_cast<std::int64_t>(i));
    }
    return numbers;
}

void StatusReader::addFailures(FarmStatus& status, const std::optional<Queue>& queue) const {
    const std::vector<std::int64_t> chunks = doubtfulChunks(queue);
    // A join that lacks chunks tells nothing more than these do.
    const auto joins = chunks.empty() ? doubtfulJoins(queue) : std::vector<std::int64_t>();
    if (chunks.empty() && joins.empty()) return;
    refreshFolder(farm_.layout().failed());
    const FailureReader reader(farm_, queue);
    for (const std::int64_t number : chunks) {
        if (auto failure = reader.failureOf(Work::Task, number)) {
            failure->what = toText(farm_, farm_.chunk(number));
            status.failed.push_back(*std::move(failure));
        } else {
            ++status.absent;
        }
    }
    for (const std::int64_t number : joins) {
        if (auto failure = reader.failureOf(Work::Join, number)) {
            failure->what = joinText(farm_.clip(number));
            status.failed.push_back(*std::move(failure));
        }
    }
}

void StatusReader::addCounts(FarmStatus& status) const {
    status.chunks = std::ssize(chunks_);
    status.clips = std::ssize(clips_);
    for (std::size_t i = 0; i < chunks_.size(); ++i) {
        const jobs::FrameRange frames = farm_.chunk(static_cast<std::int64_t>(i)).frames;
        status.frames += frames.count();
        status.framesDone += chunks_[i] ? frames.count() : 0;
        status.chunksDone += chunks_[i] ? 1 : 0;
    }
    for (std::size_t i = 0; i < clips_.size(); ++i) {
        status.clipsComplete += clips_[i] ? 1 : 0;
        status.videosToJoin += !clips_[i] && farm_.job().clips[i].isJoined() ? 1 : 0;
    }
}

FarmStatus StatusReader::read() {
    FarmStatus status;
    // The queue first: what leaves it afterwards has its record already.
    const std::optional<Queue> queue = knownQueue(farm_.job(), status);
    if (queue) addQueue(status, *queue);
    readRecords();
    addCounts(status);
    status.framesPerSecond = rate(status);
    addFailures(status, queue);
    return status;
}

}  // namespace ruvex::farm
