#include "tools/page_host/window.h"

#include <exception>

#include "runtime/error.h"
#include "sdk/com/utf8.h"

namespace ruvex::page_host {

void showError(HWND owner, const std::string& message) {
    MessageBoxW(owner, fromUtf8(message).c_str(), L"V_Ruvex", MB_OK | MB_ICONERROR);
}

Window::~Window() {
    if (!handle_) return;
    // The derived part has gone, so that messages do not concern this object any more.
    SetWindowLongPtrW(handle_, GWLP_USERDATA, 0);
    DestroyWindow(handle_);
}

void Window::registerClass(const Options& options) {
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    if (GetClassInfoExW(GetModuleHandleW(nullptr), options.className, &windowClass)) return;
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.hbrBackground = GetSysColorBrush(options.background);
    windowClass.lpszClassName = options.className;
    RegisterClassExW(&windowClass);
}

void Window::create(const Options& options) {
    registerClass(options);
    CreateWindowExW(options.extendedStyle, options.className, options.title, options.style,
                    CW_USEDEFAULT, CW_USEDEFAULT, options.size.cx, options.size.cy, options.parent,
                    options.menu, GetModuleHandleW(nullptr), this);
    if (!handle_) throw runtime::Error("the system cannot make a window");
}

LRESULT CALLBACK Window::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        auto* const creation = reinterpret_cast<CREATESTRUCTW*>(lParam);
        auto* const created = static_cast<Window*>(creation->lpCreateParams);
        created->handle_ = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(created));
    }
    auto* const self = reinterpret_cast<Window*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!self) return DefWindowProcW(window, message, wParam, lParam);
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        self->handle_ = nullptr;
        return DefWindowProcW(window, message, wParam, lParam);
    }
    // The system's code, which calls this function, must not see exceptions.
    try {
        return self->onMessage(message, wParam, lParam);
    } catch (const std::exception& error) {
        showError(window, error.what());
        return 0;
    }
}

SIZE clientSize(HWND window) {
    RECT area{};
    GetClientRect(window, &area);
    return {area.right, area.bottom};
}

RECT screenRect(HWND window) {
    RECT area{};
    GetWindowRect(window, &area);
    return area;
}

}  // namespace ruvex::page_host
