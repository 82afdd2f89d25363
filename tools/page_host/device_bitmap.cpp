#include "tools/page_host/device_bitmap.h"

#include <utility>

#include "runtime/error.h"

namespace ruvex::page_host {

BITMAPINFO bitmapInfo(SIZE size) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = size.cx;
    info.bmiHeader.biHeight = size.cy;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    return info;
}

void swapRedAndBlue(std::span<std::uint8_t> pixels) {
    for (std::size_t i = 0; i + 3 < pixels.size(); i += 4) std::swap(pixels[i], pixels[i + 2]);
}

DeviceBitmap::DeviceBitmap(HDC like, SIZE size) : size_(size), context_(CreateCompatibleDC(like)) {
    const BITMAPINFO info = bitmapInfo(size);
    bitmap_ = CreateDIBSection(like, &info, DIB_RGB_COLORS, &bits_, nullptr, 0);
    if (!context_ || !bitmap_) {
        DeleteDC(context_);
        throw runtime::Error("the system cannot make a bitmap of " + std::to_string(size.cx) + "x" +
                             std::to_string(size.cy) + " pixels");
    }
    before_ = SelectObject(context_, bitmap_);
}

DeviceBitmap::~DeviceBitmap() {
    SelectObject(context_, before_);
    DeleteObject(bitmap_);
    DeleteDC(context_);
}

std::span<std::uint8_t> DeviceBitmap::bytes() {
    GdiFlush();
    return {static_cast<std::uint8_t*>(bits_),
            4 * static_cast<std::size_t>(size_.cx) * static_cast<std::size_t>(size_.cy)};
}

void DeviceBitmap::fill(const RECT& area, COLORREF colour) {
    SetDCBrushColor(context_, colour);
    FillRect(context_, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

void DeviceBitmap::write(const std::wstring& text, COLORREF textColour) {
    constexpr int kIndent = 16;
    RECT area{kIndent, kIndent, size_.cx - kIndent, size_.cy - kIndent};
    SelectObject(context_, GetStockObject(DEFAULT_GUI_FONT));
    SetTextColor(context_, textColour);
    SetBkMode(context_, TRANSPARENT);
    DrawTextW(context_, text.c_str(), static_cast<int>(text.size()), &area,
              DT_CENTER | DT_WORDBREAK | DT_NOPREFIX);
}

void DeviceBitmap::copyTo(HDC context) const {
    BitBlt(context, 0, 0, size_.cx, size_.cy, context_, 0, 0, SRCCOPY);
}

}  // namespace ruvex::page_host
