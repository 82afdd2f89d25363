#include "looks/key_mode.h"

#include <algorithm>
#include <array>

namespace ruvex::looks {
namespace {

/// In the order of KeyMode.
constexpr std::array<std::string_view, 3> kNames = {"linear", "hold", "smooth"};

}  // namespace

std::string_view keyModeName(KeyMode mode) {
    return kNames.at(static_cast<std::size_t>(mode));
}

std::optional<KeyMode> keyModeNamed(std::string_view name) {
    const auto found = std::ranges::find(kNames, name);
    if (found == kNames.end()) return std::nullopt;
    return static_cast<KeyMode>(found - kNames.begin());
}

std::string keyModeNames() {
    return std::string(kNames[0]) + ", " + std::string(kNames[1]) + " or " + std::string(kNames[2]);
}

}  // namespace ruvex::looks
