#include <string>

#include "sdk/pages/dialog_size.h"
#include "sdk/resources/dialog_template.h"
#include "sdk/resources/module_resource.h"

namespace {

/// A context of the screen with a dialog's font.
class FontContext {
public:
    explicit FontContext(const ruvex::DialogTemplate& dialog)
        : context_(GetDC(nullptr)),
          font_(CreateFontW(heightOf(dialog), 0, 0, 0, dialog.weight, dialog.italic, FALSE, FALSE,
                            DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS,
                            DEFAULT_QUALITY, FF_DONTCARE, typefaceOf(dialog).c_str())),
          fontBefore_(SelectObject(context_, font_)) {}
    FontContext(const FontContext&) = delete;
    FontContext& operator=(const FontContext&) = delete;
    ~FontContext() {
        SelectObject(context_, fontBefore_);
        DeleteObject(font_);
        ReleaseDC(nullptr, context_);
    }

    /// The pixels of 4 dialog units across and 8 down: the average width of the letters, rounded,
    /// and the height of the font.
    SIZE baseUnits() const {
        const std::wstring letters = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
        SIZE extent{};
        TEXTMETRICW metrics{};
        GetTextExtentPoint32W(context_, letters.c_str(), static_cast<int>(letters.size()), &extent);
        GetTextMetricsW(context_, &metrics);
        return {(extent.cx / 26 + 1) / 2, metrics.tmHeight};
    }

private:
    static std::wstring typefaceOf(const ruvex::DialogTemplate& dialog) {
        std::wstring name;
        for (std::size_t i = 0; i < dialog.typeface.size() && dialog.typeface[i]; ++i) {
            name += static_cast<wchar_t>(dialog.typeface[i]);
        }
        return name;
    }

    /// The height of the characters in pixels, which CreateFontW takes as a negative number.
    int heightOf(const ruvex::DialogTemplate& dialog) const {
        constexpr int kPointsPerInch = 72;
        return -MulDiv(dialog.pointSize, GetDeviceCaps(context_, LOGPIXELSY), kPointsPerInch);
    }

    HDC context_;
    HFONT font_;
    HGDIOBJ fontBefore_;
};

}  // namespace

SIZE DSDialogSize(HINSTANCE module, UINT dialogId) {
    const auto number = static_cast<std::uint16_t>(dialogId);
    const auto dialog = ruvex::readDialog(ruvex::moduleDialog(module, number));
    if (!dialog) return {0, 0};
    constexpr int kUnitsAcross = 4, kUnitsDown = 8;
    const SIZE base = FontContext(*dialog).baseUnits();
    return {MulDiv(dialog->width, base.cx, kUnitsAcross),
            MulDiv(dialog->height, base.cy, kUnitsDown)};
}
