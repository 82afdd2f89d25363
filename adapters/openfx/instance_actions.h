// The life of an instance, and changes of its parameters.

#pragma once

#include "adapters/openfx/action.h"

namespace ruvex::openfx {

/// Shows and enables the parameters by the values that the instance begins with.
OfxStatus createInstance(const Action& action);

/// There is nothing to release.
OfxStatus destroyInstance(const Action& action);

/// Applies the look that the user has chosen, or the Reset that was pressed; then shows and enables
/// the parameters, after any change on which that depends.
OfxStatus instanceChanged(const Action& action);

/// Shows and enables the parameters after several changes: a host may undo a look in one step.
OfxStatus endInstanceChanged(const Action& action);

}  // namespace ruvex::openfx
