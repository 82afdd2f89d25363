// Regions, and what the output is made of.

#pragma once

#include "adapters/openfx/action.h"

namespace ruvex::openfx {

/// The picture: the effect leaves its size as it is.
OfxStatus regionOfDefinition(const Action& action);

/// The whole source, for any part of the output.
OfxStatus regionsOfInterest(const Action& action);

/// The output has the components and the depth of the source, and changes from frame to frame. Its
/// alpha has the form of the source's, unless Result Alpha says otherwise.
OfxStatus clipPreferences(const Action& action);

}  // namespace ruvex::openfx
