// clang-format off
#include <windows.h>
#include <commctrl.h>  // needs the names of windows.h
// clang-format on

#include "tools/page_host/report.h"

#include <cstring>
#include <fstream>
#include <nlohmann/json.hpp>

#include "runtime/error.h"
#include "sdk/com/utf8.h"
#include "sdk/controls/host_controls.h"
#include "tools/page_host/whole_file.h"

namespace ruvex::page_host {
namespace {

using Json = nlohmann::ordered_json;

Json rectJson(const RECT& rect) {
    return Json::array({rect.left, rect.top, rect.right, rect.bottom});
}

std::string textOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(
        GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return toUtf8(text);
}

std::string classOf(HWND window) {
    constexpr int kLongestName = 256;
    wchar_t name[kLongestName + 1] = L"";
    GetClassNameW(window, name, kLongestName);
    return toUtf8(name);
}

struct TipSearch {
    HWND control;
    std::wstring text;
};

/// Asks one window of tool-tips whether it has a text for the control.
BOOL CALLBACK findTip(HWND window, LPARAM lParam) {
    auto& search = *reinterpret_cast<TipSearch*>(lParam);
    if (classOf(window) != "tooltips_class32") return TRUE;
    constexpr std::size_t kLongestTip = 1024;
    wchar_t text[kLongestTip] = L"";
    TOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.hwnd = GetParent(search.control);
    tool.uId = reinterpret_cast<UINT_PTR>(search.control);
    tool.lpszText = text;
    SendMessageW(window, TTM_GETTEXTW, kLongestTip, reinterpret_cast<LPARAM>(&tool));
    search.text = text;
    return search.text.empty();
}

std::string tipOf(HWND control) {
    TipSearch search{control, {}};
    EnumThreadWindows(GetCurrentThreadId(), findTip, reinterpret_cast<LPARAM>(&search));
    return toUtf8(search.text);
}

Json itemsOf(HWND list) {
    Json items = Json::array();
    const LRESULT count = SendMessageW(list, CB_GETCOUNT, 0, 0);
    for (LRESULT i = 0; i < count; ++i) {
        const LRESULT length = SendMessageW(list, CB_GETLBTEXTLEN, static_cast<WPARAM>(i), 0);
        std::wstring text(static_cast<std::size_t>(length < 0 ? 0 : length) + 1, L'\0');
        SendMessageW(list, CB_GETLBTEXT, static_cast<WPARAM>(i),
                     reinterpret_cast<LPARAM>(text.data()));
        items.push_back(toUtf8(text.c_str()));
    }
    return items;
}

Json numberJson(const CDSNumberControl& number) {
    Json json{{"value", number.value()}, {"decimals", number.decimals()}};
    if (number.low()) json["minimum"] = *number.low();
    if (number.high()) json["maximum"] = *number.high();
    return json;
}

bool isCheckBox(HWND control, const std::string& className) {
    const LONG_PTR kind = GetWindowLongPtrW(control, GWL_STYLE) & BS_TYPEMASK;
    return className == "Button" && kind == BS_AUTOCHECKBOX;
}

Json controlJson(HWND control) {
    const std::string className = classOf(control);
    Json json{{"id", GetDlgCtrlID(control)},
              {"class", className},
              {"rect", rectJson(screenRect(control))},
              {"text", textOf(control)},
              {"style", static_cast<DWORD>(GetWindowLongPtrW(control, GWL_STYLE))},
              {"focus", GetFocus() == control}};
    if (const std::string tip = tipOf(control); !tip.empty()) json["tip"] = tip;
    if (isCheckBox(control, className)) {
        json["checked"] = SendMessageW(control, BM_GETCHECK, 0, 0) == BST_CHECKED;
    }
    if (className == "ComboBox") {
        json["selection"] = SendMessageW(control, CB_GETCURSEL, 0, 0);
        json["opened"] = SendMessageW(control, CB_GETDROPPEDSTATE, 0, 0) != 0;
        json["items"] = itemsOf(control);
    }
    if (const auto number = DSNumberControlOf(control)) json["number"] = numberJson(*number);
    if (const auto chip = DSColourChipOf(control)) json["colour"] = chip->colour();
    return json;
}

Json pageJson(const PageTabs::Page& page) {
    const HWND dialog = page.open->window();
    Json controls = Json::array();
    for (HWND control = GetWindow(dialog, GW_CHILD); control;
         control = GetWindow(control, GW_HWNDNEXT)) {
        controls.push_back(controlJson(control));
    }
    return {{"title", toUtf8(page.title)},
            {"class", toText(page.classId)},
            {"rect", rectJson(screenRect(dialog))},
            {"controls", std::move(controls)}};
}

const char* modeName(DSKeyMode mode) {
    switch (mode) {
        case DSKeyMode::Linear:
            return "linear";
        case DSKeyMode::Hold:
            return "hold";
        case DSKeyMode::Smooth:
            return "smooth";
    }
    return "unknown";
}

Json keysJson(const std::vector<DSKey>& keys) {
    Json json = Json::array();
    for (const DSKey& key : keys) {
        json.push_back({{"time", key.time}, {"value", key.value}, {"kind", modeName(key.mode)}});
    }
    return json;
}

/// All properties in the order of declaration, with their values at the current time.
Json propertiesJson(EditedEffect& effect) {
    const runtime::EffectSession& session = effect.session();
    ULONG count = 0;
    runtime::require(session.properties().GetPropertyCount(&count), "cannot count the properties");
    Json properties = Json::array();
    for (ULONG i = 0; i < count; ++i) {
        const CDSParamDef* definition = nullptr;
        runtime::require(session.properties().GetPropertyDef(i, &definition),
                         "cannot read a property's definition");
        const GUID& id = definition->id;
        properties.push_back({{"name", toUtf8(effect.editor().propertyName(id))},
                              {"id", toText(id)},
                              {"value", session.value(id, effect.editor().time())},
                              {"keys", keysJson(session.keys(id))}});
    }
    return properties;
}

Json undoJson(const runtime::UndoStack& steps) {
    return {{"count", steps.undoCount()},
            {"name", toUtf8(steps.undoName())},
            {"redo", steps.redoCount()}};
}

Json tabRectsJson(const PageTabs& tabs) {
    Json rects = Json::array();
    for (int i = 0; i < static_cast<int>(tabs.pages().size()); ++i) {
        rects.push_back(rectJson(tabs.tabRectOnScreen(i)));
    }
    return rects;
}

void writeReportText(const std::filesystem::path& file, const std::string& text) {
    std::ofstream stream(file, std::ios::binary);
    stream << text;
    stream.close();
    if (!stream) throw runtime::Error("cannot write the report " + toUtf8(file.wstring()));
}

}  // namespace

void writeReport(const std::filesystem::path& file, HWND window, const PageTabs& tabs,
                 const ViewerWindow& viewer, EditedEffect& effect) {
    Json pages = Json::array();
    for (const PageTabs::Page& page : tabs.pages()) pages.push_back(pageJson(page));
    const Json report{{"window", rectJson(screenRect(window))},
                      {"tabs", tabRectsJson(tabs)},
                      {"front", tabs.front()},
                      {"pages", std::move(pages)},
                      {"viewer",
                       {{"rect", rectJson(screenRect(viewer.handle()))},
                        {"picture", rectJson(viewer.pictureOnScreen())},
                        {"focus", GetFocus() == viewer.handle()}}},
                      {"undo", undoJson(effect.editor().undoStack())},
                      {"time", effect.editor().time()},
                      {"properties", propertiesJson(effect)}};
    const std::string text = report.dump(1) + "\n";
    writeWholeFile(
        file, [&](const std::filesystem::path& unfinished) { writeReportText(unfinished, text); });
}

}  // namespace ruvex::page_host
