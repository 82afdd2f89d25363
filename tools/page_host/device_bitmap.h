// A bitmap to draw in with the system's functions and pixel by pixel.

#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <windows.h>

namespace ruvex::page_host {

/// 32 bits a pixel: blue, green, red, and a byte that the system does not use. The first row is the
/// bottom one.
class DeviceBitmap {
public:
    /// Throws runtime::Error. The size is positive.
    DeviceBitmap(HDC like, SIZE size);
    ~DeviceBitmap();
    DeviceBitmap(const DeviceBitmap&) = delete;
    DeviceBitmap& operator=(const DeviceBitmap&) = delete;

    HDC context() const { return context_; }
    /// All pixels. What the system draws before is finished when this returns.
    std::span<std::uint8_t> bytes();

    void fill(const RECT& area, COLORREF colour);
    /// Text in the middle, in several lines if it is long.
    void write(const std::wstring& text, COLORREF textColour);
    void copyTo(HDC context) const;

private:
    SIZE size_;
    HDC context_ = nullptr;
    HBITMAP bitmap_ = nullptr;
    HGDIOBJ before_ = nullptr;
    void* bits_ = nullptr;
};

/// The system's description of such a bitmap.
BITMAPINFO bitmapInfo(SIZE size);

/// Swaps the first and the third byte of each pixel of four.
void swapRedAndBlue(std::span<std::uint8_t> pixels);

}  // namespace ruvex::page_host
