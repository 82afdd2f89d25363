// clang-format off
#include <windows.h>
#include <commctrl.h>  // needs the names of windows.h
// clang-format on

#include "tools/page_host/status_bar.h"

#include "runtime/error.h"
#include "tools/page_host/message_font.h"
#include "tools/page_host/window.h"

namespace ruvex::page_host {

StatusBar::StatusBar(HWND parent, int controlId)
    : bar_(CreateWindowExW(0, STATUSCLASSNAMEW, L"", WS_CHILD | WS_VISIBLE | SBARS_SIZEGRIP, 0, 0,
                           0, 0, parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(controlId)),
                           GetModuleHandleW(nullptr), nullptr)) {
    if (!bar_) throw runtime::Error("the system cannot make a status bar");
    useMessageFont(bar_);
    fitToParent();
}

void StatusBar::show(const std::wstring& text) {
    SetWindowTextW(bar_, text.c_str());
}

void StatusBar::fitToParent() {
    SendMessageW(bar_, WM_SIZE, 0, 0);
}

LONG StatusBar::height() const {
    const RECT area = screenRect(bar_);
    return area.bottom - area.top;
}

}  // namespace ruvex::page_host
