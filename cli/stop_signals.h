// Ctrl-C and its like as a request to stop.

#pragma once

#include <stop_token>
#include <thread>

namespace ruvex::cli {

/// As long as this lives, SIGINT, SIGTERM and SIGHUP request a stop instead of ending the program;
/// a signal that was ignored before, as nohup has it, stays ignored. If this still lives 1.5
/// seconds after such a signal, the program ends with status kStopped, and its temporary files are
/// removed. A file that exceeds the limit on sizes makes a write fail instead of ending the
/// program. One object at a time.
class StopSignals {
public:
    /// Requests the stop of `source`. `sentence` is printed when the program has to be ended.
    explicit StopSignals(std::stop_source source = {},
                         const char* sentence = "stopped; the result is not complete.");
    ~StopSignals();
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;

    std::stop_token token() const { return source_.get_token(); }

private:
    void watch(const std::stop_token& ended);

    std::stop_source source_;
    const char* sentence_;
    std::jthread watcher_;
};

}  // namespace ruvex::cli
