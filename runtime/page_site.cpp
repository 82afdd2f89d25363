#include "runtime/page_site.h"

#include "runtime/editor.h"
#include "runtime/error.h"

namespace ruvex::runtime {

HRESULT PageSite::GetTime(double* seconds) {
    if (!seconds) return E_POINTER;
    if (!editor_) return E_UNEXPECTED;
    *seconds = editor_->time();
    return S_OK;
}

HRESULT PageSite::WriteProperty(IUnknown* object, const GUID& id, double seconds,
                                const VARIANT* value, UNDO_STYLE style) {
    if (!object || !value) return E_POINTER;
    if (!editor_) return E_UNEXPECTED;
    if (!editor_->edits(*object)) return E_INVALIDARG;
    if (style > DSUNDO_OWN_STEP && !editor_->undoStack().isOpen(style)) return E_INVALIDARG;
    const double time = seconds == DSTIME_CURRENT ? editor_->time() : seconds;
    return guardedStatus([&] { return editor_->write(id, time, *value); });
}

HRESULT PageSite::BeginUndo(const DSUNDOINFO* info, UNDO_STYLE* style) {
    if (!info || !style) return E_POINTER;
    if (!editor_) return E_UNEXPECTED;
    return guardedStatus([&] {
        UndoStack& stack = editor_->undoStack();
        std::erase_if(begun_, [&](UNDO_STYLE ended) { return !stack.isOpen(ended); });
        begun_.reserve(begun_.size() + 1);
        *style = stack.begin(info->name ? info->name : L"", info->mergeKey);
        begun_.push_back(*style);
        return S_OK;
    });
}

HRESULT PageSite::EndUndo(UNDO_STYLE style) {
    if (!editor_) return E_UNEXPECTED;
    const DSContentScope scope = editor_->session().enter();
    UndoStack& stack = editor_->undoStack();
    if (!stack.isOpen(style)) return E_INVALIDARG;
    stack.close(style);
    return S_OK;
}

HRESULT PageSite::CancelUndo(UNDO_STYLE style) {
    if (!editor_) return E_UNEXPECTED;
    const DSContentScope scope = editor_->session().enter();
    return editor_->undoStack().cancel(style);
}

void PageSite::detach() {
    if (!editor_) return;
    const DSContentScope scope = editor_->session().enter();
    for (const UNDO_STYLE style : begun_) editor_->undoStack().close(style);
    begun_.clear();
    editor_ = nullptr;
}

}  // namespace ruvex::runtime
