// Messages to windows in memory.

#include "sdk/window/window_table.h"

using ruvex::windows::callProcedure;
using ruvex::windows::find;
using ruvex::windows::report;
using ruvex::windows::unlessOutOfMemory;
using ruvex::windows::Window;

namespace {

constexpr LRESULT kNoSpaceInCombo = -2;  // CB_ERRSPACE

const wchar_t* textArgument(LPARAM extra) {
    return extra ? reinterpret_cast<const wchar_t*>(extra) : L"";
}

LRESULT setText(HWND window, DSWindowState& state, LPARAM extra) {
    const wchar_t* const text = textArgument(extra);
    if (state.text == text) return TRUE;
    state.text = text;
    report(window, DSWindowChange::Changed);
    return TRUE;
}

LRESULT addItem(HWND combo, DSWindowState& state, LPARAM extra) {
    state.items.emplace_back(textArgument(extra));
    const auto index = static_cast<LRESULT>(state.items.size()) - 1;
    report(combo, DSWindowChange::Changed);
    return index;
}

LRESULT clearItems(HWND combo, DSWindowState& state) {
    const bool empty = state.items.empty();
    state.items.clear();
    state.selection = -1;
    if (!empty) report(combo, DSWindowChange::Changed);
    return 0;
}

/// Any index without an item, as -1, ends the selection.
LRESULT select(HWND combo, DSWindowState& state, WPARAM wide) {
    const int wanted = static_cast<int>(wide);
    const bool valid = wanted >= 0 && static_cast<std::size_t>(wanted) < state.items.size();
    const int selection = valid ? wanted : -1;
    if (selection != state.selection) {
        state.selection = selection;
        report(combo, DSWindowChange::Changed);
    }
    return valid ? selection : CB_ERR;
}

LRESULT sendToCombo(HWND combo, DSWindowState& state, UINT message, WPARAM wide, LPARAM extra) {
    const bool typed = (state.style & CBS_DROPDOWNLIST) != CBS_DROPDOWNLIST;
    switch (message) {
        case WM_SETTEXT:
            return typed ? setText(combo, state, extra) : CB_ERR;
        case CB_ADDSTRING:
            return unlessOutOfMemory(kNoSpaceInCombo, [&] { return addItem(combo, state, extra); });
        case CB_GETCOUNT:
            return static_cast<LRESULT>(state.items.size());
        case CB_GETCURSEL:
            return state.selection;
        case CB_RESETCONTENT:
            return clearItems(combo, state);
        case CB_SETCURSEL:
            return select(combo, state, wide);
        case CB_GETDROPPEDSTATE:
            return FALSE;
        default:
            return 0;
    }
}

/// Of the buttons, only automatic check boxes have a check.
LRESULT sendToButton(HWND button, DSWindowState& state, UINT message, WPARAM wide, LPARAM extra) {
    if (message == WM_SETTEXT) return setText(button, state, extra);
    if (message == BM_GETCHECK) return static_cast<LRESULT>(state.checked);
    const bool hasCheck = (state.style & BS_TYPEMASK) == BS_AUTOCHECKBOX;
    const bool checked = wide != BST_UNCHECKED;
    if (message == BM_SETCHECK && hasCheck && checked != state.checked) {
        state.checked = checked;
        report(button, DSWindowChange::Changed);
    }
    return 0;
}

}  // namespace

LRESULT SendMessageW(HWND window, UINT message, WPARAM wide, LPARAM extra) {
    Window* found = find(window);
    if (!found) return 0;
    if (found->procedure) {
        const INT_PTR processed = callProcedure(window, message, wide, extra);
        if (processed != 0) return message == WM_INITDIALOG ? processed : 0;
        found = find(window);
        if (!found) return 0;
    }
    DSWindowState& state = found->state;
    return unlessOutOfMemory<LRESULT>(0, [&]() -> LRESULT {
        if (state.className == "combobox") return sendToCombo(window, state, message, wide, extra);
        if (state.className == "button") return sendToButton(window, state, message, wide, extra);
        return message == WM_SETTEXT ? setText(window, state, extra) : 0;
    });
}
