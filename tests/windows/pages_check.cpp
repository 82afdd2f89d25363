// The property pages of the registered module in dialogs of the system, driven by messages.

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/base/class_ids.h"
#include "pages/resources/resource_ids.h"
#include "parameters/parameter_table.h"
#include "runtime/editor.h"
#include "runtime/module_loader.h"
#include "sdk/controls/host_controls.h"
#include "sdk/resources/dialog_template.h"
#include "sdk/viewer/viewer_controller.h"
#include "tests/windows/checks.h"
#include "tests/windows/recorded_shell.h"

namespace ruvex::test {
namespace {

struct PageKind {
    GUID classId;
    std::uint16_t dialog;
};
constexpr PageKind kPages[] = {{kRuvexPageId, IDD_MAIN},        {kGunsPageId, IDD_GUNS},
                               {kBreakup1PageId, IDD_BREAKUP1}, {kBreakup2PageId, IDD_BREAKUP2},
                               {kShashPageId, IDD_SHASH},       {kEffectsPageId, IDD_EFFECTS},
                               {kCropPageId, IDD_CROPPING},     {kHelpPageId, IDD_HELP}};

using Page = std::unique_ptr<runtime::OpenPage>;

/// An effect with its editor, and a window for its pages.
class PageHost {
public:
    PageHost() {
        parent_ = CreateWindowExW(0, L"Static", L"", WS_OVERLAPPEDWINDOW, 0, 0, 800, 600, nullptr,
                                  nullptr, GetModuleHandleW(nullptr), nullptr);
    }
    PageHost(const PageHost&) = delete;
    PageHost& operator=(const PageHost&) = delete;
    ~PageHost() { DestroyWindow(parent_); }

    Page open(const GUID& classId) {
        Page page = editor.open(classId, parent_);
        page->show();
        return page;
    }
    double value(ParameterId id) { return session.value(row(id).identifier); }

