#include "farm/log_reading.h"

#include <fstream>
#include <string_view>

#include "files/words.h"

namespace ruvex::farm {
namespace {

constexpr std::string_view kProgram = "ruvex: ";
constexpr std::string_view kOn = " begins on ";

/// Whether the line tells of an error: of this program, of the shell, or of the scheduler.
bool tellsOfFailure(const std::string& line) {
    if (line.find("error") != std::string::npos || line.find("not found") != std::string::npos ||
        line.find("Killed") != std::string::npos) {
        return true;
    }
    return line.starts_with(kProgram) && !line.starts_with("ruvex: warning: ") &&
           line.find(" frames, ") == std::string::npos && !line.ends_with(" frames");
}

}  // namespace

std::string firstLogLine(const std::string& work, const std::string& host) {
    return work + std::string(kOn) + host;
}

LogFailure failureIn(const std::filesystem::path& log) {
    constexpr std::size_t kLongest = 300;
    std::ifstream stream(log);
    LogFailure failure{.host = {}, .sentence = {}, .exists = stream.is_open()};
    for (std::string line; std::getline(stream, line);) {
        if (const auto at = line.rfind(kOn); at != std::string::npos) {
            failure = {.host = line.substr(at + kOn.size()), .sentence = {}, .exists = true};
        } else if (failure.sentence.empty() && tellsOfFailure(line)) {
            const std::string_view text = line;
            const bool ours = text.starts_with(kProgram);
            failure.sentence =
                files::printable(ours ? text.substr(kProgram.size()) : text, kLongest);
        }
    }
    return failure;
}

}  // namespace ruvex::farm
