// What a user does to windows in memory.

#include <algorithm>

#include "sdk/window/window_table.h"

using ruvex::windows::find;
using ruvex::windows::report;
using ruvex::windows::Window;

namespace {

/// Whether a user can reach a window: it and its ancestors are shown and enabled.
bool isReachable(HWND window) {
    const Window* found = find(window);
    while (found && found->state.shown() && found->state.enabled()) {
        if (!found->state.parent) return true;
        found = find(found->state.parent);
    }
    return false;
}

/// Sends WM_COMMAND to the dialog of a control, if the control is still there.
void notifyDialog(HWND control, std::uint16_t code) {
    const Window* const found = find(control);
    if (!found) return;
    const WPARAM wide = MAKEWPARAM(static_cast<unsigned>(found->state.id), code);
    ruvex::windows::callProcedure(found->state.parent, WM_COMMAND, wide,
                                  reinterpret_cast<LPARAM>(control));
}

bool isTabStop(HWND control) {
    const DSWindowState& state = find(control)->state;
    return (state.style & WS_TABSTOP) != 0 && state.shown() && state.enabled();
}

}  // namespace

bool DSClickButton(HWND button) {
    Window* const found = find(button);
    if (!found || found->state.className != "button" || !isReachable(button)) return false;
    const std::uint32_t type = found->state.style & BS_TYPEMASK;
    if (type == BS_GROUPBOX) return false;
    if (type == BS_AUTOCHECKBOX) {
        found->state.checked = !found->state.checked;
        report(button, DSWindowChange::Changed);
    }
    notifyDialog(button, BN_CLICKED);
    return true;
}

bool DSChooseItem(HWND combo, int item) {
    Window* const found = find(combo);
    if (!found || found->state.className != "combobox" || !isReachable(combo)) return false;
    if (item < 0 || static_cast<std::size_t>(item) >= found->state.items.size()) return false;
    if (found->state.selection != item) {
        found->state.selection = item;
        report(combo, DSWindowChange::Changed);
    }
    notifyDialog(combo, CBN_SELCHANGE);
    return true;
}

HWND DSNextTabStop(HWND dialog, HWND control, bool back) {
    const Window* const found = find(dialog);
    if (!found) return nullptr;
    const auto& children = found->state.children;
    const auto count = static_cast<std::ptrdiff_t>(children.size());
    const auto place = std::ranges::find(children, control);
    // Without a control the search begins before the first one, or behind the last one.
    std::ptrdiff_t index = place != children.end() ? place - children.begin() : back ? count : -1;
    for (std::ptrdiff_t tried = 0; tried < count; ++tried) {
        index = (index + (back ? count - 1 : 1)) % count;
        const HWND candidate = children[static_cast<std::size_t>(index)];
        if (isTabStop(candidate)) return candidate;
    }
    return nullptr;
}
