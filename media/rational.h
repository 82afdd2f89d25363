// Exact fractions, for frame rates and pixel aspects.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace ruvex::media {

/// A fraction in lowest terms; `den` is positive.
struct Rational {
    std::int64_t num = 0;
    std::int64_t den = 1;

    double value() const { return static_cast<double>(num) / static_cast<double>(den); }
    friend bool operator==(const Rational&, const Rational&) = default;
};

/// num / den in lowest terms. `den` must not be 0.
Rational makeRational(std::int64_t num, std::int64_t den);

/// Parses "25", "29.97" (exactly 2997/100) or "30000/1001". Empty for any other text, for a value
/// of 0 or less, and if a term in lowest terms does not fit 31 bits, the limit of containers.
std::optional<Rational> parsePositiveRational(std::string_view text);

/// "25" or "30000/1001".
std::string toText(const Rational& fraction);

}  // namespace ruvex::media
