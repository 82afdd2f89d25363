// Rendering a frame, or a part of it.

#pragma once

#include "adapters/openfx/action.h"

namespace ruvex::openfx {

/// Renders the window of the output at a time. If the effect cannot render, the source is copied
/// and the user is told; if it cannot be copied either, the action fails.
OfxStatus render(const Action& action);

}  // namespace ruvex::openfx
