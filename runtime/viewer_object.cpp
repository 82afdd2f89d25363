#include "runtime/viewer_object.h"

#include <utility>

#include "runtime/editor.h"
#include "runtime/error.h"
#include "runtime/identity.h"

namespace ruvex::runtime {

ViewerObject::ViewerObject(Editor& editor, ViewerRedraw redraw)
    : editor_(&editor),
      site_(ComPtr<PageSite>::attach(new PageSite(editor))),
      redraw_(std::move(redraw)) {}

HRESULT ViewerObject::InvalidateLayer(ULONG layer, const RECT* area) {
    if (!editor_) return E_UNEXPECTED;
    return guardedStatus([&] {
        if (redraw_) redraw_(layer, area);
        return S_OK;
    });
}

HRESULT ViewerObject::GetViewerWindow(HWND* window) {
    if (!window) return E_POINTER;
    if (!editor_) return E_UNEXPECTED;
    *window = window_;
    return S_OK;
}

HRESULT ViewerObject::GetSite(IDSPageSite** site) {
    if (!site) return E_POINTER;
    *site = nullptr;
    return editor_ ? copyReference(ComPtr<IDSPageSite>(site_), site) : E_UNEXPECTED;
}

HRESULT ViewerObject::ReleasePen(IUnknown* tool) {
    if (!tool) return E_POINTER;
    if (!editor_) return E_UNEXPECTED;
    if (!pen_.tool() || identityOf(*pen_.tool()) != identityOf(*tool)) return S_FALSE;
    const DSContentScope scope = editor_->session().enter();
    return pen_.release();
}

void ViewerObject::detach() {
    site_->detach();
    editor_ = nullptr;
}

}  // namespace ruvex::runtime
