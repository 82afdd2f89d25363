#include "sdk/controls/group_title.h"
#include "sdk/window/window_tree.h"

namespace {

bool isGroupBox(const DSWindowState& window) {
    return window.className == "button" && (window.style & BS_TYPEMASK) == BS_GROUPBOX;
}

bool encloses(const DSDialogRect& outer, const DSDialogRect& inner) {
    return inner.x >= outer.x && inner.y >= outer.y &&
           inner.x + inner.width <= outer.x + outer.width &&
           inner.y + inner.height <= outer.y + outer.height;
}

}  // namespace

std::wstring DSGroupTitle(HWND control) {
    const DSWindowState* const inner = DSGetWindowState(control);
    const DSWindowState* const dialog = inner ? DSGetWindowState(inner->parent) : nullptr;
    if (!dialog) return {};
    for (const HWND sibling : dialog->children) {
        const DSWindowState* const box = DSGetWindowState(sibling);
        if (box && isGroupBox(*box) && encloses(box->rect, inner->rect)) return box->text;
    }
    return {};
}
