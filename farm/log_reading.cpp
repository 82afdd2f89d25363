#include "farm/log_reading.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <optional>
#include <string_view>

#include "farm/end_words.h"
#include "files/words.h"

namespace ruvex::farm {
namespace {

constexpr std::string_view kProgram = "ruvex: ";
constexpr std::string_view kOn = " begins on ";

/// Whether a line of this program begins with a number of frames: "50 of 200 frames, 25.0 a
/// second".
bool tellsOfProgress(std::string_view line) {
    const auto skip = [&](std::string_view letters) {
        const std::size_t end = std::min(line.find_first_not_of(letters), line.size());
        line.remove_prefix(end);
        return end > 0;
    };
    constexpr std::string_view kDigits = "0123456789";
    constexpr std::string_view kOf = " of ";
    constexpr std::string_view kFrames = " frames";
    if (!skip(kDigits)) return false;
    if (line.starts_with(kOf)) {
        line.remove_prefix(kOf.size());
        if (!skip(kDigits)) return false;
    }
    return line == kFrames || line.starts_with(" frames, ");
}

/// What this program prints of work that goes well.
bool tellsOfSuccess(std::string_view line) {
    return line.starts_with("warning: ") || line.ends_with(" is done.") ||
           line.ends_with(" was done before.") || tellsOfProgress(line);
}

/// What this program prints when it is asked to end.
bool tellsOfStop(std::string_view line) {
    return line.ends_with(" was stopped before its end.") || line.starts_with("stopped; ");
}

/// What a line of the shell or the scheduler has if it tells of an error.
bool hasErrorWord(std::string_view line) {
    static constexpr std::array<std::string_view, 3> kWords = {"error", "not found", "Killed"};
    for (const std::string_view word : kWords) {
        if (line.find(word) != std::string_view::npos) return true;
    }
    return false;
}

/// How much a line tells of a failure.
enum class Weight { Nothing, WasEnded, WhyEnded, Error };

struct Reading {
    Weight weight = Weight::Nothing;
    std::string sentence{};
};

Reading readingOf(std::string_view line) {
    constexpr std::size_t kLongest = 300;
    if (line.starts_with(kProgram)) {
        line.remove_prefix(kProgram.size());
        if (tellsOfSuccess(line)) return {};
        if (tellsOfStop(line)) return {Weight::WasEnded, wordsOfStop() + "."};
        return {Weight::Error, files::printable(line, kLongest)};
    }
    if (const std::string words = wordsOfEndLine(line); !words.empty()) {
        const bool bare = isBareCancellation(line);
        return {bare ? Weight::WasEnded : Weight::WhyEnded, words + "."};
    }
    if (!hasErrorWord(line)) return {};
    return {Weight::Error, files::printable(line, kLongest)};
}

/// The machine that a first line names; empty for other lines.
std::optional<std::string> beginIn(const std::string& line) {
    const auto at = line.rfind(kOn);
    if (!line.starts_with(kProgram) || at == std::string::npos) return std::nullopt;
    return line.substr(at + kOn.size());
}

}  // namespace

std::string firstLogLine(const std::string& work, const std::string& host) {
    return work + std::string(kOn) + host;
}

LogFailure failureIn(const std::filesystem::path& log) {
    std::ifstream stream(log);
    LogFailure failure{.exists = stream.is_open()};
    Weight weight = Weight::Nothing;
    for (std::string line; std::getline(stream, line);) {
        if (auto host = beginIn(line)) {
            failure = {.host = *std::move(host), .exists = true};
            weight = Weight::Nothing;
        } else if (line == kCancelledLogLine) {
            failure.cancelled = true;
        } else if (Reading reading = readingOf(line); reading.weight > weight) {
            weight = reading.weight;
            failure.sentence = std::move(reading.sentence);
        }
    }
    failure.vague = weight == Weight::WasEnded;
    return failure;
}

}  // namespace ruvex::farm
