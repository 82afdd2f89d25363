// The host's controls in a dialog of the system (tests/sdk/conformance.rc).

// clang-format off
#include <windows.h>
#include <commctrl.h>  // needs the names of windows.h
// clang-format on

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "sdk/controls/colour_picker.h"
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

std::wstring classOf(HWND window) {
    wchar_t name[64] = L"";
    GetClassNameW(window, name, 64);
    return name;
}

void key(HWND window, WPARAM code) {
    SendMessageW(window, WM_KEYDOWN, code, 0);
}

void typeText(HWND window, const char* text) {
    for (; *text; ++text) SendMessageW(window, WM_CHAR, static_cast<WPARAM>(*text), 0);
}

LPARAM place(int x, int y) {
    return MAKELPARAM(x, y);
}

void checkNumber(Checks& checks, HWND window) {
    const auto number = DSNumberControlOf(window);
    checks.expect(static_cast<bool>(number), "a number has a model");
    if (!number) return;
    checks.expect(classOf(window) == L"DSNewNumberCtrl", "and a window of its class");
    checks.expect(number->label() == "Seed", "it has the title's label");
    checks.expect(number->high() == 10000.0, "it has the title's range");
    number->show(42.0);
    checks.expect(textOf(window) == L"42", "the window shows the number");
    int edits = 0;
    number->listen([&](DSNumberEdit) { ++edits; });
    number->step(1);
    checks.expect(edits == 1 && textOf(window) == L"43", "a step is shown and notified");
    number->listen(nullptr);
}

void checkTyping(Checks& checks, HWND window) {
    const auto number = DSNumberControlOf(window);
    if (!number) return;
    number->show(42.0);
    typeText(window, "17");
    checks.expect(textOf(window) == L"17" && number->value() == 42.0, "typing enters nothing yet");
    MSG message{};
    message.message = WM_KEYDOWN;
    message.wParam = VK_RETURN;
    const auto wanted = [&] {
        return SendMessageW(window, WM_GETDLGCODE, VK_RETURN, reinterpret_cast<LPARAM>(&message));
    };
    checks.expect((wanted() & DLGC_WANTMESSAGE) != 0, "Enter ends the entry");
    key(window, VK_RETURN);
    checks.expect(number->value() == 17.0, "and takes it");
    checks.expect((wanted() & DLGC_WANTMESSAGE) == 0, "otherwise Enter is the dialog's");
    typeText(window, "\b");
    checks.expect(textOf(window) == L"1", "a backspace shortens the number");
    typeText(window, "x");
    key(window, VK_ESCAPE);
    checks.expect(textOf(window) == L"17" && number->value() == 17.0, "Escape takes it back");
    typeText(window, "99999");
    SendMessageW(window, WM_KILLFOCUS, 0, 0);
    checks.expect(number->value() == 10000.0, "a loss of focus enters, held to the range");
    typeText(window, "abc");
    key(window, VK_RETURN);
    checks.expect(textOf(window) == L"10000", "what is no number changes nothing");
    number->show(5.0);
    key(window, VK_UP);
    key(window, VK_UP);
    key(window, VK_DOWN);
    checks.expect(number->value() == 6.0, "arrow keys step");
}

void checkDragging(Checks& checks, HWND window) {
    const auto number = DSNumberControlOf(window);
    if (!number) return;
    number->show(100.0);
    std::string log;
    number->listen([&](DSNumberEdit edit) {
        log += edit == DSNumberEdit::DragBegan       ? 'b'
               : edit == DSNumberEdit::Dragged       ? 'd'
               : edit == DSNumberEdit::DragEnded     ? 'e'
               : edit == DSNumberEdit::DragCancelled ? 'c'
                                                     : '?';
    });
    SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, place(10, 5));
    SendMessageW(window, WM_MOUSEMOVE, MK_LBUTTON, place(12, 5));
    checks.expect(log.empty(), "a press that hardly moves is no drag");
    SendMessageW(window, WM_MOUSEMOVE, MK_LBUTTON, place(30, 50));
    checks.expect(number->value() == 110.0, "a drag steps for every two pixels");
    SendMessageW(window, WM_MOUSEMOVE, MK_LBUTTON, place(-10, 5));
    checks.expect(number->value() == 90.0, "to the left as well, outside the window");
    SendMessageW(window, WM_LBUTTONUP, 0, place(-10, 5));
    checks.expect(log == "bdde" && !number->dragging(), "it begins and ends once");
    SendMessageW(window, WM_MOUSEMOVE, 0, place(50, 5));
    checks.expect(number->value() == 90.0, "after it the pointer moves nothing");
    log.clear();
    SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, place(10, 5));
    SendMessageW(window, WM_MOUSEMOVE, MK_LBUTTON, place(40, 5));
    key(window, VK_ESCAPE);
    checks.expect(number->value() == 90.0 && log == "bdc", "Escape takes a drag back");
    SendMessageW(window, WM_LBUTTONUP, 0, place(40, 5));
    checks.expect(log == "bdc", "whose end is then nothing more");
    number->listen(nullptr);
}

