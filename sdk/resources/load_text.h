// A string of a module's string table as a text of its own.

#pragma once

#include <string>

#include "sdk/resources/resources.h"

namespace ruvex {

/// The string with this number, cut to 1023 characters; empty if there is none.
inline std::wstring loadText(HINSTANCE module, unsigned int id) {
    constexpr int kMostText = 1024;
    // The system may leave the buffer as it is where there is no such string.
    wchar_t text[kMostText] = {};
    LoadStringW(module, id, text, kMostText);
    return text;
}

}  // namespace ruvex
