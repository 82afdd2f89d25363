// The values that determine a frame, for front ends that show them.

#pragma once

#include <vector>

#include "effect/frame_time.h"
#include "host/base/parameter_reader.h"
#include "parameters/ruvex_interface.h"

namespace ruvex {

/// The values of the frame at this time, computed as in a render, but without a picture.
FrameValues valuesOfFrame(const ParameterReader& reader, const FrameTime& time);

/// The same for frames in the order of their times, all at one rate, in one walk over time. Stores
/// as many values as there are times. Without meaning if the reader's frame is stopped.
void valuesOfFrames(const ParameterReader& reader, const std::vector<FrameTime>& times,
                    FrameValues* values);

}  // namespace ruvex
