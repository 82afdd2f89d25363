#include "tools/page_host/message_font.h"

namespace ruvex::page_host {
namespace {

class MessageFont {
public:
    MessageFont() {
        NONCLIENTMETRICSW metrics{};
        metrics.cbSize = sizeof metrics;
        SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
        font_ = CreateFontIndirectW(&metrics.lfMessageFont);
    }
    MessageFont(const MessageFont&) = delete;
    MessageFont& operator=(const MessageFont&) = delete;
    ~MessageFont() { DeleteObject(font_); }

    HFONT get() const { return font_; }

private:
    HFONT font_;
};

}  // namespace

HFONT messageFont() {
    static const MessageFont font;
    return font.get();
}

void useMessageFont(HWND control) {
    SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(messageFont()), TRUE);
}

SIZE textSize(const std::wstring& text) {
    const HDC screen = GetDC(nullptr);
    const HGDIOBJ before = SelectObject(screen, messageFont());
    SIZE size{};
    GetTextExtentPoint32W(screen, text.c_str(), static_cast<int>(text.size()), &size);
    SelectObject(screen, before);
    ReleaseDC(nullptr, screen);
    return size;
}

int gap() {
    return (textSize(L"X").cy + 1) / 2;
}

}  // namespace ruvex::page_host
