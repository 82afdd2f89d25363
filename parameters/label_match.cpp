#include "parameters/label_match.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace ruvex {

std::string bareLabel(std::string_view label) {
    std::string bare;
    for (const char c : label) {
        if (c == ' ' || c == '\t') continue;
        bare += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    }
    return bare;
}

bool labelsMatch(std::string_view a, std::string_view b) {
    return bareLabel(a) == bareLabel(b);
}

std::size_t labelDistance(std::string_view a, std::string_view b) {
    const std::string from = bareLabel(a);
    const std::string to = bareLabel(b);
    // One row of the Levenshtein table: costs[j] is the distance from the characters of `from` read
    // so far to the first j characters of `to`.
    std::vector<std::size_t> costs(to.size() + 1);
    std::iota(costs.begin(), costs.end(), std::size_t{0});
    for (std::size_t i = 0; i < from.size(); ++i) {
        std::size_t diagonal = costs[0];
        costs[0] = i + 1;
        for (std::size_t j = 0; j < to.size(); ++j) {
            const std::size_t exchanged = diagonal + (from[i] != to[j] ? 1 : 0);
            diagonal = costs[j + 1];
            costs[j + 1] = std::min({exchanged, costs[j] + 1, diagonal + 1});
        }
    }
    return costs.back();
}

std::string_view similarLabel(std::string_view name, std::span<const std::string_view> labels) {
    // Longer names are no typing errors, and their distances take long.
    constexpr std::size_t kLongest = 100;
    if (name.size() > kLongest) return {};
    std::string_view nearest;
    std::size_t least = bareLabel(name).size() / 3 + 1;
    for (const std::string_view label : labels) {
        const std::size_t distance = labelDistance(label, name);
        if (distance >= least) continue;
        least = distance;
        nearest = label;
    }
    return nearest;
}

}  // namespace ruvex
