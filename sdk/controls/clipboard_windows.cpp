#include "sdk/controls/clipboard_windows.h"

#include <cstring>

#include "sdk/com/utf8.h"

namespace ruvex::controls {
namespace {

class OpenClipboardScope {
public:
    explicit OpenClipboardScope(HWND window) : open_(OpenClipboard(window) != FALSE) {}
    OpenClipboardScope(const OpenClipboardScope&) = delete;
    OpenClipboardScope& operator=(const OpenClipboardScope&) = delete;
    ~OpenClipboardScope() {
        if (open_) CloseClipboard();
    }
    explicit operator bool() const { return open_; }

private:
    bool open_;
};

/// A copy for the clipboard; null without memory.
HGLOBAL globalCopy(const std::wstring& text) {
    const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes);
    void* const target = memory ? GlobalLock(memory) : nullptr;
    if (!target) return nullptr;
    std::memcpy(target, text.c_str(), bytes);
    GlobalUnlock(memory);
    return memory;
}

}  // namespace

void copyToClipboard(HWND window, const std::string& text) {
    const HGLOBAL copy = globalCopy(fromUtf8(text));
    const OpenClipboardScope clipboard(window);
    // The clipboard owns what it takes.
    const bool taken =
        copy && clipboard && EmptyClipboard() && SetClipboardData(CF_UNICODETEXT, copy) != nullptr;
    if (copy && !taken) GlobalFree(copy);
}

std::wstring clipboardText(HWND window) {
    const OpenClipboardScope clipboard(window);
    const HANDLE data = clipboard ? GetClipboardData(CF_UNICODETEXT) : nullptr;
    const auto* const text = data ? static_cast<const wchar_t*>(GlobalLock(data)) : nullptr;
    if (!text) return {};
    std::wstring copy(text);
    GlobalUnlock(data);
    return copy;
}

}  // namespace ruvex::controls
