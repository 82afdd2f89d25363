// The property pages of the registered module in dialogs of the system, driven by messages.

#include <optional>

#include "host/base/class_ids.h"
#include "pages/resources/resource_ids.h"
#include "sdk/controls/host_controls.h"
#include "sdk/viewer/viewer_controller.h"
#include "tests/windows/checks.h"
#include "tests/windows/manual_check.h"
#include "tests/windows/opened_pages.h"

namespace ruvex::test {
namespace {

/// A control's title in a template; empty if there is no such control.
std::wstring titleOf(const std::optional<DialogTemplate>& dialog, std::uint32_t id) {
    std::wstring title;
    if (!dialog) return title;
    for (const DialogControl& control : dialog->controls) {
        if (control.id != id) continue;
        for (std::size_t i = 0; i < control.title.text.size(); ++i) {
            title += static_cast<wchar_t>(control.title.text[i]);
        }
    }
    return title;
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

/// The size that a host reserves for a page.
void checkSize(Checks& checks, const runtime::OpenPage& page) {
    RECT window{};
    GetWindowRect(page.window(), &window);
    PROPPAGEINFO info{};
    const bool known = page.page().GetPageInfo(&info) == S_OK;
    checks.expect(known && info.size.cx == window.right - window.left &&
                      info.size.cy == window.bottom - window.top,
                  "a page says its size in pixels");
    CoTaskMemFree(info.pszTitle);
}

/// Sends a turn of the wheel, or a key, to a list that has the focus or not.
void checkListInput(Checks& checks, PageHost& host) {
    const Page main = host.open(kRuvexPageId);
    const HWND type = item(main, IDC_TV_TYPE);
    const HWND presets = item(main, IDC_PRESETS);
    const auto wheel = [](HWND list) {
        SendMessageW(list, WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA)), 0);
    };
    const auto key = [](HWND list, WPARAM code) { SendMessageW(list, WM_KEYDOWN, code, 0); };
    SetFocus(item(main, IDC_SEED));
    const auto steps = host.editor.undoStack().undoCount();
    wheel(type);
    checks.expect(host.value(ParameterId::TvType) == 0.0,
                  "the wheel changes no list without the focus");
    SetFocus(type);
    wheel(type);
    checks.expect(host.value(ParameterId::TvType) == 1.0, "with the focus, it does");
    key(type, VK_UP);
    checks.expect(host.value(ParameterId::TvType) == 0.0, "so does an arrow key");
    SetFocus(presets);
    wheel(presets);
    checks.expect(host.editor.undoStack().undoCount() == steps + 2,
                  "the wheel chooses no preset in a closed list");
    key(presets, VK_DOWN);
    checks.expect(SendMessageW(presets, CB_GETDROPPEDSTATE, 0, 0) != 0 &&
                      host.editor.undoStack().undoCount() == steps + 2,
                  "an arrow key opens the list of presets and chooses none");
    key(presets, VK_DOWN);
    key(presets, VK_ESCAPE);
    checks.expect(
        host.editor.undoStack().undoCount() == steps + 2 && textOf(presets) == L"Presets...",
        "Escape chooses none");
    key(presets, VK_DOWN);
    key(presets, VK_DOWN);
    key(presets, VK_DOWN);
    key(presets, VK_RETURN);
    checks.expect(host.editor.undoStack().undoName() == L"Preset: Bad B&W TV",
                  "Enter chooses the preset that the arrow keys have reached");
}

void checkGeometry(Checks& checks, PageHost& host) {
    const HINSTANCE module = GetModuleHandleW(L"V_Ruvex.dll");
    int controls = 0;
    int misplaced = 0;
    for (const PageKind& kind : kPages) {
        const Page page = host.open(kind.classId);
        const auto dialog = templateOf(module, kind.dialog);
        checkSize(checks, *page);
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
        for (const int id : {IDC_COLOUR_DEGRADE_MAX, IDC_COLOUR_THRESHOLD}) {
            enabled = enabled && IsWindowEnabled(item(breakup, id)) == colour &&
                      IsWindowEnabled(item(breakup, CAPTION_OF(id)));
        }
        for (const int id : {IDC_SNOW_MAX, IDC_NUM_GHOSTS, IDC_GHOSTING_STRENGTH}) {
            enabled = enabled && IsWindowEnabled(item(breakup, id));
        }
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

/// The tint's number as the page shows it.
double shownNumber(const Page& page, int id) {
    return DSNumberControlOf(item(page, id))->value();
}

void checkTint(Checks& checks, PageHost& host) {
    const Page main = host.open(kRuvexPageId);
    checks.expect(choose(main, IDC_PRESETS, L"Bad B&W TV"), "there is a black and white set");
    checks.expect(!shown(main, IDC_TV_COLOUR) && !shown(main, IDC_TINT_GROUP),
                  "it has neither colour nor tint");
    checks.expect(choose(main, IDC_PRESETS, L"NightVision"), "there is a tinted set");
    checks.expect(shown(main, IDC_TINT_GROUP) && shown(main, IDC_TINT_CHIP),
                  "it shows the tint and its colour chip");
    checks.expect(shownNumber(main, IDC_TINT_RED) == 24.0 &&
                      shownNumber(main, IDC_TINT_GREEN) == 64.5 &&
                      shownNumber(main, IDC_TINT_BLUE) == 30.0,
                  "with the preset's percentages");
    const CDSColourChip::Colour colour = DSColourChipOf(item(main, IDC_TINT_CHIP))->colour();
    checks.expect(colour[0] == 61 && colour[1] == 164 && colour[2] == 76,
                  "and the same as bytes in the colour chip");
}

/// The page widens the range that the control's title states.
void checkWiderRange(Checks& checks, PageHost& host) {
    const HINSTANCE module = GetModuleHandleW(L"V_Ruvex.dll");
    checks.expect(titleOf(templateOf(module, IDD_BREAKUP2), IDC_VERT_ROLL_SPEED_MAX) ==
                      L"Vert Roll Speed Max;class=dsnewnumberctrl;min=-1000;max=1000",
                  "the title states a roll of at most 1000");
    const Page page = host.open(kBreakup2PageId);
    type(page, IDC_VERT_ROLL_SPEED_MAX, "10000");
    checks.expect(host.value(ParameterId::VertRollSpeedMax) == 10000.0, "the page takes 10000");
    type(page, IDC_VERT_ROLL_SPEED_MAX, "5");
    type(page, IDC_VERT_ROLL_SPEED_MAX, "10001");
    checks.expect(host.value(ParameterId::VertRollSpeedMax) == 10000.0 &&
                      textOf(item(page, IDC_VERT_ROLL_SPEED_MAX)) == L"10000",
                  "and nothing beyond");
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

}  // namespace

void checkPages(Checks& checks) {
    PageHost host;
    checkGeometry(checks, host);
    checkTvType(checks, host);
    checkListInput(checks, host);
    checkNumbers(checks, host);
    checkPresets(checks, host);
    checkCrop(checks, host);
    checkTint(checks, host);
    checkWiderRange(checks, host);
    checkManual(checks, host);
}

}  // namespace ruvex::test
