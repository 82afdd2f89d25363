// A window whose messages an object handles.

#pragma once

#include <string>
#include <windows.h>

namespace ruvex::page_host {

/// Shows what went wrong in a dialog and waits until it is closed.
void showError(HWND owner, const std::string& message);

/// The base of the program's windows. The window is destroyed with the object, unless its parent
/// has destroyed it before.
class Window {
public:
    Window() = default;
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;
    virtual ~Window();

    /// Null before `create` and after the window was destroyed.
    HWND handle() const { return handle_; }

protected:
    struct Options {
        const wchar_t* className;
        const wchar_t* title = L"";
        DWORD style = 0;
        DWORD extendedStyle = 0;
        HWND parent = nullptr;
        SIZE size{};
        HMENU menu = nullptr;
        int background = COLOR_BTNFACE;  ///< A system colour.
    };

    /// Throws runtime::Error.
    void create(const Options& options);

    /// Handles a message. An exception is shown to the user, and the message counts as handled.
    virtual LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) = 0;

    LRESULT defaultAnswer(UINT message, WPARAM wParam, LPARAM lParam) {
        return DefWindowProcW(handle_, message, wParam, lParam);
    }

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    static void registerClass(const Options& options);

    HWND handle_ = nullptr;
};

/// The area of a window's inside, from (0, 0).
SIZE clientSize(HWND window);

/// The rectangle of a window on the screen, in pixels.
RECT screenRect(HWND window);

}  // namespace ruvex::page_host
