// The class identifiers of the effect and of its tool, by which hosts ask its module for them.

#pragma once

#include "sdk/com/guid.h"

namespace ruvex {

inline constexpr GUID kRuvexClassId = guidFromText("A41E7F12-37AB-48B5-99C9-C4B83402C0FC");
/// The tool with the on-screen controls.
inline constexpr GUID kToolClassId = guidFromText("6EBC28D8-0306-446E-9285-F5BF7111D075");

}  // namespace ruvex
