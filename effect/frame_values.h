// The values that determine a frame, for front ends that show them.

#pragma once

#include "effect/frame_time.h"
#include "host/base/parameter_reader.h"
#include "parameters/ruvex_interface.h"

namespace ruvex {

/// The values of the frame at this time, computed as in a render, but without a picture.
FrameValues valuesOfFrame(const ParameterReader& reader, const FrameTime& time);

}  // namespace ruvex
