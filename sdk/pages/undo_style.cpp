#include "sdk/pages/undo_style.h"

#include "sdk/com/guarded.h"
#include "sdk/pages/base_property_page.h"

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
    IDSPageSite* const site = page_->GetSite();
    if (!site) return S_OK;
    const std::wstring name = page_->CommandName(command);
    const DSUNDOINFO info{.name = name.c_str(), .mergeKey = 0};
    return site->BeginUndo(&info, &style_);
}

HRESULT CDSUndoStyleMgr::End() {
    if (depth_ == 0) return E_UNEXPECTED;
    if (--depth_ > 0) return S_OK;
    IDSPageSite* const site = page_->GetSite();
    return site && style_ != DSUNDO_OWN_STEP ? site->EndUndo(style_) : S_OK;
}