void checkWheel(Checks& checks, HWND window) {
    const auto number = DSNumberControlOf(window);
    if (!number) return;
    number->show(50.0);
    SetFocus(nullptr);
    const auto wheel = [&](int movement) {
        SendMessageW(window, WM_MOUSEWHEEL,
                     static_cast<WPARAM>(static_cast<std::uint32_t>(movement) << 16), 0);
    };
    wheel(WHEEL_DELTA);
    checks.expect(number->value() == 50.0, "without the focus the wheel does nothing");
    SetFocus(window);
    if (GetFocus() != window) return checks.expect(false, "the window takes the focus");
    wheel(WHEEL_DELTA);
    wheel(-3 * WHEEL_DELTA);
    checks.expect(number->value() == 48.0, "with it, it steps");
    for (int i = 0; i < 4; ++i) wheel(WHEEL_DELTA / 4);
    checks.expect(number->value() == 49.0, "parts of notches add up");
}

/// The program shows another number, or the wheel turns a little, while the user types.
void checkInterruptedTyping(Checks& checks, HWND window) {
    const auto number = DSNumberControlOf(window);
    if (!number) return;
    number->show(5.0);
    typeText(window, "1");
    number->show(42.0);
    typeText(window, "7");
    checks.expect(textOf(window) == L"7", "typing begins anew after the program's number");
    key(window, VK_ESCAPE);
    typeText(window, "9");
    SetFocus(window);
    SendMessageW(window, WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA / 4), 0);
    typeText(window, "5");
    checks.expect(textOf(window) == L"95", "a part of a notch ends no typing");
    key(window, VK_DELETE);
    checks.expect(textOf(window).empty(), "Delete clears the field");
    key(window, VK_ESCAPE);
    checks.expect(number->value() == 42.0, "Escape drops all of it");
}

void checkClipboard(Checks& checks, HWND window) {
    const auto number = DSNumberControlOf(window);
    if (!number) return;
    number->show(12.5);
    constexpr wchar_t kCtrlC = 3, kCtrlV = 22;
    SendMessageW(window, WM_CHAR, kCtrlC, 0);
    number->show(1.0);
    SendMessageW(window, WM_CHAR, kCtrlV, 0);
    checks.expect(number->typing() && number->text() == number->textOf(12.5, number->decimals()),
                  "what was copied from a number is pasted into it");
    key(window, VK_ESCAPE);
}

std::wstring tipOf(HWND dialog, HWND control) {
    constexpr std::size_t kLongestTip = 256;
    wchar_t text[kLongestTip] = L"";
    TOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.hwnd = dialog;
    tool.uId = reinterpret_cast<UINT_PTR>(control);
    tool.lpszText = text;
    const auto tips = static_cast<HWND>(GetPropW(dialog, L"DSTOOLTIPS"));
    SendMessageW(tips, TTM_GETTEXTW, kLongestTip, reinterpret_cast<LPARAM>(&tool));
    return text;
}

/// The tip says why another number was taken than the one that was typed.
void checkRemark(Checks& checks, HWND dialog, HWND window) {
    const auto number = DSNumberControlOf(window);
    if (!number) return;
    number->show(5.0);
    DSSetToolTip(dialog, window, L"A number");
    typeText(window, "99999");
    key(window, VK_RETURN);
    checks.expect(tipOf(dialog, window) == L"at most 10000\nA number", "a tip has a remark");
    typeText(window, "-5");
    key(window, VK_RETURN);
    checks.expect(tipOf(dialog, window) == L"at least 0\nA number", "or another one");
    key(window, VK_UP);
    checks.expect(tipOf(dialog, window) == L"A number", "which the next change removes");
}

