// Which parameters are shown and enabled.

#pragma once

#include "adapters/openfx/instance.h"

namespace ruvex::openfx {

/// Shows and enables the parameters as the rules of the pages say for the values at a time.
void updateControls(const Instance& instance, double time);

/// Whether a rule depends on the parameter with this name.
bool decidesControls(const std::string& name);

}  // namespace ruvex::openfx
