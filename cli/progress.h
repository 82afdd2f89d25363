// How far a render is, in words.

#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

#include "cli/live_line.h"

namespace ruvex::cli {

/// How much a command says of its progress.
enum class Talk { Quiet, Usual, Verbose };

/// "50 of 200 frames, 25.0 a second, 6 s left". `frames` is empty where the end is not known, and
/// `rate`, in frames a second, is 0 where it is not known yet.
std::string progressText(std::int64_t done, std::optional<std::int64_t> frames, double rate);

/// Writes to the standard error stream: on a terminal one line that changes, elsewhere a line now
/// and then; nothing when quiet. The line ends with the object or with endLine, so that what
/// follows stands on a line of its own.
class Progress {
public:
    /// `label` begins each line.
    explicit Progress(std::optional<std::int64_t> frames, Talk talk = Talk::Usual,
                      std::string label = {});
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// One more frame is done.
    void step();

    /// Ends the line on the terminal.
    void endLine();

    /// Since the object was made.
    double seconds() const;
    std::int64_t done() const { return done_; }

private:
    using Clock = std::chrono::steady_clock;

    double rate() const;
    void show();

    Talk talk_;
    std::string label_;
    LiveLine line_;
    std::optional<std::int64_t> frames_;
    std::int64_t done_ = 0;
    Clock::time_point start_ = Clock::now();
    Clock::time_point first_ = start_;  ///< When the first frame was done.
    Clock::time_point last_ = start_;   ///< When the line was last written.
};

}  // namespace ruvex::cli
