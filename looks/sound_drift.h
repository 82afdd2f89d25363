// Whether a look moves the pictures of a clip away from its sound.

#pragma once

#include <span>

#include "looks/parameter_change.h"

namespace ruvex::looks {

/// Whether Play Speed has a value or a key other than 100 %: the pictures then run away from the
/// sound, which keeps its speed. Repeat Frames does not count: a picture stays for at most 19
/// frames too long, and the next one is on time again.
bool movesPictures(std::span<const ParameterChange> changes);

}  // namespace ruvex::looks
