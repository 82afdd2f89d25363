#include "looks/parameter_change.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "files/words.h"
#include "parameters/label_match.h"

namespace ruvex::looks {

std::vector<ParameterChange> lastChanges(std::span<const ParameterChange> changes) {
    std::array<const ParameterChange*, kParameterCount> last{};
    for (const ParameterChange& change : changes) {
        last[static_cast<std::size_t>(rowOf(change).id)] = &change;
    }
    std::vector<ParameterChange> result;
    for (const ParameterChange* change : last) {
        if (change != nullptr) result.push_back(*change);
    }
    return result;
}

std::string noSuchParameter(std::string_view name) {
    // Longer names are no typing errors, and finding the nearest label takes longer for them.
    constexpr std::size_t kLongest = 100;
    if (name.size() > kLongest) {
        return "there is no parameter with a name as long as " +
               files::inQuotes(files::printable(name, 20)) + ". 'ruvex params' lists them all.";
    }
    // A name with more than every second letter wrong is a different word.
    const std::string_view nearest = nearestParameter(name).label;
    const bool likely = labelDistance(nearest, name) * 2 <= name.size();
    return "there is no parameter " + files::inQuotes(name) + "." +
           (likely ? " Did you mean " + files::inQuotes(nearest) + "?" : "") +
           " 'ruvex params' lists them all.";
}

std::string doesNotRender(const ParameterRow& row) {
    return files::inQuotes(row.label) + " does not change the picture.";
}

bool shiftKeys(Animation& animation, double seconds) {
    // Billionths: the rounding of a sum, 1.32 - 1 = 0.32000000000000006, would bring a key that
    // holds a frame too late.
    constexpr double kSteps = 1e9;
    for (Key& key : animation.keys) {
        key.seconds = std::round((key.seconds + seconds) * kSteps) / kSteps;
        if (!std::isfinite(key.seconds)) return false;
    }
    return sortKeys(animation) == nullptr;
}

const Key* sortKeys(Animation& animation) {
    auto& keys = animation.keys;
    std::ranges::sort(keys, {}, &Key::seconds);
    const auto found = std::ranges::adjacent_find(keys, {}, &Key::seconds);
    return found == keys.end() ? nullptr : &*found;
}

}  // namespace ruvex::looks
