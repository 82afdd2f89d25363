#include "cli/parameter_change.h"

#include <algorithm>

#include "cli/messages.h"
#include "parameters/label_match.h"

namespace ruvex::cli {

std::string noSuchParameter(std::string_view name) {
    // No slip of the pen, and the nearest name takes the longer to find the longer this one is.
    constexpr std::size_t kLongest = 100;
    if (name.size() > kLongest) {
        return "there is no parameter of a name as long as '" + std::string(name.substr(0, 20)) +
               "...'. 'ruvex params' lists them all.";
    }
    // With more than every second letter wrong it is another word.
    const std::string_view nearest = nearestParameter(name).label;
    const bool likely = labelDistance(nearest, name) * 2 <= name.size();
    return "there is no parameter " + inQuotes(name) + "." +
           (likely ? " Did you mean " + inQuotes(nearest) + "?" : "") +
           " 'ruvex params' lists them all.";
}

std::string doesNotRender(const ParameterRow& row) {
    return inQuotes(row.label) + " does not change the picture.";
}

const Key* sortKeys(Animation& animation) {
    auto& keys = animation.keys;
    std::ranges::sort(keys, {}, &Key::seconds);
    const auto found = std::ranges::adjacent_find(keys, {}, &Key::seconds);
    return found == keys.end() ? nullptr : &*found;
}

}  // namespace ruvex::cli
