#include "sdk/resources/resources.h"

#ifndef _WIN32

#include <cstddef>

#include "sdk/resources/resource_file.h"

namespace {

constexpr wchar_t kReplacement = 0xFFFD;

constexpr bool isLeading(char16_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}
constexpr bool isTrailing(char16_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

/// The code point at unit `i`; advances `i` past it. An unpaired surrogate becomes U+FFFD.
wchar_t takeCodePoint(const ruvex::ResourceText& text, std::size_t& i) {
    const char16_t unit = text[i++];
    if (isLeading(unit) && i < text.size() && isTrailing(text[i])) {
        const unsigned low = text[i++] - 0xDC00u;
        return static_cast<wchar_t>(0x10000u + ((unit - 0xD800u) << 10) + low);
    }
    return isLeading(unit) || isTrailing(unit) ? kReplacement : static_cast<wchar_t>(unit);
}

ruvex::ResourceFile resourcesOf(HINSTANCE module) {
    if (module == nullptr || module->resourcesBegin == nullptr) return ruvex::ResourceFile({});
    return ruvex::ResourceFile({module->resourcesBegin, module->resourcesEnd});
}

}  // namespace

int LoadStringW(HINSTANCE module, unsigned int id, wchar_t* buffer, int size) {
    if (buffer == nullptr || size <= 0) return 0;
    const auto text = resourcesOf(module).string(static_cast<std::uint16_t>(id));
    int count = 0;
    for (std::size_t i = 0; text && i < text->size() && count < size - 1;) {
        buffer[count++] = takeCodePoint(*text, i);
    }
    buffer[count] = L'\0';
    return count;
}

#endif
