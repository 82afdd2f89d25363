// The look that is chosen in the list of presets.

#pragma once

#include <vector>

#include "adapters/openfx/host_parameter.h"
#include "looks/look.h"

namespace ruvex::openfx {

/// The look whose label is chosen, whatever its place in the list; null for the list's title, and
/// for a label that belongs to no look. Valid as long as the process.
const looks::Look* chosenLook(const ParameterSet& set, double time);

/// The values of an instance over a look, for hosts that do not tell the plug-in of a choice, so
/// that it cannot set the parameters: those that differ from their default override the look, since
/// the value alone tells what the user has set.
std::vector<looks::ParameterChange> overLook(const looks::Look& look,
                                             std::vector<looks::ParameterChange> values);

}  // namespace ruvex::openfx
