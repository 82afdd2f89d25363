// Conversion between wide text and UTF-8, for 16-bit and 32-bit wchar_t.

#pragma once

#include <string>
#include <string_view>

#include "sdk/com/export.h"

namespace ruvex {

/// An unpaired surrogate, and a code point above U+10FFFF, become U+FFFD.
DSSDK_API std::string toUtf8(std::wstring_view text);

/// Each byte that is not part of a well-formed character becomes U+FFFD.
DSSDK_API std::wstring fromUtf8(std::string_view text);

}  // namespace ruvex
