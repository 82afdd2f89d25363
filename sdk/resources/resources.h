// LoadStringW for systems without it: reads a module's string table.

#pragma once

#include "sdk/com/export.h"
#include "sdk/com/module_instance.h"

#ifndef _WIN32

/// Copies string `id` of the module's string table into `buffer`, which has room for `size`
/// characters, truncated if necessary and terminated by a zero. Returns the number of characters
/// without the zero: 0 for an unknown string, an empty buffer or no module. Allocates nothing. Only
/// the low 16 bits of `id` count. With a 32-bit wchar_t, a character is a code point. Unlike the
/// system's function, a size of 0 does not give a pointer to the resource.
DSSDK_API int LoadStringW(HINSTANCE module, unsigned int id, wchar_t* buffer, int size);

#endif
