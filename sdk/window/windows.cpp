// Windows in memory: relations, show and enable bits, places, texts.

#include <algorithm>

#include "sdk/window/window_table.h"

using ruvex::windows::find;
using ruvex::windows::report;
using ruvex::windows::Window;

namespace {

/// Sets or clears a bit of a window's style. Returns whether it was set before.
bool setStyleBit(HWND window, std::uint32_t bit, bool set) {
    Window* const found = find(window);
    if (!found) return false;
    std::uint32_t& style = found->state.style;
    const bool before = (style & bit) != 0;
    if (before == set) return before;
    style ^= bit;
    report(window, DSWindowChange::Changed);
    return before;
}

HWND nextSibling(HWND window) {
    const Window* const found = find(window);
    const Window* const parent = found ? find(found->state.parent) : nullptr;
    if (!parent) return nullptr;
    const auto& siblings = parent->state.children;
    const auto place = std::ranges::find(siblings, window);
    return place == siblings.end() || place + 1 == siblings.end() ? nullptr : place[1];
}

/// Moves a window before all its siblings (`after` is null) or behind one of them. False if `after`
/// is no sibling.
bool reorder(HWND window, HWND parent, HWND after) {
    Window* const found = find(parent);
    if (!found) return after == nullptr;
    auto& siblings = found->state.children;
    const auto place = std::ranges::find(siblings, window);
    if (!after) {
        std::rotate(siblings.begin(), place, place + 1);
        return true;
    }
    const auto target = std::ranges::find(siblings, after);
    if (target == siblings.end()) return false;
    if (place < target) {
        std::rotate(place, place + 1, target + 1);
    } else if (target < place) {
        std::rotate(target + 1, place, place + 1);
    }
    return true;
}

void resize(DSWindowState& state, int width, int height) {
    state.rect.width = width;
    (state.className == "combobox" ? state.listHeight : state.rect.height) = height;
}

/// The text that a window gives: of a drop-down list, the selected item.
const std::wstring& visibleText(const DSWindowState& state) {
    const bool list = state.className == "combobox" &&
                      (state.style & CBS_DROPDOWNLIST) == CBS_DROPDOWNLIST && state.selection >= 0;
    return list ? state.items[static_cast<std::size_t>(state.selection)] : state.text;
}

}  // namespace

BOOL InvalidateRect(HWND window, const RECT*, BOOL) {
    if (!find(window)) return FALSE;
    report(window, DSWindowChange::Changed);
    return TRUE;
}

BOOL DestroyWindow(HWND window) {
    if (!find(window)) return FALSE;
    ruvex::windows::destroy(window);
    return TRUE;
}

HWND GetDlgItem(HWND dialog, int id) {
    const Window* const found = find(dialog);
    if (!found) return nullptr;
    const auto& children = found->state.children;
    const auto hasId = [id](HWND child) { return find(child)->state.id == id; };
    const auto place = std::ranges::find_if(children, hasId);
    return place == children.end() ? nullptr : *place;
}

HWND GetWindow(HWND window, UINT relation) {
    if (relation == GW_HWNDNEXT) return nextSibling(window);
    const Window* const found = find(window);
    const bool firstChild = relation == GW_CHILD && found && !found->state.children.empty();
    return firstChild ? found->state.children.front() : nullptr;
}

BOOL ShowWindow(HWND window, int command) {
    return setStyleBit(window, WS_VISIBLE, command != SW_HIDE);
}

BOOL EnableWindow(HWND window, BOOL enable) {
    return setStyleBit(window, WS_DISABLED, !enable);
}

BOOL SetWindowPos(HWND window, HWND after, int x, int y, int width, int height, UINT flags) {
    Window* const found = find(window);
    if (!found) return FALSE;
    DSWindowState& state = found->state;
    if ((flags & SWP_NOZORDER) == 0 && !reorder(window, state.parent, after)) return FALSE;
    if ((flags & SWP_NOMOVE) == 0) {
        state.rect.x = x;
        state.rect.y = y;
    }
    if ((flags & SWP_NOSIZE) == 0) resize(state, width, height);
    report(window, DSWindowChange::Changed);
    return TRUE;
}

int GetWindowTextW(HWND window, wchar_t* text, int size) {
    if (!text || size <= 0) return 0;
    const Window* const found = find(window);
    const std::wstring_view whole = found ? visibleText(found->state) : std::wstring_view();
    const std::size_t count = whole.copy(text, static_cast<std::size_t>(size) - 1);
    text[count] = L'\0';
    return static_cast<int>(count);
}

void DSSetWindowClass(HWND window, const char* className) {
    Window* const found = find(window);
    if (!found || found->state.className == className) return;
    found->state.className = className;
    report(window, DSWindowChange::Changed);
}

void DSSetWindowTip(HWND window, const wchar_t* tip) {
    Window* const found = find(window);
    const std::wstring_view text = tip ? tip : L"";
    if (!found || found->state.tip == text) return;
    found->state.tip = text;
    report(window, DSWindowChange::Changed);
}

void DSTouchWindow(HWND window) {
    if (find(window)) report(window, DSWindowChange::Changed);
}
