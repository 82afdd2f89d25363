// One call of the host.

#pragma once

#include "adapters/openfx/properties.h"

namespace ruvex::openfx {

struct Action {
    Host host;
    OfxImageEffectHandle effect = nullptr;  ///< The description or the instance; not null.
    Properties in;
    Properties out;
};

/// The properties of the effect. Throws Failure with kOfxStatErrBadHandle if it has none.
Properties propertiesOf(const Host& host, OfxImageEffectHandle effect);

}  // namespace ruvex::openfx
