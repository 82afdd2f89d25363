// Declaring the parameters and their groups in the host.

#pragma once

#include "adapters/openfx/action.h"

namespace ruvex::openfx {

/// Defines all groups and parameters. A group or button that the host refuses is left out; Failure
/// with kOfxStatErrMissingHostFeature if it refuses a parameter that pictures depend on.
void declareParameters(const Action& action);

}  // namespace ruvex::openfx