    runtime::EffectSession session{
        runtime::EffectSession::Setup{.project = {.width = 720, .height = 576}}};
    runtime::Editor editor{session};

private:
    HWND parent_ = nullptr;
};

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

/// Chooses an item of a list as the user does.
void choose(const Page& page, int id, int index) {
    SendMessageW(item(page, id), CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    SendMessageW(page->window(), WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(item(page, id)));
}

void click(const Page& page, int id) {
    SendMessageW(item(page, id), BM_CLICK, 0, 0);
}

/// Types a number into a number control, and Enter.
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

/// A window's rectangle in its dialog, in pixels.
RECT placeOf(HWND dialog, HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

/// Whether a control lies where its template says. The system makes a closed list as high as its
/// font, and a static with a bitmap as large as that.
bool liesInPlace(HWND dialog, HWND window, const DialogControl& control) {
    // The system converts a corner and a size, not two corners.
    RECT corner{control.x, control.y, 0, 0};
    RECT size{0, 0, control.width, control.height};
    MapDialogRect(dialog, &corner);
    MapDialogRect(dialog, &size);
    const RECT wanted{corner.left, corner.top, corner.left + size.right, corner.top + size.bottom};
    const RECT place = placeOf(dialog, window);
    if (place.left != wanted.left || place.top != wanted.top) return false;
    const bool bitmap =
        control.windowClass.number == kStaticClass && control.title.number.has_value();
    if (bitmap) return true;
    const bool list = control.windowClass.number == kComboBoxClass;
    return place.right == wanted.right && (list || place.bottom == wanted.bottom);
}

/// Of a control without an identifier of its own, the system keeps 16 bits.
bool hasId(HWND window, std::uint32_t id) {
    constexpr std::uint32_t kLow = 0xFFFF;
    return (static_cast<std::uint32_t>(GetDlgCtrlID(window)) & kLow) == (id & kLow);
}

void checkGeometry(Checks& checks, PageHost& host) {
    const HINSTANCE module = GetModuleHandleW(L"V_Ruvex.dll");
    int controls = 0;
    int misplaced = 0;
    for (const PageKind& kind : kPages) {
        const Page page = host.open(kind.classId);
        const auto dialog = templateOf(module, kind.dialog);
        checks.expect(page->window() && dialog, "a page has a window, and a template");
        if (!page->window() || !dialog) continue;
        HWND window = GetWindow(page->window(), GW_CHILD);
        for (const DialogControl& control : dialog->controls) {
            ++controls;
            const bool same =
                window && hasId(window, control.id) && liesInPlace(page->window(), window, control);
            if (!same) std::printf("dialog %d, control %d\n", kind.dialog, int(control.id));
            misplaced += same ? 0 : 1;
            window = window ? GetWindow(window, GW_HWNDNEXT) : nullptr;
        }
    }
    checks.expect(controls > 150, "the pages have controls");
    checks.expect(misplaced == 0, "each control has the order and the place of its template");
}

void checkTvType(Checks& checks, PageHost& host) {
    const Page main = host.open(kRuvexPageId);
    const Page guns = host.open(kGunsPageId);
    const Page breakup = host.open(kBreakup1PageId);
    const int tint[] = {1009, 1010, 1011, 2011, 1012, 2012, 1013, 2013};
    for (const int choice : {1, 2, 0}) {
        choose(main, IDC_TV_TYPE, choice);
        bool right = shown(main, IDC_TV_COLOUR) == (choice == 0) &&
                     shown(main, CAPTION_OF(IDC_TV_COLOUR)) == (choice == 0);
        for (const int id : tint) right = right && shown(main, id) == (choice == 2);
        checks.expect(right, "TV Type shows its controls and hides the others");
        const BOOL colour = choice == 0;
        bool enabled = true;
        for (int id = IDC_BRIGHTNESS_RED; id <= IDC_ALIGN_BLUE_Y; ++id) {
            enabled = enabled && IsWindowEnabled(item(guns, id)) == colour &&
                      IsWindowEnabled(item(guns, CAPTION_OF(id)));
        }
        enabled = enabled && IsWindowEnabled(item(breakup, IDC_COLOUR_DEGRADE_MAX)) == colour &&
                  IsWindowEnabled(item(breakup, IDC_SNOW_MAX));
        checks.expect(enabled, "and enables those of a colour set");
    }
}

void checkPresets(Checks& checks, PageHost& host) {
    const Page main = host.open(kRuvexPageId);
    const int bad = 2;
    for (int twice = 0; twice < 2; ++twice) {
        choose(main, IDC_PRESETS, bad);
        checks.expect(textOf(item(main, IDC_PRESETS)) == L"Presets...",
                      "the list of presets shows its title again");
        checks.expect(host.editor.undoStack().undoName() != L"", "a preset is a step");
    }
    const double breakupLevel = host.value(ParameterId::MasterBreakup);
    checks.expect(DSNumberControlOf(item(main, IDC_MASTER_BREAKUP))->value() == breakupLevel,
                  "the page shows the preset's values");
    click(main, IDC_MAIN_RESET);
    checks.expect(
        host.value(ParameterId::TvContrast) == 0.0 && textOf(item(main, IDC_TV_CONTRAST)) == L"0",
        "Reset writes and shows its values");
}

void checkNumbers(Checks& checks, PageHost& host) {
    const Page main = host.open(kRuvexPageId);
    type(main, IDC_TV_CONTRAST, "42.5");
    checks.expect(host.value(ParameterId::TvContrast) == 42.5, "a typed number is written");
    checks.expect(host.editor.undoStack().undoCount() > 0, "as a step");
    host.editor.undo();
    checks.expect(textOf(item(main, IDC_TV_CONTRAST)) == L"0", "which can be undone");
    type(main, IDC_TV_CONTRAST, "-250");
    checks.expect(host.value(ParameterId::TvContrast) == -100.0, "numbers keep to their range");
    const HWND seed = item(main, IDC_SEED);
    const double before = host.value(ParameterId::Seed);
    SendMessageW(seed, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    SendMessageW(seed, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(105, 5));
    SendMessageW(seed, WM_LBUTTONUP, 0, MAKELPARAM(105, 5));
    checks.expect(host.value(ParameterId::Seed) == before + 50.0,
                  "a drag of 100 pixels is 50 steps");
}

void checkCrop(Checks& checks, PageHost& host) {
    const Page crop = host.open(kCropPageId);
    checks.expect(!VWControllerContexts().empty(), "the page brings the tool");
}

void checkHelp(Checks& checks, PageHost& host) {
    RecordedShell shell(L"V_Ruvex.dll");
    checks.expect(shell.works(), "the module asks the shell");
    const Page help = host.open(kHelpPageId);
    checks.expect(textOf(item(help, IDC_MAKER)) == L"The V_Ruvex authors", "the page has texts");
    click(help, IDC_ONLINE_HELP);
    checks.expect(shell.files ==
                      std::vector<std::wstring>{L"C:\\Program Files\\Osterlin\\Velmar 4.3 for DS10 "
                                                L"(64bit)\\Documentation\\Velmar4.3.pdf"},
                  "the button opens the manual");
    for (const PageKind& kind : kPages) {
        checks.expect(host.open(kind.classId)->page().Help(nullptr) == S_OK, "so does Help");
    }
    checks.expect(shell.files.size() == 9, "on each page");
}

}  // namespace

void checkPages(Checks& checks) {
    PageHost host;
    checkGeometry(checks, host);
    checkTvType(checks, host);
    checkNumbers(checks, host);
    checkPresets(checks, host);
    checkCrop(checks, host);
    checkHelp(checks, host);
}

}  // namespace ruvex::test
