// The host's controls in a dialog of the system (tests/sdk/conformance.rc).

#include <string>

#include "sdk/controls/host_controls.h"
#include "tests/windows/checks.h"

namespace ruvex::test {
namespace {

constexpr int kCombo = 1000, kSeed = 1001, kChip = 1009;

INT_PTR CALLBACK ignoreMessages(HWND, UINT, WPARAM, LPARAM) {
    return FALSE;
}

HWND makeDialog(int number, HWND parent) {
    return CreateDialogParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(number), parent,
                              ignoreMessages, 0);
}

std::wstring textOf(HWND window) {
    wchar_t text[64] = L"";
    GetWindowTextW(window, text, 64);
    return text;
}

void checkNumber(Checks& checks, HWND window) {
    const auto number = DSNumberControlOf(window);
    checks.expect(static_cast<bool>(number), "a number has a model");
    if (!number) return;
    checks.expect(number->label() == "Seed", "it has the title's label");
    checks.expect(number->high() == 10000.0, "it has the title's range");
    number->show(42.0);
    checks.expect(textOf(window) == L"42", "the static shows the number");
    int edits = 0;
    number->listen([&](DSNumberEdit) { ++edits; });
    number->step(1);
    checks.expect(edits == 1 && textOf(window) == L"43", "a step is shown and notified");
    number->listen(nullptr);
}

void checkList(Checks& checks, HWND combo) {
    RECT opened{};
    SendMessageW(combo, CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&opened));
    const auto itemHeight = static_cast<LONG>(SendMessageW(combo, CB_GETITEMHEIGHT, 0, 0));
    checks.expect(itemHeight > 0, "items have a height");
    checks.expect(opened.bottom - opened.top >= kDSMostListItems * itemHeight,
                  "an opened list has room for twelve items");
}

}  // namespace

void checkControls(Checks& checks) {
    const HWND outer = makeDialog(1, nullptr);
    const HWND dialog = makeDialog(5, outer);
    checks.expect(dialog != nullptr, "the dialog is created");
    checks.expect(DSMakeControls(dialog) == S_OK, "its controls are made");
    const HWND seed = GetDlgItem(dialog, kSeed);
    checkNumber(checks, seed);
    checkList(checks, GetDlgItem(dialog, kCombo));
    checks.expect(static_cast<bool>(DSColourChipOf(GetDlgItem(dialog, kChip))), "a chip too");
    DSSetToolTip(dialog, seed, L"A number");
    checks.expect(GetPropW(dialog, L"DSTOOLTIPS") != nullptr, "tool-tips have a window");
    DSReleaseControls(dialog);
    checks.expect(GetPropW(dialog, L"DSTOOLTIPS") == nullptr, "which is destroyed");
    checks.expect(!DSNumberControlOf(seed), "the models are released");
    checks.expect(DestroyWindow(outer) != FALSE, "the windows are destroyed");
}

}  // namespace ruvex::test
