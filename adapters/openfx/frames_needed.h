// Which frames of the source a frame needs.

#pragma once

#include "adapters/openfx/action.h"

namespace ruvex::openfx {

/// The frame at the time, and the frame that the tape shows then.
OfxStatus framesNeeded(const Action& action);

}  // namespace ruvex::openfx
