// The handle by which a loaded module is named to the functions that read its resources.

#pragma once

#ifdef _WIN32
#include <windows.h>
#else

/// What the loader knows of a module's resources: the compiled resource file that is embedded in
/// the module, from `resourcesBegin` up to `resourcesEnd`. Both are null in a module without
/// resources. `file` is the full path of the module's file, or null. The loader owns the record; it
/// lives as long as the module is loaded.
struct DSModuleInstance {
    const unsigned char* resourcesBegin;
    const unsigned char* resourcesEnd;
    const char* file = nullptr;
};

using HINSTANCE = DSModuleInstance*;

#endif
