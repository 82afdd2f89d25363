// The slider for the current time.

#pragma once

#include <string>
#include <windows.h>

namespace ruvex::page_host {

/// A slider over the frames of ten seconds, and a label with the frame and its time.
class TimeBar {
public:
    TimeBar(HWND parent, int controlId, double frameRate);

    /// The frame that the slider is at, from 0.
    int frame() const;
    /// Moves the slider to a frame and writes it into the label.
    void showFrame(int frame);
    /// The frame that was given last.
    int shownFrame() const { return shownFrame_; }
    /// In pixels.
    static int height();
    /// In pixels of the parent.
    void moveTo(const RECT& area);

private:
    int lastFrame() const;
    std::wstring textOf(int frame) const;

    HWND slider_;
    HWND label_;
    double frameRate_;
    int shownFrame_ = 0;
};

}  // namespace ruvex::page_host
