#include "tests/windows/opened_pages.h"

#include "host/base/class_ids.h"
#include "pages/resources/resource_ids.h"

namespace ruvex::test {

const PageKind kPages[8] = {{kRuvexPageId, IDD_MAIN},        {kGunsPageId, IDD_GUNS},
                            {kBreakup1PageId, IDD_BREAKUP1}, {kBreakup2PageId, IDD_BREAKUP2},
                            {kShashPageId, IDD_SHASH},       {kEffectsPageId, IDD_EFFECTS},
                            {kCropPageId, IDD_CROPPING},     {kHelpPageId, IDD_HELP}};

PageHost::PageHost() {
    parent_ = CreateWindowExW(0, L"Static", L"", WS_OVERLAPPEDWINDOW, 0, 0, 800, 600, nullptr,
                              nullptr, GetModuleHandleW(nullptr), nullptr);
}

PageHost::~PageHost() {
    DestroyWindow(parent_);
}

Page PageHost::open(const GUID& classId) {
    Page page = editor.open(classId, parent_);
    page->show();
    return page;
}

double PageHost::value(ParameterId id) const {
    return session.value(row(id).identifier);
}

HWND item(const Page& page, int id) {
    return GetDlgItem(page->window(), id);
}

bool shown(const Page& page, int id) {
    return (GetWindowLongPtrW(item(page, id), GWL_STYLE) & WS_VISIBLE) != 0;
}

std::wstring textOf(HWND window) {
    wchar_t text[2048] = L"";
    GetWindowTextW(window, text, 2048);
    return text;
}

void choose(const Page& page, int id, int index) {
    SendMessageW(item(page, id), CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    SendMessageW(page->window(), WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(item(page, id)));
}

bool choose(const Page& page, int id, const wchar_t* text) {
    const LRESULT found = SendMessageW(item(page, id), CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                       reinterpret_cast<LPARAM>(text));
    if (found == CB_ERR) return false;
    choose(page, id, static_cast<int>(found));
    return true;
}

void click(const Page& page, int id) {
    SendMessageW(item(page, id), BM_CLICK, 0, 0);
}

void type(const Page& page, int id, const char* text) {
    for (; *text; ++text) SendMessageW(item(page, id), WM_CHAR, static_cast<WPARAM>(*text), 0);
    SendMessageW(item(page, id), WM_KEYDOWN, VK_RETURN, 0);
}

std::optional<DialogTemplate> templateOf(HINSTANCE module, std::uint16_t number) {
    const HRSRC found = FindResourceW(module, MAKEINTRESOURCEW(number), RT_DIALOG);
    const HGLOBAL loaded = found ? LoadResource(module, found) : nullptr;
    if (!loaded) return std::nullopt;
    return readDialog(
        {static_cast<const unsigned char*>(LockResource(loaded)), SizeofResource(module, found)});
}

}  // namespace ruvex::test
