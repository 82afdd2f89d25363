// A bitmap to draw in with the system's functions and pixel by pixel.

#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <type_traits>
#include <windows.h>

namespace ruvex::page_host {

/// 32 bits a pixel: blue, green, red, and a byte that the system does not use. The first row is the
/// bottom one.
class DeviceBitmap {
public:
    /// Throws runtime::Error. The size is positive.
    DeviceBitmap(HDC like, SIZE size);

    HDC context() const { return context_.get(); }
    /// All pixels. What the system draws before is finished when this returns.
    std::span<std::uint8_t> bytes();

    void copyTo(HDC context) const;

private:
    struct DeleteBitmap {
        void operator()(HBITMAP bitmap) const { DeleteObject(bitmap); }
    };
    struct DeleteContext {
        void operator()(HDC context) const { DeleteDC(context); }
    };

    SIZE size_;
    void* bits_ = nullptr;
    std::unique_ptr<std::remove_pointer_t<HBITMAP>, DeleteBitmap> bitmap_;
    /// Deleted before the bitmap, which is selected into it.
    std::unique_ptr<std::remove_pointer_t<HDC>, DeleteContext> context_;
};

void fillArea(HDC context, const RECT& area, COLORREF colour);

/// Writes centred text at the top of an area of this size, in several lines if it is long.
void writeText(HDC context, SIZE size, std::wstring_view text, COLORREF textColour);

/// The system's description of such a bitmap.
BITMAPINFO bitmapInfo(SIZE size);

/// Swaps the first and the third byte of each pixel of four.
void swapRedAndBlue(std::span<std::uint8_t> pixels);

}  // namespace ruvex::page_host
