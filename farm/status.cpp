#include "farm/status.h"

#include <algorithm>
#include <utility>

#include "farm/farm_error.h"
#include "farm/log_reading.h"

namespace ruvex::farm {
namespace {

/// The last of the attempts that the scheduler remembers; null where it knows of none.
const QueuedElement* lastEnd(const Queue& queue, Work work, std::int64_t number) {
    const QueuedElement* last = nullptr;
    for (const QueuedElement& element : queue.ended) {
        if (element.work != work || element.number != number || element.node.empty()) continue;
        // Later arrays have greater numbers.
        const auto isLater = [](const std::string& a, const std::string& b) {
            return a.size() != b.size() ? a.size() > b.size() : a >= b;
        };
        if (last == nullptr || isLater(element.array, last->array)) last = &element;
    }
    return last;
}

/// What can be said of a task that said nothing itself.
std::string silentEnd(const QueuedElement* end, const std::string& doubt) {
    return (end == nullptr ? "it ended" : "it ended as " + end->state) +
           " without a message: " + doubt;
}

/// Elements that wait for a person, not for a turn.
bool isHeld(const QueuedElement& element) {
    return element.reason.find("eld") != std::string::npos ||
           element.reason.find("DependencyNeverSatisfied") != std::string::npos;
}

void addElement(FarmStatus& status, const QueuedElement& element) {
    if (element.work == Work::Join) {
        (element.running ? status.joinRuns : status.joinWaits) = true;
    } else {
        (element.running ? status.running : status.waiting) += 1;
    }
    if (!element.running && isHeld(element) &&
        std::ranges::count(status.held, element.reason) == 0) {
        status.held.push_back(element.reason);
    }
}

/// Empty too where it is not known.
Queue knownQueue(const FarmJob& job, FarmStatus& status) {
    try {
        auto queue = queueOf(job);
        status.queueKnown = queue.has_value();
        return std::move(queue).value_or(Queue());
    } catch (const FarmError& error) {
        status.queueFault = error.what();
        return {};
    }
}

void mark(std::vector<bool>& all, std::int64_t number) {
    if (number >= 0 && number < std::ssize(all)) all[static_cast<std::size_t>(number)] = true;
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
    for (std::size_t i = 0; i < chunks_.size(); ++i) {
        if (chunks_[i]) continue;
        const FarmChunk chunk = farm_.chunk(static_cast<std::int64_t>(i));
        chunks_[i] = readDone(farm_.layout().doneRecord(chunk.number), chunk.frames);
    }
    for (std::size_t i = 0; i < clips_.size(); ++i) {
        if (!clips_[i]) clips_[i] = completeClip(farm_, i);
    }
}

double StatusReader::framesPerSecond() const {
    // Enough to even out chunks of different weight, and few enough to follow the nodes' number.
    constexpr std::size_t kRecent = 64;
    std::vector<const DoneRecord*> recent;
    for (const auto& record : chunks_) {
        if (record) recent.push_back(&*record);
    }
    std::ranges::sort(recent, std::greater(), &DoneRecord::finished);
    if (recent.size() > kRecent) recent.resize(kRecent);
    if (recent.empty()) return 0.0;
    // The chunks ran at the same time: their frames over the time from the first start to the last
    // end.
    double start = recent.front()->finished;
    std::int64_t frames = 0;
    for (const DoneRecord* record : recent) {
        start = std::min(start, record->finished - record->seconds);
        frames += record->frames.count();
    }
    const double seconds = recent.front()->finished - start;
    return seconds > 0.0 ? static_cast<double>(frames) / seconds : 0.0;
}

std::optional<FailedPart> StatusReader::failureOf(const Queue& queue, Work work,
                                                  std::int64_t number) const {
    const Layout& layout = farm_.layout();
    const auto record = readFailure(
        work == Work::Task ? layout.failureRecord(number)
                           : layout.joinFailureRecord(static_cast<std::size_t>(number)));
    if (record) return FailedPart{"", record->host, record->sentence};
    const QueuedElement* end = lastEnd(queue, work, number);
    const LogFailure log = failureIn(logOf(farm_, work, number));
    if (!log.exists && end == nullptr) return std::nullopt;
    if (!log.exists) {
        return FailedPart{
            "", end->node,
            silentEnd(end, end->node + " may not see " + layout.folder().string() + ".")};
    }
    if (!log.sentence.empty()) return FailedPart{"", log.host, log.sentence};
    return FailedPart{"", log.host, silentEnd(end, "it was killed, or its machine failed.")};
}

void StatusReader::addFailures(FarmStatus& status, const Queue& queue,
                               const std::vector<bool>& queuedChunks,
                               const std::vector<bool>& queuedJoins) const {
    for (std::size_t i = 0; i < chunks_.size(); ++i) {
        const FarmChunk chunk = farm_.chunk(static_cast<std::int64_t>(i));
        if (chunks_[i] || queuedChunks[i] || clips_[chunk.clip]) continue;
        auto failure = failureOf(queue, Work::Task, chunk.number);
        if (!failure) {
            ++status.absent;
            continue;
        }
        failure->what = toText(farm_, chunk);
        status.failed.push_back(*std::move(failure));
    }
    // A join that lacks chunks tells nothing more than these do.
    if (!status.failed.empty() || status.absent > 0) return;
    for (std::size_t i = 0; i < clips_.size(); ++i) {
        if (clips_[i] || queuedJoins[i]) continue;
        auto failure = failureOf(queue, Work::Join, static_cast<std::int64_t>(i));
        if (!failure) continue;
        failure->what = joinText(farm_.job().clips[i]);
        status.failed.push_back(*std::move(failure));
    }
}

FarmStatus StatusReader::read() {
    FarmStatus status;
    // The queue first: what leaves it afterwards has its record already.
    const Queue queue = knownQueue(farm_.job(), status);
    readRecords();
    std::vector<bool> queuedChunks(chunks_.size());
    std::vector<bool> queuedJoins(clips_.size());
    for (const QueuedElement& element : queue.elements) {
        addElement(status, element);
        mark(element.work == Work::Task ? queuedChunks : queuedJoins, element.number);
    }
    status.chunks = std::ssize(chunks_);
    status.clips = std::ssize(clips_);
    for (std::size_t i = 0; i < chunks_.size(); ++i) {
        const jobs::FrameRange frames = farm_.chunk(static_cast<std::int64_t>(i)).frames;
        status.frames += frames.count();
        status.framesDone += chunks_[i] ? frames.count() : 0;
        status.chunksDone += chunks_[i] ? 1 : 0;
    }
    status.clipsComplete = std::ranges::count_if(clips_, [](const auto& one) { return !!one; });
    status.framesPerSecond = framesPerSecond();
    addFailures(status, queue, queuedChunks, queuedJoins);
    return status;
}

}  // namespace ruvex::farm
