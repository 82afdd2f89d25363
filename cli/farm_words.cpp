#include "cli/farm_words.h"

#include <algorithm>

#include "cli/amount_text.h"
#include "files/words.h"

namespace ruvex::cli {
namespace {

using farm::FarmStatus;

/// "; 25.0 frames a second, 30 s left, then the join".
std::string speedText(const FarmStatus& status) {
    std::string text;
    if (status.framesPerSecond > 0.0) {
        text = "; " + oneDecimal(status.framesPerSecond) + " frames a second";
    }
    if (const auto left = status.secondsLeft(); left && *left > 0.0) {
        text += ", " + durationText(*left) + " left";
        if (status.videosToJoin > 0) {
            text += status.videosToJoin == 1 ? ", then the join" : ", then the joins";
        }
    }
    return text;
}

std::string queueText(const FarmStatus& status) {
    if (!status.queueKnown) return status.queueFault.empty() ? "" : "; the queue does not answer";
    std::string text = "; " + std::to_string(status.running) + " running, " +
                       std::to_string(status.waiting) + " waiting";
    if (status.obstacles.empty()) return text;
    std::string reasons;
    for (const std::string& reason : status.obstacles) {
        reasons += (reasons.empty() ? "" : ", ") + files::printable(reason);
    }
    return text + " (" + reasons + ")";
}

}  // namespace

std::string countText(std::int64_t count, const std::string& noun) {
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

std::string chunksText(const farm::FarmJob& job) {
    std::int64_t longest = 0;
    for (const farm::FarmClip& clip : job.clips) longest = std::max(longest, clip.frames.count());
    return countText(chunksOf(job), "chunk") + " of " +
           countText(std::min(job.chunkFrames, longest), "frame");
}

std::string resumeText(const farm::Submission& submission) {
    if (submission.allDone()) return "all is done: nothing is left to do";
    std::string text;
    if (submission.submitted > 0) text = countText(submission.submitted, "chunk");
    if (submission.joins > 0) {
        text += (text.empty() ? "" : " and ") + countText(submission.joins, "join");
    }
    const bool idle = text.empty();
    text += idle ? "nothing is left to submit" : " submitted";
    const char* separator = idle ? ": " : ", ";
    const auto add = [&](std::int64_t count, const char* noun, const char* what) {
        if (count == 0) return;
        text += separator + countText(count, noun) + " " + what;
        separator = ", ";
    };
    add(submission.complete, "chunk", "done before");
    add(submission.queued, "chunk", "in the queue");
    add(submission.joinsWaiting, "join", "waiting");
    add(submission.joinsRunning, "join", "running");
    return text;
}

std::string statusLine(const FarmStatus& status) {
    std::string text = std::to_string(status.framesDone) + " of " + std::to_string(status.frames) +
                       " frames, " + std::to_string(status.chunksDone) + " of " +
                       std::to_string(status.chunks) + " chunks";
    if (status.complete()) return text + "; complete";
    text += queueText(status);
    if (!status.failed.empty()) text += ", " + std::to_string(status.failed.size()) + " failed";
    const bool tasksQueued = status.running + status.waiting > 0;
    if (status.joinRuns && !tasksQueued) return text + "; joining";
    if (status.joinWaits && !tasksQueued) return text + "; the join waits";
    return text + speedText(status);
}

}  // namespace ruvex::cli
