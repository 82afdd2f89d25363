#include "sdk/pages/undo_style.h"

#include <utility>

#include "sdk/com/guarded.h"
#include "sdk/pages/base_property_page.h"

CDSUndoStyleMgr::CDSUndoStyleMgr(CDSBasePropertyPage* page) : page_(page) {}

CDSUndoStyleMgr::~CDSUndoStyleMgr() = default;

HRESULT CDSUndoStyleMgr::Begin(DSCTLCOMMANDNOTIFY command, UNDO_STYLE* style, int countNested) {
    if (!style) return E_POINTER;
    if (depth_ > 0 && !countNested) return E_UNEXPECTED;
    if (depth_ == 0) {
        style_ = DSUNDO_OWN_STEP;
        const HRESULT status = ruvex::guarded([&] { return open(command); });
        if (FAILED(status)) return status;
    }
    ++depth_;
    *style = style_;
    return S_OK;
}

HRESULT CDSUndoStyleMgr::open(DSCTLCOMMANDNOTIFY command) {
    const ComPtr<IDSPageSite> site = page_->GetSite();
    if (!site) return S_OK;
    const std::wstring name = page_->CommandName(command);
    const DSUNDOINFO info{.name = name.c_str(), .mergeKey = 0};
    const HRESULT status = site->BeginUndo(&info, &style_);
    if (SUCCEEDED(status)) site_ = site;
    return status;
}

HRESULT CDSUndoStyleMgr::End() {
    if (depth_ == 0) return E_UNEXPECTED;
    if (--depth_ > 0) return S_OK;
    const ComPtr<IDSPageSite> site = std::exchange(site_, nullptr);
    return site ? site->EndUndo(style_) : S_OK;
}
