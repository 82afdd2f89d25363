#include "tests/sdk/window_statements.h"

#include <string_view>

#include "sdk/resources/resources.h"

namespace ruvex::test {
namespace {

// Controls of the page in conformance.rc.
constexpr int kLabel = 100, kPush = 101, kCheck = 102, kGroup = 103, kList = 104, kTyped = 105,
              kDisabled = 106, kHidden = 107;
constexpr int kControls[] = {kLabel, kPush, kCheck, kGroup, kList, kTyped, kDisabled, kHidden};
constexpr LPARAM kParameter = 4711;

/// What the page's procedure has received.
struct Received {
    LPARAM parameter = 0;
    int commands = 0;
    WPARAM command = 0;
    LPARAM control = 0;
};
Received received;

INT_PTR pageProcedure(HWND, UINT message, WPARAM wide, LPARAM extra) {
    if (message == WM_INITDIALOG) received.parameter = extra;
    const bool counted = HIWORD(wide) == BN_CLICKED || HIWORD(wide) == CBN_SELCHANGE;
    if (message != WM_COMMAND || !counted) return FALSE;
    ++received.commands;
    received.command = wide;
    received.control = extra;
    return TRUE;
}

LPARAM pointer(const wchar_t* text) {
    return reinterpret_cast<LPARAM>(text);
}

HANDLE handle(std::uintptr_t number) {
    return reinterpret_cast<HANDLE>(number);
}

std::string quoted(std::wstring_view text) {
    std::string result = "\"";
    for (const wchar_t character : text) result += static_cast<char>(character);
    return result + '"';
}

/// The steps. They depend on each other: a window is in the state in which earlier ones left it.
class Observation {
public:
    explicit Observation(HINSTANCE module) : module_(module) {}

    std::vector<WindowStatement> run() {
        noWindow("null", nullptr);
        createWindows();
        relations();
        showBits();
        enableBits();
        texts();
        lists();
        typedLists();
        checks();
        properties();
        notifications();
        formats();
        strings();
        destroyWindows();
        return std::move(statements_);
    }

private:
    void see(std::string name, long long number) {
        statements_.push_back({std::move(name), std::to_string(number)});
    }
    void see(std::string name, const void* address) { see(std::move(name), address ? 1LL : 0LL); }
    void seeText(std::string name, std::wstring_view text) {
        statements_.push_back({std::move(name), quoted(text)});
    }
    void seeText(std::string name, HWND window) {
        wchar_t text[64] = L"";
        GetWindowTextW(window, text, 64);
        seeText(std::move(name), text);
    }

    HWND control(int id) const { return GetDlgItem(page_, id); }
    LRESULT send(int id, UINT message, WPARAM wide = 0, LPARAM extra = 0) const {
        return SendMessageW(control(id), message, wide, extra);
    }
    LRESULT addItem(const wchar_t* text) const {
        return send(kList, CB_ADDSTRING, 0, pointer(text));
    }

    /// All functions with a window that does not exist.
    void noWindow(const std::string& kind, HWND window) {
        wchar_t text[8] = L"";
        see(kind + ": GetDlgItem", GetDlgItem(window, kLabel));
        see(kind + ": GetWindow child", GetWindow(window, GW_CHILD));
        see(kind + ": GetWindow next", GetWindow(window, GW_HWNDNEXT));
        see(kind + ": ShowWindow", ShowWindow(window, SW_SHOW));
        see(kind + ": EnableWindow", EnableWindow(window, FALSE));
        // Without a window, the system's function draws the whole desktop again.
        if (window) see(kind + ": InvalidateRect", InvalidateRect(window, nullptr, FALSE));
        see(kind + ": SetWindowPos", SetWindowPos(window, nullptr, 1, 2, 3, 4, SWP_NOZORDER));
        see(kind + ": GetWindowText", GetWindowTextW(window, text, 8));
        see(kind + ": WM_SETTEXT", SendMessageW(window, WM_SETTEXT, 0, pointer(L"a")));
        see(kind + ": CB_GETCURSEL", SendMessageW(window, CB_GETCURSEL, 0, 0));
        see(kind + ": SetProp", SetPropW(window, L"Name", handle(1)));
        see(kind + ": GetProp", GetPropW(window, L"Name"));
        see(kind + ": RemoveProp", RemovePropW(window, L"Name"));
        see(kind + ": DestroyWindow", DestroyWindow(window));
    }

    void createWindows() {
        see("create: unknown template",
            CreateDialogParamW(module_, MAKEINTRESOURCEW(999), nullptr, pageProcedure, 0));
        outer_ = CreateDialogParamW(module_, MAKEINTRESOURCEW(1), nullptr, pageProcedure, 0);
        see("create: outer", outer_);
        page_ = CreateDialogParamW(module_, MAKEINTRESOURCEW(2), outer_, pageProcedure, kParameter);
        see("create: page", page_);
        see("create: parameter of WM_INITDIALOG", received.parameter);
    }

