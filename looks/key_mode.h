// How a parameter goes from a key to the next one, and the words for it.

#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "sdk/properties/animation.h"

namespace ruvex::looks {

/// Linear, Hold or Smooth.
using KeyMode = DSKeyMode;

/// The word for it in look files and on the command line: "linear", "hold" or "smooth".
std::string_view keyModeName(KeyMode mode);

/// The mode with this name; empty if there is none.
std::optional<KeyMode> keyModeNamed(std::string_view name);

/// "linear, hold or smooth", for messages.
std::string keyModeNames();

}  // namespace ruvex::looks
