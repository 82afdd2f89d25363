#include "sdk/resources.h"

#ifndef _WIN32

#include <algorithm>
#include <new>
#include <string>

#include "sdk/resource_file.h"

namespace {

constexpr wchar_t kReplacement = 0xFFFD;

constexpr bool isLeading(char16_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}
constexpr bool isTrailing(char16_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

/// UTF-16 as code points; half a pair becomes the replacement character.
std::wstring widen(const std::u16string& text) {
    std::wstring wide;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        const bool pair = isLeading(unit) && i + 1 < text.size() && isTrailing(text[i + 1]);
        if (pair) {
            const unsigned low = text[++i] - 0xDC00u;
            wide += static_cast<wchar_t>(0x10000u + ((unit - 0xD800u) << 10) + low);
        } else {
            wide += isLeading(unit) || isTrailing(unit) ? kReplacement : static_cast<wchar_t>(unit);
        }
    }
    return wide;
}

ruvex::ResourceFile resourcesOf(HINSTANCE module) {
    if (module == nullptr || module->resourcesBegin == nullptr) return ruvex::ResourceFile({});
    return ruvex::ResourceFile({module->resourcesBegin, module->resourcesEnd});
}

}  // namespace

int LoadStringW(HINSTANCE module, unsigned int id, wchar_t* buffer, int size) {
    if (buffer == nullptr || size <= 0) return 0;
    buffer[0] = L'\0';
    std::wstring text;
    try {
        const auto stored = resourcesOf(module).string(static_cast<std::uint16_t>(id));
        if (stored) text = widen(*stored);
    } catch (const std::bad_alloc&) {
        return 0;
    }
    const std::size_t count = std::min(text.size(), static_cast<std::size_t>(size) - 1);
    std::copy_n(text.data(), count, buffer);
    buffer[count] = L'\0';
    return static_cast<int>(count);
}

#endif
