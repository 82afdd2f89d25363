// CreateDialogParamW for windows in memory.

#include "sdk/com/utf8.h"
#include "sdk/resources/dialog_template.h"
#include "sdk/resources/module_resource.h"
#include "sdk/window/window_table.h"

using ruvex::DialogControl;
using ruvex::DialogTemplate;
using ruvex::windows::callProcedure;
using ruvex::windows::find;
using ruvex::windows::Window;

namespace {

constexpr std::uint32_t kStaticTypeMask = 0x1F;

/// Pairs of 16-bit units become one character.
std::wstring wideText(const ruvex::ResourceText& text) {
    std::wstring units;
    for (std::size_t i = 0; i < text.size(); ++i) units += static_cast<wchar_t>(text[i]);
    return ruvex::fromUtf8(ruvex::toUtf8(units));
}

/// Null for a class that these windows do not have.
const char* className(const DialogControl& control) {
    switch (control.windowClass.number.value_or(0)) {
        case ruvex::kButtonClass:
            return "button";
        case ruvex::kStaticClass:
            return "static";
        case ruvex::kComboBoxClass:
            return "combobox";
        default:
            return nullptr;
    }
}

Window makeDialog(const DialogTemplate& dialog, HWND parent, DLGPROC* procedure) {
    Window window{.state = {}, .procedure = procedure};
    window.state.parent = parent;
    window.state.className = "#32770";
    window.state.style = dialog.style;
    window.state.rect = {dialog.x, dialog.y, dialog.width, dialog.height};
    window.state.text = wideText(dialog.title);
    return window;
}

Window makeControl(const DialogControl& control, HWND dialog) {
    Window window;
    DSWindowState& state = window.state;
    state.parent = dialog;
    state.className = className(control);
    state.id = static_cast<int>(control.id);
    state.style = control.style;
    state.rect = {control.x, control.y, control.width, control.height};
    if (state.className == "combobox") state.listHeight = control.height;
    const bool picture =
        state.className == "static" && (control.style & kStaticTypeMask) == SS_BITMAP;
    if (picture) {
        state.bitmap = control.title.number.value_or(0);
    } else {
        state.text = wideText(control.title.text);
    }
    return window;
}

bool allClassesExist(const DialogTemplate& dialog) {
    for (const DialogControl& control : dialog.controls) {
        if (!className(control)) return false;
    }
    return true;
}

void addControls(const DialogTemplate& dialog, HWND window) {
    for (const DialogControl& control : dialog.controls) {
        ruvex::windows::add(makeControl(control, window));
    }
}

/// Reports the dialog and its controls, as far as observers leave them alive.
void reportCreated(HWND dialog) {
    ruvex::windows::report(dialog, DSWindowChange::Created);
    const Window* const found = find(dialog);
    if (!found) return;
    const std::vector<HWND> children = found->state.children;
    for (const HWND child : children) {
        if (find(child)) ruvex::windows::report(child, DSWindowChange::Created);
    }
}

HWND createDialog(const DialogTemplate& dialog, HWND parent, DLGPROC* procedure, LPARAM parameter) {
    const HWND window = ruvex::windows::add(makeDialog(dialog, parent, procedure));
    try {
        addControls(dialog, window);
        reportCreated(window);
    } catch (...) {
        ruvex::windows::destroy(window);
        throw;
    }
    const auto focus = reinterpret_cast<WPARAM>(DSNextTabStop(window, nullptr));
    callProcedure(window, WM_INITDIALOG, focus, parameter);
    return find(window) ? window : nullptr;
}

std::optional<DialogTemplate> readTemplate(HINSTANCE module, const wchar_t* templateNumber) {
    const auto number = reinterpret_cast<std::uintptr_t>(templateNumber);
    constexpr std::uintptr_t kLargestNumber = 0xFFFF;
    if (number > kLargestNumber) return std::nullopt;
    return ruvex::readDialog(ruvex::moduleDialog(module, static_cast<std::uint16_t>(number)));
}

}  // namespace

HWND CreateDialogParamW(HINSTANCE module, const wchar_t* templateNumber, HWND parent,
                        DLGPROC* procedure, LPARAM parameter) {
    if (parent && !find(parent)) return nullptr;
    return ruvex::windows::unlessOutOfMemory<HWND>(nullptr, [&]() -> HWND {
        const auto dialog = readTemplate(module, templateNumber);
        if (!dialog || !allClassesExist(*dialog)) return nullptr;
        return createDialog(*dialog, parent, procedure, parameter);
    });
}
