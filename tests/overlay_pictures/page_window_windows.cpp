#include "tests/overlay_pictures/page_window.h"

namespace ruvex::test {

HWND parentOfPages() {
    static const HWND window =
        CreateWindowExW(0, L"Static", L"", WS_OVERLAPPEDWINDOW, 0, 0, 800, 600, nullptr, nullptr,
                        GetModuleHandleW(nullptr), nullptr);
    return window;
}

void clickButton(HWND button) {
    SendMessageW(button, BM_CLICK, 0, 0);
}

}  // namespace ruvex::test
