// The line at the bottom of the window that says what has been done.

#pragma once

#include <string>
#include <windows.h>

namespace ruvex::page_host {

/// A child window, which the parent destroys.
class StatusBar {
public:
    /// Throws runtime::Error.
    StatusBar(HWND parent, int controlId);

    void show(const std::wstring& text);
    /// Moves it to the bottom of its parent, whose size has changed.
    void fitToParent();
    /// In pixels.
    LONG height() const;

private:
    HWND bar_;
};

}  // namespace ruvex::page_host
