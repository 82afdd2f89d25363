#include "sdk/controls/control_window_windows.h"

namespace ruvex::controls {
namespace {

/// The style bits that a control takes over from its static.
constexpr LONG_PTR kKeptStyles = WS_VISIBLE | WS_DISABLED | WS_GROUP | WS_TABSTOP;

/// The library that this code is in.
HINSTANCE ownModule() {
    HMODULE module = nullptr;
    GetModuleHandleExW(
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
        reinterpret_cast<const wchar_t*>(&ownModule), &module);
    return module;
}

/// Keeps the classes registered as long as the library is loaded: the system does not unregister
/// the classes of a library that it unloads.
class Registration {
public:
    Registration() {
        add(kNumberWindow);
        add(kChipWindow);
    }
    Registration(const Registration&) = delete;
    Registration& operator=(const Registration&) = delete;
    ~Registration() {
        UnregisterClassW(kNumberWindow.name, ownModule());
        UnregisterClassW(kChipWindow.name, ownModule());
    }

private:
    static void add(const ControlWindowClass& controlClass) {
        WNDCLASSW description{};
        description.style = CS_HREDRAW | CS_VREDRAW | CS_DBLCLKS;
        description.lpfnWndProc = controlClass.procedure;
        description.hInstance = ownModule();
        description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
        description.lpszClassName = controlClass.name;
        RegisterClassW(&description);
    }
};

RECT placeIn(HWND parent, HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

}  // namespace

HWND replaceStatic(HWND window, const ControlWindowClass& controlClass) {
    static const Registration registration;
    const HWND parent = GetParent(window);
    const RECT place = placeIn(parent, window);
    const LONG_PTR style = GetWindowLongPtrW(window, GWL_STYLE) & kKeptStyles;
    const LONG_PTR id = GetWindowLongPtrW(window, GWLP_ID);
    const HWND control =
        CreateWindowExW(0, controlClass.name, L"", static_cast<DWORD>(style | WS_CHILD), place.left,
                        place.top, place.right - place.left, place.bottom - place.top, parent,
                        reinterpret_cast<HMENU>(id), ownModule(), nullptr);
    if (!control) return nullptr;
    SendMessageW(control, WM_SETFONT, SendMessageW(window, WM_GETFONT, 0, 0), FALSE);
    SetWindowPos(control, window, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    DestroyWindow(window);
    return control;
}

HFONT fontOf(HWND window) {
    const auto font = reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0));
    return font ? font : static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
}

ControlPaint::ControlPaint(HWND window)
    : window_(window),
      context_(BeginPaint(window, &paint_)),
      fontBefore_(SelectObject(context_, fontOf(window))) {
    GetClientRect(window, &area_);
}

ControlPaint::~ControlPaint() {
    SelectObject(context_, fontBefore_);
    EndPaint(window_, &paint_);
}

}  // namespace ruvex::controls
