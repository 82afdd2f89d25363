// What the command ends with.

#pragma once

#include <array>
#include <string>

namespace ruvex::cli {

inline constexpr int kDone = 0;
inline constexpr int kFailed = 1;
inline constexpr int kWrongCommandLine = 2;
/// Of 'ruvex farm status' before the end.
inline constexpr int kUnderWay = 3;
/// Of a program that was stopped: 128 and the number of SIGINT, whichever of the signals it was.
inline constexpr int kStopped = 130;

struct ExitStatus {
    int code;
    const char* meaning;
};

/// All that there are.
inline constexpr std::array<ExitStatus, 5> kExitStatuses = {{
    {kDone, "done"},
    {kFailed, "the job failed"},
    {kWrongCommandLine, "the command line is wrong"},
    {kUnderWay, "a farm job is under way"},
    {kStopped, "stopped by Ctrl-C"},
}};

/// "Exit status: 0 done, 1 the job failed, ..."
inline std::string exitStatusText() {
    std::string text = "Exit status: ";
    for (const ExitStatus& status : kExitStatuses) {
        text.append(std::to_string(status.code)).append(" ").append(status.meaning).append(", ");
    }
    text.resize(text.size() - 2);
    return text + ".";
}

}  // namespace ruvex::cli