/// The listener destroys the window with the model.
void checkDestruction(Checks& checks) {
    const HWND outer = makeDialog(1, nullptr);
    const HWND dialog = makeDialog(5, outer);
    DSMakeControls(dialog);
    const HWND window = GetDlgItem(dialog, kSeed);
    const auto number = DSNumberControlOf(window);
    number->listen([&](DSNumberEdit) {
        DSReleaseControls(dialog);
        DestroyWindow(outer);
    });
    key(window, VK_UP);
    checks.expect(!IsWindow(window), "a listener may destroy the window");
}

void checkChip(Checks& checks, HWND window) {
    const auto chip = DSColourChipOf(window);
    checks.expect(static_cast<bool>(chip), "a chip has a model");
    if (!chip) return;
    checks.expect(classOf(window) == L"DSNewColorChipCtrl", "and a window of its class");
    CDSColourChip::Colour proposed{};
    std::optional<CDSColourChip::Colour> answer;
    const DSColourPicker before = DSUseColourPicker([&](HWND, const CDSColourChip::Colour& colour) {
        proposed = colour;
        return answer;
    });
    int picks = 0;
    chip->listen([&] { ++picks; });
    chip->SetColour(1, 2, 3, 4);
    SendMessageW(window, WM_KEYUP, VK_SPACE, 0);
    checks.expect(proposed == CDSColourChip::Colour{},
                  "a key that went down elsewhere asks for no colour");
    key(window, VK_SPACE);
    SendMessageW(window, WM_KEYUP, VK_SPACE, 0);
    checks.expect(proposed == CDSColourChip::Colour{1, 2, 3, 4}, "the colour is proposed");
    checks.expect(picks == 0, "a cancelled question changes nothing");
    answer = CDSColourChip::Colour{10, 20, 30, 40};
    SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, place(2, 2));
    SendMessageW(window, WM_LBUTTONUP, 0, place(-20, 2));
    checks.expect(picks == 0, "a release outside is no click");
    SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, place(2, 2));
    SendMessageW(window, WM_LBUTTONUP, 0, place(2, 2));
    checks.expect(picks == 1 && chip->colour() == *answer, "a click picks the answer");
    chip->listen(nullptr);
    DSUseColourPicker(before);
}

/// Identifier, order, place, tab stop and shown bit of all controls.
struct Layout {
    int id;
    RECT rect;
    LONG_PTR style;
};

std::vector<Layout> layoutOf(HWND dialog) {
    std::vector<Layout> layout;
    for (HWND window = GetWindow(dialog, GW_CHILD); window;
         window = GetWindow(window, GW_HWNDNEXT)) {
        Layout control{GetDlgCtrlID(window), {}, 0};
        GetWindowRect(window, &control.rect);
        constexpr LONG_PTR kCompared = WS_VISIBLE | WS_DISABLED | WS_GROUP | WS_TABSTOP;
        control.style = GetWindowLongPtrW(window, GWL_STYLE) & kCompared;
        layout.push_back(control);
    }
    return layout;
}

void checkLayout(Checks& checks, const std::vector<Layout>& before,
                 const std::vector<Layout>& after) {
    bool same = before.size() == after.size();
    for (std::size_t i = 0; same && i < before.size(); ++i) {
        const bool list = before[i].id == kCombo;  // becomes higher when it is opened
        same = before[i].id == after[i].id && before[i].style == after[i].style &&
               (list || EqualRect(&before[i].rect, &after[i].rect));
    }
    checks.expect(same, "controls have the place, order and styles of their statics");
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
    const std::vector<Layout> before = layoutOf(dialog);
    checks.expect(DSMakeControls(dialog) == S_OK, "its controls are made");
    checkLayout(checks, before, layoutOf(dialog));
    const HWND seed = GetDlgItem(dialog, kSeed);
    checkNumber(checks, seed);
    checkTyping(checks, seed);
    checkDragging(checks, seed);
    checkWheel(checks, seed);
    checkInterruptedTyping(checks, seed);
    checkClipboard(checks, seed);
    checkRemark(checks, dialog, seed);
    checkChip(checks, GetDlgItem(dialog, kChip));
    checkList(checks, GetDlgItem(dialog, kCombo));
    DSSetToolTip(dialog, seed, L"A number");
    checks.expect(GetPropW(dialog, L"DSTOOLTIPS") != nullptr, "tool-tips have a window");
    DSReleaseControls(dialog);
    checks.expect(GetPropW(dialog, L"DSTOOLTIPS") == nullptr, "which is destroyed");
    checks.expect(!DSNumberControlOf(seed), "the models are released");
    checks.expect(DestroyWindow(outer) != FALSE, "the windows are destroyed");
    checkDestruction(checks);
}

}  // namespace ruvex::test
