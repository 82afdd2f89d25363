// A control of a page and its caption.

#pragma once

#include "sdk/window/window.h"

namespace ruvex {

class VxDsPPG;

/// Plain data, a member of its page. Nothing is done while `page` is null. The identifier 0 means
/// that there is no such control or caption.
struct VxPPGPair {
    VxDsPPG* page = nullptr;
    UINT controlId = 0;
    UINT labelId = 0;

    /// Set and clear the show bits of control and caption.
    void Show() const { show(SW_SHOWNORMAL); }
    void Hide() const { show(SW_HIDE); }
    /// Enables or disables the control; the caption keeps its look.
    void Enable(bool enable) const;

    /// Sets the range of a number control; it replaces that of the control's title.
    void SetRange(double low, double high) const;

protected:
    void show(int command) const;
    /// The control's window; null without page or control.
    HWND window() const;
};

}  // namespace ruvex
