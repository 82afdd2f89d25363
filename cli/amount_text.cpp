#include "cli/amount_text.h"

#include <array>
#include <cmath>
#include <cstdio>

namespace ruvex::cli {
namespace {

std::string twoDigits(std::int64_t value) {
    std::string text = std::to_string(value);
    return value < 10 ? text.insert(0, 1, '0') : text;
}

}  // namespace

std::string oneDecimal(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.1f", value);
    return text;
}

std::string durationText(double seconds) {
    const std::int64_t whole = std::llround(seconds);
    if (whole < 60) {
        return std::to_string(whole) + " s";
    }
    if (whole < 3600) {
        return std::to_string(whole / 60) + " min " + twoDigits(whole % 60) + " s";
    }
    return std::to_string(whole / 3600) + " h " + twoDigits(whole % 3600 / 60) + " min";
}

std::string bytesText(std::uintmax_t bytes) {
    constexpr std::array kUnits = {" kB", " MB", " GB", " TB"};
    constexpr double kStep = 1000.0;
    if (bytes < kStep) return std::to_string(bytes) + " bytes";
    double value = static_cast<double>(bytes) / kStep;
    std::size_t unit = 0;
    for (; value >= kStep && unit + 1 < kUnits.size(); ++unit) value /= kStep;
    return oneDecimal(value) + kUnits.at(unit);
}

}  // namespace ruvex::cli
