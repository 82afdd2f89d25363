#include "host/base/overlay_use.h"

#include <utility>

#include "host/base/class_ids.h"
#include "sdk/viewer/viewer_controller.h"

namespace ruvex {

HRESULT OverlayUse::begin(IUnknown& object, const std::function<HRESULT()>& connect) {
    ++users_;
    return tool_ ? S_OK : show(object, connect);
}

HRESULT OverlayUse::show(IUnknown& object, const std::function<HRESULT()>& connect) {
    ComPtr<IUnknown> made;
    HRESULT status =
        CoCreateInstance(kToolClassId, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, made.putVoid());
    if (FAILED(status)) return status;
    ULONG context = 0;
    status = VWControllerPushContext(VWCONTEXT_INTERACTIVE_TOOL, made.get(), &object, nullptr,
                                     nullptr, 0.0, &context);
    if (FAILED(status)) return status;
    // During these calls another page may have shown a tool, or the last page may have closed.
    if (tool_ || users_ == 0) return VWControllerRemoveContext(context);
    tool_ = made;
    context_ = context;
    status = connect();
    if (FAILED(status) && tool_ == made) hide();
    return status;
}

void OverlayUse::hide() {
    // A page that is opened during the call shows a tool of its own.
    const ComPtr<IUnknown> removed = std::exchange(tool_, nullptr);
    VWControllerRemoveContext(context_);
}

void OverlayUse::end() {
    if (users_ == 0 || --users_ > 0 || !tool_) return;
    hide();
}

void OverlayUse::endAll() {
    while (users_ > 0) end();
}

}  // namespace ruvex
