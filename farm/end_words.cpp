#include "farm/end_words.h"

#include <array>

namespace ruvex::farm {
namespace {

bool holds(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

struct EndWords {
    std::string_view state;  ///< As squeue has it.
    std::string_view inLog;  ///< A part of the line in a log; empty where there is none.
    const char* words;
};

constexpr std::array<EndWords, 8> kEnds = {{
    {"TIMEOUT", "DUE TO TIME LIMIT",
     "it reached its limit on time; resume with a longer one (--time, of a join --join-time)"},
    {"OUT_OF_MEMORY", "oom",
     "it used more memory than it may; resume with more, as --sbatch=--mem=16G"},
    {"NODE_FAIL", "DUE TO NODE FAIL", "its machine failed; resume renders it elsewhere"},
    {"PREEMPTED", "DUE TO PREEMPTION",
     "work of a higher rank took its place; resume when that ends"},
    {"REQUEUED", "DUE TO JOB REQUEUE", "the scheduler put it back into the queue"},
    {"DEADLINE", "", "it reached the deadline that it was given"},
    {"BOOT_FAIL", "", "its machine did not start"},
    {"CANCELLED", "CANCELLED AT", "it was cancelled, by a person or by the scheduler"},
}};

bool isEndLine(std::string_view line) {
    return holds(line, "*** ") && (holds(line, "CANCELLED") || holds(line, "DUE TO"));
}

bool tellsOfMemory(std::string_view line) {
    return holds(line, "oom-kill") || holds(line, "oom_kill") || holds(line, "OOM Killed");
}

}  // namespace

std::string wordsOfState(std::string_view state) {
    for (const EndWords& end : kEnds) {
        if (end.state == state) return end.words;
    }
    return "";
}

std::string wordsOfEndLine(std::string_view line) {
    if (tellsOfMemory(line)) return wordsOfState("OUT_OF_MEMORY");
    if (!isEndLine(line)) return "";
    for (const EndWords& end : kEnds) {
        if (!end.inLog.empty() && holds(line, end.inLog)) return end.words;
    }
    return "";
}

bool isBareCancellation(std::string_view line) {
    return isEndLine(line) && !holds(line, "DUE TO");
}

std::string wordsOfStop() {
    return "it was asked to end before it was done: at its limit on time (--time, --join-time), or "
           "by a person";
}

}  // namespace ruvex::farm
