#include "farm/layout.h"

#include <array>
#include <cinttypes>
#include <cstdio>

namespace ruvex::farm {
namespace {

namespace fs = std::filesystem;

/// "000012".
std::string sixDigits(std::int64_t number) {
    std::array<char, 24> text{};
    std::snprintf(text.data(), text.size(), "%06" PRId64, number);
    return text.data();
}

std::string chunkName(std::int64_t chunk) {
    return "chunk-" + sixDigits(chunk) + ".json";
}

std::string joinName(std::size_t clip) {
    return "join-" + sixDigits(static_cast<std::int64_t>(clip)) + ".json";
}

/// Without a separator at its end, so that it has a name.
fs::path cleanFolder(const fs::path& folder) {
    const fs::path whole = fs::absolute(folder).lexically_normal();
    return whole.has_filename() ? whole : whole.parent_path();
}

}  // namespace

Layout::Layout(const fs::path& folder) : folder_(cleanFolder(folder)) {}

fs::path Layout::jobFile(const std::string& clip) const {
    return folder_ / "jobs" / (clip + ".json");
}

fs::path Layout::log(const std::string& array, std::int64_t index) const {
    return logs() / (array + "_" + std::to_string(index) + ".txt");
}

fs::path Layout::chunkFile(std::int64_t number, const std::string& extension) const {
    return chunks() / (sixDigits(number) + extension);
}

fs::path Layout::begunMark(std::int64_t chunk) const {
    return begun() / ("chunk-" + sixDigits(chunk));
}

fs::path Layout::doneRecord(std::int64_t chunk) const {
    return done() / chunkName(chunk);
}

fs::path Layout::joinRecord(std::size_t clip) const {
    return done() / joinName(clip);
}

fs::path Layout::failureRecord(std::int64_t chunk) const {
    return failed() / chunkName(chunk);
}

fs::path Layout::joinFailureRecord(std::size_t clip) const {
    return failed() / joinName(clip);
}

}  // namespace ruvex::farm
