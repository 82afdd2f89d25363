// Wide text as UTF-8 and back, whatever the width of wchar_t.

#pragma once

#include <string>
#include <string_view>

#include "sdk/com/export.h"

namespace ruvex {

/// Half a surrogate pair, and a number beyond the last character, become U+FFFD.
DSSDK_API std::string toUtf8(std::wstring_view text);

/// Each byte that belongs to no well-formed character becomes U+FFFD.
DSSDK_API std::wstring fromUtf8(std::string_view text);

}  // namespace ruvex
