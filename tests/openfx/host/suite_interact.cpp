// The interact suite.

#include "tests/openfx/host/host.h"
#include "tests/openfx/host/interact.h"
#include "tests/openfx/host/suites.h"

namespace ruvex::ofxhost {
namespace {

Interact* interactOf(OfxInteractHandle handle) {
    return objectOf<Interact>(HandleKind::Interact, handle);
}

OfxStatus swapBuffers(OfxInteractHandle handle) {
    return interactOf(handle) ? kOfxStatOK : kOfxStatErrBadHandle;
}

OfxStatus redraw(OfxInteractHandle handle) {
    Interact* interact = interactOf(handle);
    if (!interact) return kOfxStatErrBadHandle;
    const OfxStatus status = interact->host().intercept("interactRedraw");
    if (status == kOfxStatOK) interact->requestRedraw();
    return status;
}

OfxStatus interactProperties(OfxInteractHandle handle, OfxPropertySetHandle* result) {
    const Interact* interact = interactOf(handle);
    if (!interact) return kOfxStatErrBadHandle;
    if (!result) return kOfxStatErrValue;
    const OfxStatus status = interact->host().intercept("interactGetPropertySet");
    if (status == kOfxStatOK) *result = interact->properties.handle();
    return status;
}

}  // namespace

const OfxInteractSuiteV1& interactSuite() {
    static const OfxInteractSuiteV1 suite{swapBuffers, redraw, interactProperties};
    return suite;
}

}  // namespace ruvex::ofxhost