    /// The identifiers of the page's controls in their order; ? for one that GetDlgItem hides.
    std::wstring order() const {
        std::wstring ids;
        for (HWND child = GetWindow(page_, GW_CHILD); child;
             child = GetWindow(child, GW_HWNDNEXT)) {
            std::wstring id = L"?";
            for (const int known : kControls) {
                if (control(known) == child) id = std::to_wstring(known);
            }
            ids += (ids.empty() ? L"" : L" ") + id;
        }
        return ids;
    }

    void relations() {
        see("relations: page is the child", GetWindow(outer_, GW_CHILD) == page_);
        seeText("relations: order of controls", order());
        seeText("relations: first of two with one identifier", control(kLabel));
        see("relations: unknown identifier", control(999));
        see("relations: child of a control", GetWindow(control(kLabel), GW_CHILD));
        see("relations: a grandchild is no item", GetDlgItem(outer_, kLabel));
        see("relations: place behind another",
            SetWindowPos(control(kPush), control(kGroup), 0, 0, 0, 0,
                         SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE));
        seeText("relations: new order", order());
        SetWindowPos(control(kPush), nullptr, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        seeText("relations: place before all", order());
    }

    void showBits() {
        see("show: child of a hidden page", ShowWindow(control(kLabel), SW_SHOW));
        see("show: hide it", ShowWindow(control(kLabel), SW_HIDE));
        see("show: hide it again", ShowWindow(control(kLabel), SW_HIDE));
        see("show: the page", ShowWindow(page_, SW_SHOW));
        see("show: the child stays hidden", ShowWindow(control(kLabel), SW_SHOWNA));
        see("show: hide the page", ShowWindow(page_, SW_HIDE));
        see("show: the child keeps its bit", ShowWindow(control(kLabel), SW_SHOWNA));
        see("show: hidden in the template", ShowWindow(control(kHidden), SW_SHOWNORMAL));
        see("show: draw again", InvalidateRect(page_, nullptr, FALSE));
    }

    void enableBits() {
        see("enable: disable", EnableWindow(control(kPush), FALSE));
        see("enable: disable again", EnableWindow(control(kPush), FALSE));
        see("enable: enable", EnableWindow(control(kPush), TRUE));
        see("enable: enable again", EnableWindow(control(kPush), TRUE));
        see("enable: disabled in the template", EnableWindow(control(kDisabled), FALSE));
        see("enable: disable the page", EnableWindow(page_, FALSE));
        see("enable: the child keeps its bit", EnableWindow(control(kPush), TRUE));
        see("enable: enable the page", EnableWindow(page_, TRUE));
    }

    void texts() {
        wchar_t text[8] = L"#######";
        seeText("text: of a static", control(kLabel));
        seeText("text: of a dialog", page_);
        see("text: truncated count", GetWindowTextW(control(kLabel), text, 4));
        seeText("text: truncated", text);
        see("text: room for the zero", GetWindowTextW(control(kLabel), text, 1));
        seeText("text: empty", text);
        see("text: set", send(kLabel, WM_SETTEXT, 0, pointer(L"New")));
        seeText("text: new", control(kLabel));
        see("text: set on a disabled button",
            send(kDisabled, WM_SETTEXT, 0, pointer(L"Still disabled")));
        seeText("text: of a disabled button", control(kDisabled));
    }

    void lists() {
        see("list: selection of none", send(kList, CB_GETCURSEL));
        see("list: first index", addItem(L"b"));
        see("list: second index", addItem(L"a"));
        see("list: same text again", addItem(L"b"));
        see("list: count", send(kList, CB_GETCOUNT));
        see("list: no selection yet", send(kList, CB_GETCURSEL));
        see("list: closed", send(kList, CB_GETDROPPEDSTATE));
        seeText("list: text without a selection", control(kList));
        see("list: select", send(kList, CB_SETCURSEL, 1));
        seeText("list: text of the selected item", control(kList));
        see("list: WM_SETTEXT", send(kList, WM_SETTEXT, 0, pointer(L"c")));
        seeText("list: text after WM_SETTEXT", control(kList));
        addItem(L"c");
        see("list: selection after another item", send(kList, CB_GETCURSEL));
        see("list: select out of range", send(kList, CB_SETCURSEL, 99));
        see("list: select none", send(kList, CB_SETCURSEL, static_cast<WPARAM>(-1)));
        see("list: none selected", send(kList, CB_GETCURSEL));
        send(kList, CB_SETCURSEL, 2);
        send(kList, CB_RESETCONTENT);
        see("list: count after reset", send(kList, CB_GETCOUNT));
        see("list: selection after reset", send(kList, CB_GETCURSEL));
        seeText("list: text after reset", control(kList));
        see("list: select after reset", send(kList, CB_SETCURSEL, 0));
        see("list: index after reset", addItem(L"d"));
        see("list: message of lists to a static", send(kLabel, CB_GETCOUNT));
    }

    void typedLists() {
        see("typed list: WM_SETTEXT", send(kTyped, WM_SETTEXT, 0, pointer(L"typed")));
        seeText("typed list: text", control(kTyped));
    }

    void checks() {
        see("check: at first", send(kCheck, BM_GETCHECK));
        see("check: set", send(kCheck, BM_SETCHECK, BST_CHECKED));
        see("check: after set", send(kCheck, BM_GETCHECK));
        see("check: clear", send(kCheck, BM_SETCHECK, BST_UNCHECKED));
        see("check: after clear", send(kCheck, BM_GETCHECK));
        send(kPush, BM_SETCHECK, BST_CHECKED);
        see("check: of a push button", send(kPush, BM_GETCHECK));
        see("check: of a static", send(kLabel, BM_GETCHECK));
    }

    void properties() {
        const HWND window = control(kPush);
        const auto number = [&](const wchar_t* name) {
            return static_cast<long long>(reinterpret_cast<std::uintptr_t>(GetPropW(window, name)));
        };
        see("property: at first", number(L"Name"));
        see("property: set", SetPropW(window, L"Name", handle(17)));
        see("property: after set", number(L"Name"));
        see("property: in small letters", number(L"name"));
        see("property: of another window", GetPropW(control(kLabel), L"Name"));
        SetPropW(window, L"Name", handle(18));
        SetPropW(window, L"Other", handle(19));
        see("property: replaced", number(L"Name"));
        see("property: the other one", number(L"Other"));
        see("property: remove", RemovePropW(window, L"Name") == handle(18));
        see("property: removed", number(L"Name"));
        see("property: remove again", RemovePropW(window, L"Name"));
    }

    void notifications() {
        see("notification: none so far", received.commands);
        const HWND push = control(kPush);
        SendMessageW(page_, WM_COMMAND, MAKEWPARAM(kPush, BN_CLICKED),
                     reinterpret_cast<LPARAM>(push));
        see("notification: sent", received.commands);
        see("notification: identifier", LOWORD(received.command));
        see("notification: control", received.control == reinterpret_cast<LPARAM>(push));
    }

    template <class... Arguments>
    void seeFormat(std::string name, const wchar_t* format, Arguments... arguments) {
        wchar_t text[1024];
        const int count = wsprintfW(text, format, arguments...);
        seeText(std::move(name), std::to_wstring(count) + L' ' + text);
    }

    void formats() {
        seeFormat("format: %d", L"%d %d", 42, -2147483647 - 1);
        seeFormat("format: %s", L"<%s> <%s>", L"text", L"");
        seeFormat("format: %u %x %X", L"%u %x %X", 4294967295u, 0xBEEFu, 0xBEEFu);
        seeFormat("format: %c", L"%c%c", L'o', L'k');
        seeFormat("format: %ld %lu", L"%ld %lu", LONG{-7}, ULONG{7});
        seeFormat("format: %%", L"100 %%");
        seeFormat("format: widths", L"<%5d> <%-5d> <%05d>", 42, 42, 42);
        seeFormat("format: precision", L"<%.2s> <%5.3d> <%4s>", L"text", 7, L"ab");
    }

    void seeString(std::string name, unsigned id, int size) {
        wchar_t text[64] = L"#";
        const int count = LoadStringW(module_, id, text, size);
        seeText(std::move(name), std::to_wstring(count) + L' ' + text);
    }

    void strings() {
        seeString("string: whole", 20, 64);
        seeString("string: with no room to spare", 20, 13);
        seeString("string: truncated", 20, 12);
        seeString("string: is no format", 21, 64);
        // The systems differ in whether they write the zero of an empty text.
        wchar_t text[64];
        see("string: room for the zero", LoadStringW(module_, 20, text, 1));
        see("string: unknown", LoadStringW(module_, 999, text, 64));
    }

    void destroyWindows() {
        const HWND label = control(kLabel);
        see("destroy: a control", DestroyWindow(control(kGroup)));
        see("destroy: it is no item any more", control(kGroup));
        see("destroy: the outer window", DestroyWindow(outer_));
        see("destroy: its child goes too", DestroyWindow(page_));
        noWindow("destroyed", label);
    }

    HINSTANCE module_;
    HWND outer_ = nullptr;
    HWND page_ = nullptr;
    std::vector<WindowStatement> statements_;
};

}  // namespace

std::vector<WindowStatement> observeWindows(HINSTANCE module) {
    received = {};
    return Observation(module).run();
}

}  // namespace ruvex::test
