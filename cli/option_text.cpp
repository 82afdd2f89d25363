#include "cli/option_text.h"

#include <charconv>
#include <cmath>
#include <filesystem>
#include <limits>
#include <optional>
#include <vector>

#include "cli/usage_error.h"

namespace ruvex::cli {
namespace {

constexpr int kMostInt = std::numeric_limits<int>::max();

[[noreturn]] void refuse(const std::string& option, std::string_view text,
                         const std::string& wanted) {
    throw UsageError(option + ": '" + std::string(text) + "' is not " + wanted + ".");
}

/// A plain number from 0 up, nothing around it; not -0 either.
template <typename T>
std::optional<T> number(std::string_view text) {
    T value{};
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || stop != end || text.starts_with('-')) {
        return std::nullopt;
    }
    return value;
}

std::vector<std::string_view> split(std::string_view text, char mark) {
    std::vector<std::string_view> parts;
    for (auto at = text.find(mark); at != std::string_view::npos; at = text.find(mark)) {
        parts.push_back(text.substr(0, at));
        text.remove_prefix(at + 1);
    }
    parts.push_back(text);
    return parts;
}

}  // namespace

media::FrameSize parseSize(const std::string& option, std::string_view text) {
    const auto parts = split(text, 'x');
    const auto width = number<int>(parts.front());
    const auto height = number<int>(parts.back());
    if (parts.size() != 2 || !width || !height || *width < 1 || *height < 1) {
        refuse(option, text, "a size; write width and height from 1 up, as in 720x576");
    }
    return {*width, *height};
}

jobs::FrameRange parseFrames(const std::string& option, std::string_view text) {
    const auto parts = split(text, '-');
    const auto first = number<std::int64_t>(parts.front());
    const auto last = number<std::int64_t>(parts.back());
    if (parts.size() > 2 || !first || !last || *first > *last) {
        refuse(option, text, "a range of frames; write first and last, as in 0-99");
    }
    if (*last >= jobs::kFrameNumberEnd) {
        refuse(option, text,
               "possible: frame numbers stay below " + std::to_string(jobs::kFrameNumberEnd));
    }
    return {*first, *last};
}

jobs::Region parseRegion(const std::string& option, std::string_view text) {
    std::vector<int> values;
    for (const auto part : split(text, ',')) {
        values.push_back(number<int>(part).value_or(-1));
    }
    const bool good =
        values.size() == 4 && values[0] >= 0 && values[1] >= 0 && values[2] >= 1 && values[3] >= 1;
    if (!good) {
        refuse(option, text, "a region; write X,Y,W,H in pixels, as in 0,0,360,288");
    }
    return {values[0], values[1], values[2], values[3]};
}

media::Rational parseFraction(const std::string& option, std::string_view text) {
    const auto value = media::parsePositiveRational(text);
    if (!value) {
        refuse(option, text, "a number above 0; write it as in 25, 1.4587 or 30000/1001");
    }
    return *value;
}

double parsePart(const std::string& option, std::string_view text) {
    const auto value = number<double>(text);
    if (!value || !(*value <= 1.0)) {
        refuse(option, text, "a part of the picture; write a number from 0 to 1, as in 0.5");
    }
    return *value;
}

double parseSeconds(const std::string& option, std::string_view text) {
    const bool negative = text.starts_with('-');
    const auto value = number<double>(negative ? text.substr(1) : text);
    if (!value || !std::isfinite(*value)) {
        refuse(option, text, "a time in seconds; write a number, as in 12.5 or -0.4");
    }
    return negative ? -*value : *value;
}

int parseWhole(const std::string& option, std::string_view text, int low, int high) {
    const auto value = number<int>(text);
    if (!value || *value < low || *value > high) {
        refuse(option, text,
               high == kMostInt
                   ? "a whole number from " + std::to_string(low) + " up"
                   : "a whole number from " + std::to_string(low) + " to " + std::to_string(high));
    }
    return *value;
}

void checkJsonName(const std::string& option, const std::string& file, const std::string& kind) {
    if (file.empty() || std::filesystem::path(file).extension() == ".json") return;
    throw UsageError(option + ": " + file + " is not the name of a " + kind +
                     " file. Use one that ends in .json.");
}

}  // namespace ruvex::cli
