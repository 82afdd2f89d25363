#include "tools/page_host/device_bitmap.h"

#include <utility>

#include "runtime/error.h"
#include "tools/page_host/message_font.h"

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

DeviceBitmap::DeviceBitmap(HDC like, SIZE size) : size_(size) {
    const BITMAPINFO info = bitmapInfo(size);
    bitmap_.reset(CreateDIBSection(like, &info, DIB_RGB_COLORS, &bits_, nullptr, 0));
    context_.reset(CreateCompatibleDC(like));
    if (!context_ || !bitmap_) {
        throw runtime::Error("the system cannot make a bitmap of " + std::to_string(size.cx) + "x" +
                             std::to_string(size.cy) + " pixels");
    }
    SelectObject(context_.get(), bitmap_.get());
}

std::span<std::uint8_t> DeviceBitmap::bytes() {
    GdiFlush();
    return {static_cast<std::uint8_t*>(bits_),
            4 * static_cast<std::size_t>(size_.cx) * static_cast<std::size_t>(size_.cy)};
}

void DeviceBitmap::copyTo(HDC context) const {
    BitBlt(context, 0, 0, size_.cx, size_.cy, context_.get(), 0, 0, SRCCOPY);
}

void fillArea(HDC context, const RECT& area, COLORREF colour) {
    SetDCBrushColor(context, colour);
    FillRect(context, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

void writeText(HDC context, SIZE size, std::wstring_view text, COLORREF textColour) {
    const int indent = 2 * gap();
    RECT area{indent, indent, size.cx - indent, size.cy - indent};
    SelectObject(context, messageFont());
    SetTextColor(context, textColour);
    SetBkMode(context, TRANSPARENT);
    DrawTextW(context, text.data(), static_cast<int>(text.size()), &area,
              DT_CENTER | DT_WORDBREAK | DT_NOPREFIX);
}

}  // namespace ruvex::page_host
