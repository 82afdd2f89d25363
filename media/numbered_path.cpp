#include "media/numbered_path.h"

#include <algorithm>
#include <charconv>
#include <regex>

namespace ruvex::media {
namespace {

namespace fs = std::filesystem;

fs::path folderOf(const fs::path& path) {
    return path.has_parent_path() ? path.parent_path() : fs::path(".");
}

void widen(std::optional<NumberedPath::Range>& range, std::int64_t number) {
    if (!range) {
        range = {number, number};
    }
    range->first = std::min(range->first, number);
    range->last = std::max(range->last, number);
}

}  // namespace

NumberedPath::NumberedPath(const fs::path& path) : path_(path) {
    static const std::regex kNumber("%(?:0([1-9]|1[0-8]))?d");
    const std::string name = path.filename().string();
    std::smatch match;
    if (!std::regex_search(name, match, kNumber)) {
        return;
    }
    pattern_ = true;
    before_ = match.prefix();
    after_ = match.suffix();
    digits_ = match[1].matched ? std::stoi(match[1]) : 1;
}

fs::path NumberedPath::file(std::int64_t number) const {
    if (!pattern_) {
        return path_;
    }
    std::string digits = std::to_string(number);
    const auto missing = digits_ - static_cast<int>(digits.size());
    digits.insert(0, static_cast<std::size_t>(std::max(missing, 0)), '0');
    return path_.parent_path() / (before_ + digits + after_);
}

std::optional<std::int64_t> NumberedPath::numberOf(const std::string& name) const {
    if (name.size() <= before_.size() + after_.size() || !name.starts_with(before_) ||
        !name.ends_with(after_)) {
        return std::nullopt;
    }
    std::int64_t number = 0;
    const char* from = name.data() + before_.size();
    const char* to = name.data() + name.size() - after_.size();
    const auto [stop, error] = std::from_chars(from, to, number);
    // Only the one way of writing a number counts: with %d, 007 is not the file of frame 7.
    if (error != std::errc() || stop != to || number < 0 || file(number).filename() != name) {
        return std::nullopt;
    }
    return number;
}

std::optional<NumberedPath::Range> NumberedPath::existing() const {
    std::error_code error;
    if (!pattern_) {
        return fs::exists(path_, error) ? std::optional<Range>(Range{}) : std::nullopt;
    }
    std::optional<Range> range;
    fs::directory_iterator entry(folderOf(path_), error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        if (const auto number = numberOf(entry->path().filename().string())) {
            widen(range, *number);
        }
    }
    return range;
}

}  // namespace ruvex::media
