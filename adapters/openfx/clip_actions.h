// Regions, and what the output is made of.

#pragma once

#include "adapters/openfx/action.h"

namespace ruvex::openfx {

/// The picture: the effect leaves its size as it is.
OfxStatus regionOfDefinition(const Action& action);

/// The whole source, for any part of the output.
OfxStatus regionsOfInterest(const Action& action);

/// The output changes from frame to frame, and its alpha has the form of the source's, unless
/// Result Alpha says otherwise. Components and depth keep the host's defaults, which are the
/// source's: what a clip's properties say of them during this action may be out of date.
OfxStatus clipPreferences(const Action& action);

}  // namespace ruvex::openfx
