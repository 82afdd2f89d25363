// Property pages of the registered module in a window of the system, and what a user does there.

#pragma once

#include <memory>
#include <optional>
#include <string>

#include "parameters/parameter_table.h"
#include "runtime/editor.h"
#include "runtime/module_loader.h"
#include "sdk/resources/dialog_template.h"
#include "sdk/window/window.h"

namespace ruvex::test {

struct PageKind {
    GUID classId;
    std::uint16_t dialog;
};

/// The pages in the order of their tabs.
extern const PageKind kPages[8];

using Page = std::unique_ptr<runtime::OpenPage>;

/// An effect that COM makes, its editor, and a window for its pages.
class PageHost {
public:
    PageHost();
    PageHost(const PageHost&) = delete;
    PageHost& operator=(const PageHost&) = delete;
    ~PageHost();

    /// Opens and shows a page.
    Page open(const GUID& classId);
    double value(ParameterId id) const;

    runtime::EffectSession session{
        runtime::EffectSession::Setup{.project = {.width = 720, .height = 576}}};
    runtime::Editor editor{session};

private:
    HWND parent_ = nullptr;
};

HWND item(const Page& page, int id);
/// Whether a control has the style WS_VISIBLE.
bool shown(const Page& page, int id);
/// The first 2047 characters.
std::wstring textOf(HWND window);

/// Chooses an item of a list as the user does.
void choose(const Page& page, int id, int index);
/// The same by the item's text. False if the list has no such item.
bool choose(const Page& page, int id, const wchar_t* text);
void click(const Page& page, int id);
/// Types a number into a number control, and Enter.
void type(const Page& page, int id, const char* text);

/// A dialog of a loaded module; no value if there is none.
std::optional<DialogTemplate> templateOf(HINSTANCE module, std::uint16_t number);

}  // namespace ruvex::test
