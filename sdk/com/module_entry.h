// What a module's entry points need: their export macro and the reasons for calls of DllMain.

#pragma once

#include "sdk/com/com.h"
#include "sdk/com/module_instance.h"

#ifdef _WIN32

#define DS_MODULE_ENTRY extern "C"

#else

/// Exports a function; for the declarations of the module's entry points. On Windows the module's
/// definition file exports them.
#define DS_MODULE_ENTRY extern "C" __attribute__((visibility("default")))

inline constexpr DWORD DLL_PROCESS_DETACH = 0;
inline constexpr DWORD DLL_PROCESS_ATTACH = 1;

/// On Windows, switches off the calls of DllMain at the start and end of threads. Elsewhere there
/// are no such calls, and this does nothing.
inline BOOL DisableThreadLibraryCalls(HINSTANCE) {
    return TRUE;
}

#endif
