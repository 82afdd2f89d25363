// One line on the terminal that says how far a render is.

#pragma once

#include <chrono>
#include <cstdint>

namespace ruvex::cli {

/// Writes to the standard error stream if that is a terminal, and is silent otherwise. The line
/// ends with the object, so that what follows stands on a line of its own.
class Progress {
public:
    explicit Progress(std::int64_t frames);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// One more frame is done.
    void step();

private:
    using Clock = std::chrono::steady_clock;

    bool shown_;
    std::int64_t frames_;
    std::int64_t done_ = 0;
    Clock::time_point start_ = Clock::now();
    Clock::time_point last_ = start_;
};

}  // namespace ruvex::cli
