// What a module needs to be loaded: how it exports its entry points, and why DllMain is called.

#pragma once

#include "sdk/com/com.h"
#include "sdk/com/module_instance.h"

#ifdef _WIN32

#define DS_MODULE_ENTRY extern "C"

#else

/// Stands before the declaration of each of the module's entry points. On Windows the module's
/// definition file names them instead.
#define DS_MODULE_ENTRY extern "C" __attribute__((visibility("default")))

inline constexpr DWORD DLL_PROCESS_DETACH = 0;
inline constexpr DWORD DLL_PROCESS_ATTACH = 1;

/// Tells the system to leave the module alone when threads start and end. Where there are no such
/// calls there is nothing to switch off.
inline BOOL DisableThreadLibraryCalls(HINSTANCE) {
    return TRUE;
}

#endif
