#include "cli/progress.h"

#include <cstdio>

#include "cli/amount_text.h"
#include "cli/messages.h"
#include "files/words.h"

namespace ruvex::cli {
namespace {

using namespace std::chrono_literals;

constexpr auto kPauseOnTerminal = 100ms;
constexpr auto kPauseElsewhere = 10s;
constexpr auto kPauseWhenVerbose = 1s;

}  // namespace

std::string progressText(std::int64_t done, std::optional<std::int64_t> frames, double rate) {
    std::string text = std::to_string(done);
    if (frames) {
        text.append(" of ").append(std::to_string(*frames));
    }
    text += " frames";
    if (!(rate > 0.0)) {
        return text;
    }
    text += ", " + oneDecimal(rate) + " a second";
    if (frames && *frames > done) {
        text += ", " + durationText(static_cast<double>(*frames - done) / rate) + " left";
    }
    return text;
}

Progress::Progress(std::optional<std::int64_t> frames, Talk talk, std::string label)
    : talk_(talk), label_(files::printable(label)), line_(stderr), frames_(frames) {}

Progress::~Progress() {
    endLine();
}

double Progress::seconds() const {
    return std::chrono::duration<double>(Clock::now() - start_).count();
}

/// Frames a second since the first frame was done: how long it took to come says nothing of those
/// that follow, since an encoder collects many before it gives the first.
double Progress::rate() const {
    const double since = std::chrono::duration<double>(Clock::now() - first_).count();
    return since > 0.0 ? static_cast<double>(done_ - 1) / since : 0.0;
}

void Progress::step() {
    if (++done_ == 1) first_ = Clock::now();
    if (talk_ == Talk::Quiet) {
        return;
    }
    const Clock::duration elsewhere = talk_ == Talk::Verbose ? kPauseWhenVerbose : kPauseElsewhere;
    const Clock::duration pause = line_.onTerminal() ? kPauseOnTerminal : elsewhere;
    const auto now = Clock::now();
    if (now - last_ >= pause || (line_.onTerminal() && done_ == frames_)) {
        last_ = now;
        show();
    }
}

void Progress::show() {
    const std::string text = label_ + progressText(done_, frames_, rate());
    if (line_.onTerminal()) {
        line_.show(text);
    } else {
        printMessage(text);
    }
}

void Progress::endLine() {
    line_.end();
}

}  // namespace ruvex::cli
