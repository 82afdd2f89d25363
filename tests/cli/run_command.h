// The built command, run as a person runs it.

#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

namespace ruvex::cli {

struct Outcome {
    int status = -1;  ///< The exit status; -1 if a signal ended the command.
    std::string out;
    std::string err;
};

using Arguments = std::vector<std::string>;

/// Whether what a command printed contains `part`.
inline bool holds(const std::string& printed, const std::string& part) {
    return printed.find(part) != std::string::npos;
}

/// Runs `ruvex` with these arguments and waits for its end.
Outcome ruvex(const Arguments& arguments);

/// The command while it runs.
class RunningCommand {
public:
    explicit RunningCommand(const Arguments& arguments);
    ~RunningCommand();
    RunningCommand(const RunningCommand&) = delete;
    RunningCommand& operator=(const RunningCommand&) = delete;

    void send(int signal) const;
    /// Once only.
    Outcome wait();

private:
    pid_t process_ = -1;
    int out_ = -1;
    int err_ = -1;
};

}  // namespace ruvex::cli
