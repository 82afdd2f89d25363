// clang-format off
#include <windows.h>
#include <commctrl.h>  // needs the names of windows.h
// clang-format on

#include "tools/page_host/page_tabs.h"

#include <algorithm>

#include "runtime/error.h"
#include "tools/page_host/message_font.h"

namespace ruvex::page_host {
namespace {

SIZE sizeOf(HWND window) {
    const RECT area = screenRect(window);
    return {area.right - area.left, area.bottom - area.top};
}

}  // namespace

PageTabs::PageTabs(HWND parent, int controlId)
    : parent_(parent),
      tabs_(CreateWindowExW(0, WC_TABCONTROLW, L"",
                            WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_CLIPSIBLINGS | TCS_MULTILINE, 0,
                            0, 0, 0, parent,
                            reinterpret_cast<HMENU>(static_cast<INT_PTR>(controlId)),
                            GetModuleHandleW(nullptr), nullptr)) {
    if (!tabs_) throw runtime::Error("the system cannot make tabs");
    useMessageFont(tabs_);
    // Narrow enough for all pages in one row.
    TabCtrl_SetPadding(tabs_, gap() / 2, gap() / 2);
}

void PageTabs::open(EditedEffect& effect, int front) {
    close();
    for (const GUID& classId : effect.editor().pages()) {
        auto page = effect.editor().open(classId, parent_);
        std::wstring title = page->title();
        TCITEMW item{};
        item.mask = TCIF_TEXT;
        item.pszText = title.data();
        TabCtrl_InsertItem(tabs_, static_cast<int>(pages_.size()), &item);
        pages_.push_back({classId, std::move(title), std::move(page)});
    }
    // The width decides on the number of rows of tabs, and these on the height.
    resize();
    resize();
    if (front < std::ssize(pages_)) bringToFront(front);
}

void PageTabs::close() {
    front_ = -1;
    pages_.clear();
    TabCtrl_DeleteAllItems(tabs_);
}

SIZE PageTabs::size() const {
    SIZE page{};
    for (const Page& each : pages_) {
        const SIZE own = sizeOf(each.open->window());
        page = {std::max(page.cx, own.cx), std::max(page.cy, own.cy)};
    }
    RECT area{0, 0, page.cx, page.cy};
    TabCtrl_AdjustRect(tabs_, TRUE, &area);
    return {area.right - area.left, area.bottom - area.top};
}

void PageTabs::resize() {
    const SIZE wanted = size();
    SetWindowPos(tabs_, nullptr, 0, 0, wanted.cx, wanted.cy, SWP_NOMOVE | SWP_NOZORDER);
}

RECT PageTabs::pageArea() const {
    RECT area = screenRect(tabs_);
    MapWindowPoints(nullptr, parent_, reinterpret_cast<POINT*>(&area), 2);
    TabCtrl_AdjustRect(tabs_, FALSE, &area);
    return area;
}

void PageTabs::moveTo(POINT topLeft) {
    SetWindowPos(tabs_, nullptr, topLeft.x, topLeft.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    const RECT area = pageArea();
    for (const Page& page : pages_) {
        // Above the tabs, so that these do not paint over the page.
        SetWindowPos(page.open->window(), HWND_TOP, area.left, area.top, 0, 0,
                     SWP_NOSIZE | SWP_NOACTIVATE);
    }
}

void PageTabs::bringToFront(int index) {
    const int before = front_;
    if (index == before) return;
    front_ = index;
    TabCtrl_SetCurSel(tabs_, index);
    pages_[static_cast<std::size_t>(index)].open->show();
    if (before >= 0) pages_[static_cast<std::size_t>(before)].open->hide();
}

/// A number that has the focus enters what was typed into it before its page is hidden.
void PageTabs::switchTo(int index) {
    SetFocus(tabs_);
    bringToFront(index);
}

void PageTabs::selected() {
    switchTo(TabCtrl_GetCurSel(tabs_));
}

void PageTabs::selectNext(int steps) {
    const int count = static_cast<int>(pages_.size());
    if (count == 0) return;
    switchTo((front_ + steps + count) % count);
}

bool PageTabs::isPage(HWND window) const {
    return std::ranges::any_of(pages_,
                               [&](const Page& page) { return page.open->window() == window; });
}

void PageTabs::showHelp() {
    if (front_ < 0) return;
    runtime::require(pages_[static_cast<std::size_t>(front_)].open->page().Help(nullptr),
                     "the page cannot open its help");
}

RECT PageTabs::tabRectOnScreen(int index) const {
    RECT rect{};
    TabCtrl_GetItemRect(tabs_, index, &rect);
    MapWindowPoints(tabs_, nullptr, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

}  // namespace ruvex::page_host
