#include "adapters/openfx/action.h"

#include "adapters/openfx/failure.h"

namespace ruvex::openfx {

Properties propertiesOf(const Host& host, OfxImageEffectHandle effect) {
    OfxPropertySetHandle handle = nullptr;
    if (host.effect->getPropertySet(effect, &handle) != kOfxStatOK || !handle) {
        throw Failure(kOfxStatErrBadHandle, "the host gives no properties of the effect");
    }
    return {host, handle};
}

}  // namespace ruvex::openfx
