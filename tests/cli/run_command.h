// The built command, run as a person runs it.

#pragma once

#include <chrono>
#include <string>
#include <sys/types.h>
#include <unistd.h>
#include <vector>

namespace ruvex::cli {

struct Outcome {
    int status = -1;  ///< The exit status; -1 if a signal ended the command.
    std::string out;
    std::string err;

    /// `err` without the line that tells what a finished render took and made.
    std::string messages() const;
};

using Arguments = std::vector<std::string>;

inline Arguments operator+(Arguments first, const Arguments& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

/// Whether what a command printed contains `part`.
inline bool holds(const std::string& printed, const std::string& part) {
    return printed.find(part) != std::string::npos;
}

/// Runs `ruvex` with these arguments and waits for its end.
Outcome ruvex(const Arguments& arguments);

/// The command while it runs.
class RunningCommand {
public:
    /// `input` becomes its standard input.
    explicit RunningCommand(const Arguments& arguments, int input = STDIN_FILENO);
    ~RunningCommand();
    RunningCommand(const RunningCommand&) = delete;
    RunningCommand& operator=(const RunningCommand&) = delete;

    void send(int signal) const;
    /// Whether it ends before the time is over. What it prints is not read.
    bool endsWithin(std::chrono::milliseconds time) const;
    /// Once only.
    Outcome wait();

private:
    pid_t process_ = -1;
    int out_ = -1;
    int err_ = -1;
};

}  // namespace ruvex::cli
