// One call of the host, for an overlay.

#pragma once

#include "adapters/openfx/properties.h"

namespace ruvex::openfx {

struct InteractAction {
    Host host;
    OfxInteractHandle interact = nullptr;  ///< The description or the instance; not null.
    Properties in;
};

/// The properties of the interact; none at all if the host refuses them.
inline Properties interactProperties(const InteractAction& action) {
    OfxPropertySetHandle handle = nullptr;
    const auto get = action.host.interact->interactGetPropertySet;
    if (!get || get(action.interact, &handle) != kOfxStatOK) handle = nullptr;
    return {action.host, handle};
}

}  // namespace ruvex::openfx
