#include "cli/progress.h"

#include <cstdio>
#include <unistd.h>

namespace ruvex::cli {
namespace {

constexpr std::chrono::milliseconds kPause{100};

}  // namespace

Progress::Progress(std::int64_t frames) : shown_(isatty(STDERR_FILENO) != 0), frames_(frames) {}

Progress::~Progress() {
    if (shown_ && done_ > 0) {
        std::fputc('\n', stderr);
    }
}

void Progress::step() {
    ++done_;
    const auto now = Clock::now();
    if (!shown_ || (now - last_ < kPause && done_ != frames_)) {
        return;
    }
    last_ = now;
    const double seconds = std::chrono::duration<double>(now - start_).count();
    std::fprintf(stderr, "\r%lld of %lld frames, %.1f a second ", static_cast<long long>(done_),
                 static_cast<long long>(frames_), static_cast<double>(done_) / seconds);
    std::fflush(stderr);
}

}  // namespace ruvex::cli
