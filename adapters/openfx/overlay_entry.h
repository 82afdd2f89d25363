// The crop box on the host's viewer.

#pragma once

#include "adapters/openfx/properties.h"

namespace ruvex::openfx {

/// Tells the host of the overlay's entry point, if it shows overlays.
void declareOverlay(const Host& host, const Properties& effect);

}  // namespace ruvex::openfx
