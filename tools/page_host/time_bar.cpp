// clang-format off
#include <windows.h>
#include <commctrl.h>  // needs the names of windows.h
// clang-format on

#include "tools/page_host/time_bar.h"

#include <cwchar>

#include "runtime/error.h"

namespace ruvex::page_host {
namespace {

constexpr double kSeconds = 10.0;
constexpr int kLabelWidth = 130;

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
    const auto frames = static_cast<LPARAM>(kSeconds * frameRate);
    SendMessageW(slider_, TBM_SETRANGEMAX, FALSE, frames);
    SendMessageW(slider_, TBM_SETPAGESIZE, 0, static_cast<LPARAM>(frameRate));
    SendMessageW(label_, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), 0);
    showFrame(0);
}

int TimeBar::frame() const {
    return static_cast<int>(SendMessageW(slider_, TBM_GETPOS, 0, 0));
}

void TimeBar::showFrame(int frame) {
    wchar_t text[64];
    std::swprintf(text, std::size(text), L"Frame %d, %.2f s", frame, frame / frameRate_);
    SendMessageW(slider_, TBM_SETPOS, TRUE, frame);
    SetWindowTextW(label_, text);
}

void TimeBar::moveTo(const RECT& area) {
    const int height = area.bottom - area.top;
    const int sliderWidth = area.right - area.left - kLabelWidth;
    MoveWindow(slider_, area.left, area.top, sliderWidth, height, TRUE);
    MoveWindow(label_, area.left + sliderWidth, area.top, kLabelWidth, height, TRUE);
}

}  // namespace ruvex::page_host
