#include "cli/parameter_change.h"

#include <algorithm>

#include "cli/messages.h"

namespace ruvex::cli {

std::string noSuchParameter(std::string_view name) {
    // No slip of the pen, and the nearest name takes the longer to find the longer this one is.
    constexpr std::size_t kLongest = 100;
    if (name.size() > kLongest) {
        return "there is no parameter of a name as long as '" + std::string(name.substr(0, 20)) +
               "...'. 'ruvex params' lists them all.";
    }
    return "there is no parameter " + inQuotes(name) + ". Did you mean " +
           inQuotes(nearestParameter(name).label) + "? 'ruvex params' lists them all.";
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
