// The class identifier of the effect, by which hosts ask its module for it.

#pragma once

#include "sdk/com/guid.h"

namespace ruvex {

inline constexpr GUID kRuvexClassId = guidFromText("A41E7F12-37AB-48B5-99C9-C4B83402C0FC");

}  // namespace ruvex
