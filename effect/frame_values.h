// The values behind a frame, for front ends that show them.

#pragma once

#include "host/base/parameter_reader.h"
#include "parameters/ruvex_interface.h"

namespace ruvex {

/// Works them out as the render does, without a picture.
FrameValues valuesOfFrame(const ParameterReader& reader, double seconds, double framesPerSecond);

}  // namespace ruvex
