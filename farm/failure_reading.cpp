#include "farm/failure_reading.h"

#include "farm/end_words.h"
#include "farm/fresh_folder.h"
#include "farm/log_reading.h"
#include "farm/records.h"

namespace ruvex::farm {
namespace {

/// What can be said of a task that said nothing itself; `doubt` where nothing is known either.
std::string silentEnd(const QueuedElement* end, const std::string& doubt) {
    if (end == nullptr) return "it ended without a message: " + doubt;
    const std::string words = wordsOfState(end->state);
    return words.empty() ? "it ended as " + end->state + " without a message: " + doubt
                         : words + ".";
}

}  // namespace

FailureReader::FailureReader(const Farm& farm, const std::optional<Queue>& queue)
    : farm_(farm),
      queueKnown_(queue.has_value()),
      failures_(namesIn(farm.layout().failed())),
      logs_(namesIn(farm.layout().logs())) {
    if (!queue) return;
    for (const QueuedElement& end : queue->ended) {
        // Without a node it never began.
        if (end.node.empty()) continue;
        auto& last = ends_.try_emplace({end.work, end.number}, end).first->second;
        if (end.array >= last.array) last = end;
    }
}

const QueuedElement* FailureReader::endOf(Work work, std::int64_t number) const {
    const auto found = ends_.find({work, number});
    return found == ends_.end() ? nullptr : &found->second;
}

std::optional<FailedPart> FailureReader::failureOf(Work work, std::int64_t number) const {
    const Layout& layout = farm_.layout();
    const auto file = work == Work::Task
                          ? layout.failureRecord(number)
                          : layout.joinFailureRecord(static_cast<std::size_t>(number));
    if (failures_.contains(file.filename().string())) {
        if (const auto record = readFailure(file)) {
            return FailedPart{.host = record->host, .sentence = record->sentence};
        }
    }
    const QueuedElement* end = endOf(work, number);
    const auto logFile = logOf(farm_, work, number);
    if (!logs_.contains(logFile.filename().string())) {
        if (end == nullptr) return std::nullopt;
        return FailedPart{.host = end->node,
                          .sentence = silentEnd(
                              end, end->node + " may not see " + layout.folder().string() + ".")};
    }
    const LogFailure log = failureIn(logFile);
    if (log.cancelled) return std::nullopt;
    if (!log.sentence.empty() && !log.vague) {
        return FailedPart{.host = log.host, .sentence = log.sentence};
    }
    // It may run, or wait to be repeated.
    if (!queueKnown_) return std::nullopt;
    const std::string state = end == nullptr ? "" : wordsOfState(end->state);
    if (log.vague) {
        return FailedPart{.host = log.host, .sentence = state.empty() ? log.sentence : state + "."};
    }
    // Each task begins its log with a line: without it, there was no room for one.
    const char* const doubt = log.host.empty()
                                  ? "it was killed, its machine failed, or the disk was full."
                                  : "it was killed, or its machine failed.";
    return FailedPart{.host = log.host, .sentence = silentEnd(end, doubt)};
}

}  // namespace ruvex::farm
