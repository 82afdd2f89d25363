#include "files/numbered_path.h"

#include <algorithm>
#include <charconv>

#include "files/whole_file.h"

namespace ruvex::files {
namespace {

namespace fs = std::filesystem;

constexpr int kMostDigits = 18;

struct NumberField {
    std::size_t length;
    int digits;
};

/// The "%d" or "%05d" that begins at `at`; nothing if there is none.
std::optional<NumberField> placeAt(const std::string& name, std::size_t at) {
    std::size_t end = at + 1;
    int digits = 1;
    if (end < name.size() && name[end] == '0') {
        const char* last = name.data() + name.size();
        const auto [stop, error] = std::from_chars(name.data() + end + 1, last, digits);
        end = static_cast<std::size_t>(stop - name.data());
        if (error != std::errc() || digits < 1 || digits > kMostDigits) {
            return std::nullopt;
        }
    }
    if (end >= name.size() || name[end] != 'd') {
        return std::nullopt;
    }
    return NumberField{end + 1 - at, digits};
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
    const std::string name = path.filename().string();
    for (auto at = name.find('%'); at != std::string::npos; at = name.find('%', at + 1)) {
        if (const auto place = placeAt(name, at)) {
            pattern_ = true;
            before_ = name.substr(0, at);
            after_ = name.substr(at + place->length);
            digits_ = place->digits;
            return;
        }
    }
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

bool NumberedPath::fits(const std::string& name) const {
    return pattern_ ? numberOf(name).has_value() : name == path_.filename();
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

}  // namespace ruvex::files
