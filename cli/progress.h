// How far a render is, in words.

#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

namespace ruvex::cli {

/// How much a command says of its progress.
enum class Talk { Quiet, Usual, Verbose };

/// "50 of 200 frames, 25.0 a second, 6 s left". `frames` is nothing where the end is not known;
/// what cannot be told yet is left out.
std::string progressText(std::int64_t done, std::optional<std::int64_t> frames, double seconds);

/// "7 s", "2 min 05 s", "1 h 02 min"; rounded.
std::string durationText(double seconds);

/// Writes to the standard error stream: on a terminal one line that changes, elsewhere a line now
/// and then, so that a short render is silent there; nothing when quiet. When verbose, a last line
/// tells what it took. The line ends with the object, so that what follows stands on a line of its
/// own.
class Progress {
public:
    explicit Progress(std::optional<std::int64_t> frames, Talk talk = Talk::Usual);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// One more frame is done.
    void step();

    /// All of them are.
    void finish();

private:
    using Clock = std::chrono::steady_clock;

    double seconds() const;
    void show();

    Talk talk_;
    bool terminal_;
    std::optional<std::int64_t> frames_;
    std::int64_t done_ = 0;
    int width_ = 0;  ///< Of the line on the terminal.
    Clock::time_point start_ = Clock::now();
    Clock::time_point last_ = start_;
};

}  // namespace ruvex::cli
