// Named handles that are attached to windows in memory.

#include <algorithm>
#include <string_view>

#include "sdk/window/window_table.h"

using ruvex::windows::find;
using ruvex::windows::unlessOutOfMemory;
using ruvex::windows::Window;

namespace {

using Properties = std::map<std::wstring, HANDLE>;

constexpr wchar_t inSmallLetters(wchar_t letter) {
    return letter >= L'A' && letter <= L'Z' ? static_cast<wchar_t>(letter - L'A' + L'a') : letter;
}

/// Names that differ only in capital and small letters are the same.
bool sameName(std::wstring_view a, std::wstring_view b) {
    return std::ranges::equal(a, b, {}, inSmallLetters, inSmallLetters);
}

/// Numbers in place of names (atoms) are not supported.
bool isPropertyName(const wchar_t* name) {
    constexpr std::uintptr_t kFirstPointer = 0x10000;
    return reinterpret_cast<std::uintptr_t>(name) >= kFirstPointer && *name != L'\0';
}

Properties::iterator findProperty(Properties& properties, const wchar_t* name) {
    return std::ranges::find_if(properties,
                                [name](const auto& entry) { return sameName(entry.first, name); });
}

}  // namespace

HANDLE GetPropW(HWND window, const wchar_t* name) {
    Window* const found = find(window);
    if (!found || !isPropertyName(name)) return nullptr;
    const auto place = findProperty(found->state.properties, name);
    return place == found->state.properties.end() ? nullptr : place->second;
}

BOOL SetPropW(HWND window, const wchar_t* name, HANDLE value) {
    Window* const found = find(window);
    if (!found || !isPropertyName(name)) return FALSE;
    Properties& properties = found->state.properties;
    return unlessOutOfMemory(FALSE, [&] {
        const auto place = findProperty(properties, name);
        (place == properties.end() ? properties[name] : place->second) = value;
        return TRUE;
    });
}

HANDLE RemovePropW(HWND window, const wchar_t* name) {
    Window* const found = find(window);
    if (!found || !isPropertyName(name)) return nullptr;
    const auto place = findProperty(found->state.properties, name);
    if (place == found->state.properties.end()) return nullptr;
    const HANDLE value = place->second;
    found->state.properties.erase(place);
    return value;
}
