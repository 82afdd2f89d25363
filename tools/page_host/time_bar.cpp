// clang-format off
#include <windows.h>
#include <commctrl.h>  // needs the names of windows.h
// clang-format on

#include "tools/page_host/time_bar.h"

#include <algorithm>
#include <cwchar>

#include "runtime/error.h"
#include "tools/page_host/message_font.h"

namespace ruvex::page_host {
namespace {

constexpr double kSeconds = 10.0;

HWND makeChild(HWND parent, const wchar_t* className, DWORD style, int id) {
    const HWND child = CreateWindowExW(0, className, L"", WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0,
                                       parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                                       GetModuleHandleW(nullptr), nullptr);
    if (!child) throw runtime::Error("the system cannot make a slider");
    return child;
}

}  // namespace

TimeBar::TimeBar(HWND parent, int controlId, double frameRate)
    : slider_(makeChild(parent, TRACKBAR_CLASSW, WS_TABSTOP | TBS_HORZ | TBS_NOTICKS, controlId)),
      label_(makeChild(parent, L"Static", SS_CENTERIMAGE, 0)),
      frameRate_(frameRate) {
    SendMessageW(slider_, TBM_SETRANGEMAX, FALSE, lastFrame());
    SendMessageW(slider_, TBM_SETPAGESIZE, 0, static_cast<LPARAM>(frameRate));
    useMessageFont(label_);
    showFrame(0);
}

int TimeBar::height() {
    return 2 * textSize(L"X").cy;
}

int TimeBar::lastFrame() const {
    return static_cast<int>(kSeconds * frameRate_);
}

int TimeBar::frame() const {
    return static_cast<int>(SendMessageW(slider_, TBM_GETPOS, 0, 0));
}

void TimeBar::showFrame(int frame) {
    shownFrame_ = frame;
    SendMessageW(slider_, TBM_SETPOS, TRUE, frame);
    SetWindowTextW(label_, textOf(frame).c_str());
}

std::wstring TimeBar::textOf(int frame) const {
    wchar_t text[64];
    std::swprintf(text, std::size(text), L"Frame %d, %.2f s", frame, frame / frameRate_);
    return text;
}

void TimeBar::moveTo(const RECT& area) {
    const int height = area.bottom - area.top;
    const int labelWidth = textSize(textOf(lastFrame())).cx + gap();
    const int sliderWidth = std::max<int>(0, area.right - area.left - labelWidth);
    MoveWindow(slider_, area.left, area.top, sliderWidth, height, TRUE);
    MoveWindow(label_, area.left + sliderWidth, area.top, labelWidth, height, TRUE);
}

}  // namespace ruvex::page_host
