// What the plug-in tells the host about itself.

#pragma once

#include "adapters/openfx/action.h"

namespace ruvex::openfx {

/// The properties of the effect: label, contexts, depths, abilities.
OfxStatus describe(const Action& action);

/// The clips and the parameters, the same in each context.
OfxStatus describeInContext(const Action& action);

}  // namespace ruvex::openfx
