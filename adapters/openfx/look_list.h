// The looks that can be chosen in the host.

#pragma once

#include <span>
#include <string_view>

#include "looks/look.h"

namespace ruvex::openfx {

/// The presets, the shipped looks and the user's own, as they were when the process first asked:
/// hosts describe the plug-in again for each instance. No two have the same name.
std::span<const looks::Look> lookList();

/// The look with exactly this name; null if there is none.
const looks::Look* findLook(std::string_view name);

}  // namespace ruvex::openfx
