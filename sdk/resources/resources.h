// The system's way to a module's strings, where the system has none of its own.

#pragma once

#include "sdk/com/export.h"
#include "sdk/com/module_instance.h"

#ifndef _WIN32

/// Copies the string `id` of the module's resources into `buffer`, which holds `size` characters,
/// and ends it with a zero; what does not fit is cut off. Returns the number of characters copied
/// without the zero: 0 for an unknown string, an empty buffer or no module. It needs no memory.
/// Only the low 16 bits of `id` count. A character is a whole code point here, where wchar_t has
/// room for one. Unlike the system's, a size of 0 does not give out a pointer to the resource
/// itself.
DSSDK_API int LoadStringW(HINSTANCE module, unsigned int id, wchar_t* buffer, int size);

#endif
