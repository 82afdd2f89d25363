#include "host/base/overlay_use.h"

#include "host/base/class_ids.h"
#include "sdk/viewer/viewer_controller.h"

namespace ruvex {

HRESULT OverlayUse::begin(IUnknown& object) {
    ++users_;
    return tool_ ? S_OK : show(object);
}

HRESULT OverlayUse::show(IUnknown& object) {
    ComPtr<IUnknown> made;
    HRESULT status =
        CoCreateInstance(kToolClassId, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, made.putVoid());
    if (FAILED(status)) return status;
    status = VWControllerPushContext(VWCONTEXT_INTERACTIVE_TOOL, made.get(), &object, nullptr,
                                     nullptr, 0.0, &context_);
    if (SUCCEEDED(status)) tool_ = made;
    return status;
}

void OverlayUse::end() {
    if (users_ == 0 || --users_ > 0 || !tool_) return;
    VWControllerRemoveContext(context_);
    tool_.reset();
}

void OverlayUse::endAll() {
    while (users_ > 0) end();
}

}  // namespace ruvex
