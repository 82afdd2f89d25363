// Whether a look moves the pictures of a clip away from its sound.

#pragma once

#include <span>

#include "looks/parameter_change.h"

namespace ruvex::looks {

/// Whether Play Speed has a value or a key other than 100 %: the pictures then run away from the
/// sound, which keeps its speed.
bool movesPictures(std::span<const ParameterChange> changes);

/// The most frames that Repeat Frames shows a picture after its time: one less than its largest
/// value; 0 without it. The next picture is on time again.
int framesBehind(std::span<const ParameterChange> changes);

}  // namespace ruvex::looks
