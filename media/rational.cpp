#include "media/rational.h"

#include <charconv>
#include <limits>
#include <numeric>

namespace ruvex::media {
namespace {

constexpr std::int64_t kLargestTerm = std::numeric_limits<std::int32_t>::max();
/// So that the denominator, 10 to the number of decimals, fits 31 bits.
constexpr std::size_t kMostDecimals = 9;

std::optional<std::int64_t> parseDigits(std::string_view text) {
    std::int64_t value = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    const bool plain = !text.empty() && text.front() >= '0' && text.front() <= '9';
    if (!plain || error != std::errc() || stop != end) {
        return std::nullopt;
    }
    return value;
}

std::optional<Rational> positive(std::optional<std::int64_t> num, std::optional<std::int64_t> den) {
    if (!num || !den || *num <= 0 || *den <= 0) {
        return std::nullopt;
    }
    const Rational reduced = makeRational(*num, *den);
    if (reduced.num > kLargestTerm || reduced.den > kLargestTerm) {
        return std::nullopt;
    }
    return reduced;
}

std::optional<Rational> parseDecimal(std::string_view whole, std::string_view decimals) {
    if (decimals.size() > kMostDecimals) {
        return std::nullopt;
    }
    std::int64_t den = 1;
    for (std::size_t i = 0; i < decimals.size(); ++i) {
        den *= 10;
    }
    return positive(parseDigits(std::string(whole) + std::string(decimals)), den);
}

}  // namespace

Rational makeRational(std::int64_t num, std::int64_t den) {
    const std::int64_t divisor = std::gcd(num, den);
    const std::int64_t sign = den < 0 ? -1 : 1;
    return {sign * num / divisor, sign * den / divisor};
}

std::optional<Rational> parsePositiveRational(std::string_view text) {
    if (const auto slash = text.find('/'); slash != std::string_view::npos) {
        return positive(parseDigits(text.substr(0, slash)), parseDigits(text.substr(slash + 1)));
    }
    if (const auto point = text.find('.'); point != std::string_view::npos) {
        return parseDecimal(text.substr(0, point), text.substr(point + 1));
    }
    return positive(parseDigits(text), 1);
}

std::string toText(const Rational& fraction) {
    const std::string num = std::to_string(fraction.num);
    return fraction.den == 1 ? num : num + "/" + std::to_string(fraction.den);
}

}  // namespace ruvex::media
