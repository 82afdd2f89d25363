// The presets of the effect as looks.

#pragma once

#include <vector>

#include "looks/look.h"

namespace ruvex::looks {

/// The changes that a preset of the table makes; `preset` is 0 to kPresetCount - 1.
std::vector<ParameterChange> presetChanges(int preset);

/// The same with the preset's name and description.
Look presetLook(int preset);

}  // namespace ruvex::looks
