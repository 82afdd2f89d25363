#include "files/numbered_path.h"

#include <algorithm>
#include <charconv>

#include "files/whole_file.h"

namespace ruvex::files {
namespace {

namespace fs = std::filesystem;

constexpr int kMostDigits = 18;

/// The "d" or "05d" that the text begins with: what follows the percent sign of a number field.
struct FieldEnd {
    std::size_t length;
    int digits;
};

/// Nothing if the text does not begin with the rest of a field.
std::optional<FieldEnd> fieldEnd(std::string_view text) {
    std::size_t end = 0;
    int digits = 1;
    if (text.starts_with('0')) {
        const char* last = text.data() + text.size();
        const auto [stop, error] = std::from_chars(text.data() + 1, last, digits);
        end = static_cast<std::size_t>(stop - text.data());
        if (error != std::errc() || digits < 1 || digits > kMostDigits) {
            return std::nullopt;
        }
    }
    if (end >= text.size() || text[end] != 'd') {
        return std::nullopt;
    }
    return FieldEnd{end + 1, digits};
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
    const std::string whole = path.filename().string();
    std::string_view rest = whole;
    while (!rest.empty()) {
        const std::size_t run = std::min(rest.find_first_not_of('%'), rest.size());
        const auto end = run > 0 ? fieldEnd(rest.substr(run)) : std::nullopt;
        if (!end) {
            takeText(rest, std::max<std::size_t>(run, 1));
            continue;
        }
        // As printf has it: each pair is one percent sign, and one that is left begins a field.
        takeText(rest, run / 2);
        rest.remove_prefix(run / 2);
        if (run % 2 == 0) continue;
        if (pattern_) {
            takeText(rest, 1 + end->length);
        } else {
            takeField(rest, 1 + end->length, end->digits);
        }
    }
}

void NumberedPath::takeText(std::string_view& rest, std::size_t length) {
    (pattern_ ? after_ : before_).append(rest.substr(0, length));
    rest.remove_prefix(length);
}

void NumberedPath::takeField(std::string_view& rest, std::size_t length, int digits) {
    pattern_ = true;
    field_ = rest.substr(0, length);
    digits_ = digits;
    rest.remove_prefix(length);
}

fs::path NumberedPath::sibling(const std::string& name) const {
    return name == path_.filename() ? path_ : path_.parent_path() / name;
}

fs::path NumberedPath::plain() const {
    return sibling(before_ + field_ + after_);
}

fs::path NumberedPath::file(std::int64_t number) const {
    if (!pattern_) {
        return plain();
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
    return pattern_ ? numberOf(name).has_value() : name == plain().filename();
}

std::vector<std::int64_t> NumberedPath::numbers() const {
    std::error_code error;
    if (!pattern_) {
        return fs::exists(plain(), error) ? std::vector<std::int64_t>{0}
                                          : std::vector<std::int64_t>{};
    }
    std::vector<std::int64_t> found;
    fs::directory_iterator entry(folderOf(path_), error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        if (const auto number = numberOf(entry->path().filename().string())) {
            found.push_back(*number);
        }
    }
    return found;
}

std::optional<NumberedPath::Range> NumberedPath::existing() const {
    std::optional<Range> range;
    for (const std::int64_t number : numbers()) {
        widen(range, number);
    }
    return range;
}

fs::path asNumberedPath(const fs::path& file) {
    const std::string name = file.filename().string();
    std::string doubled;
    for (std::size_t at = 0; at < name.size();) {
        const std::size_t end = std::min(name.find_first_not_of('%', at), name.size());
        const std::size_t run = std::max<std::size_t>(end - at, 1);
        doubled += name.substr(at, run);
        if (end > at && fieldEnd(std::string_view(name).substr(end))) doubled.append(run, '%');
        at += run;
    }
    return doubled == name ? file : file.parent_path() / doubled;
}

}  // namespace ruvex::files
