#include "adapters/frei0r/frame_rate.h"

#include <charconv>
#include <cmath>
#include <string>

namespace ruvex::frei0r {
namespace {

constexpr double kLeastRate = 0.01;
constexpr double kGreatestRate = 100000.0;

std::optional<double> numberIn(std::string_view text) {
    double number = 0.0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc{} || stop != end) return std::nullopt;
    return number;
}

/// 24000/1001, 30000/1001 and their like if a decimal number means it: 23.976, 23.98, 29.97.
double exactRate(double rate) {
    constexpr double kTolerance = 0.005;
    for (const double whole : {15.0, 24.0, 30.0, 48.0, 60.0, 120.0}) {
        const double ntsc = whole * 1000.0 / 1001.0;
        if (std::abs(rate - ntsc) < kTolerance) return ntsc;
    }
    return rate;
}

std::optional<double> inRange(double rate) {
    if (!(rate >= kLeastRate && rate <= kGreatestRate)) return std::nullopt;
    return exactRate(rate);
}

}  // namespace

std::optional<double> frameRateIn(std::string_view text) {
    const auto slash = text.find('/');
    const auto number = numberIn(text.substr(0, slash));
    if (!number) return std::nullopt;
    if (slash == std::string_view::npos) return inRange(*number);
    const auto divisor = numberIn(text.substr(slash + 1));
    if (!divisor) return std::nullopt;
    return inRange(*number / *divisor);
}

}  // namespace ruvex::frei0r
