#include "cli/progress.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <unistd.h>

#include "cli/messages.h"

namespace ruvex::cli {
namespace {

using namespace std::chrono_literals;

constexpr auto kPauseOnTerminal = 100ms;
constexpr auto kPauseElsewhere = 10s;
constexpr auto kPauseWhenVerbose = 1s;

std::string twoDigits(std::int64_t value) {
    std::string text = std::to_string(value);
    return value < 10 ? text.insert(0, 1, '0') : text;
}

std::string oneDecimal(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.1f", value);
    return text;
}

}  // namespace

std::string durationText(double seconds) {
    const std::int64_t whole = std::llround(seconds);
    if (whole < 60) {
        return std::to_string(whole) + " s";
    }
    if (whole < 3600) {
        return std::to_string(whole / 60) + " min " + twoDigits(whole % 60) + " s";
    }
    return std::to_string(whole / 3600) + " h " + twoDigits(whole % 3600 / 60) + " min";
}

std::string progressText(std::int64_t done, std::optional<std::int64_t> frames, double seconds) {
    std::string text = std::to_string(done);
    if (frames) {
        text.append(" of ").append(std::to_string(*frames));
    }
    text += " frames";
    if (done < 1 || !(seconds > 0.0)) {
        return text;
    }
    const double rate = static_cast<double>(done) / seconds;
    text += ", " + oneDecimal(rate) + " a second";
    if (frames && *frames > done) {
        text += ", " + durationText(static_cast<double>(*frames - done) / rate) + " left";
    }
    return text;
}

Progress::Progress(std::optional<std::int64_t> frames, Talk talk)
    : talk_(talk), terminal_(isatty(STDERR_FILENO) != 0), frames_(frames) {}

Progress::~Progress() {
    if (width_ > 0) {
        std::fputc('\n', stderr);
    }
}

double Progress::seconds() const {
    return std::chrono::duration<double>(Clock::now() - start_).count();
}

void Progress::step() {
    ++done_;
    if (talk_ == Talk::Quiet) {
        return;
    }
    const Clock::duration elsewhere = talk_ == Talk::Verbose ? kPauseWhenVerbose : kPauseElsewhere;
    const Clock::duration pause = terminal_ ? kPauseOnTerminal : elsewhere;
    const auto now = Clock::now();
    if (now - last_ >= pause || (terminal_ && done_ == frames_)) {
        last_ = now;
        show();
    }
}

void Progress::show() {
    const std::string text = progressText(done_, frames_, seconds());
    if (terminal_) {
        // Spaces go over what is left of a longer line.
        width_ = std::max(width_, static_cast<int>(text.size()));
        std::fprintf(stderr, "\r%-*s", width_, text.c_str());
        std::fflush(stderr);
    } else {
        printMessage(text);
    }
}

void Progress::finish() {
    if (talk_ != Talk::Verbose) {
        return;
    }
    if (width_ > 0) {
        std::fputc('\n', stderr);
        width_ = 0;
    }
    const double all = seconds();
    std::fprintf(stderr, "ruvex: %lld frames in %.2f s, %.1f a second.\n",
                 static_cast<long long>(done_), all, static_cast<double>(done_) / all);
}

}  // namespace ruvex::cli
