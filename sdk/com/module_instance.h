// The handle of a loaded module, through which its resources are read.

#pragma once

#ifdef _WIN32
#include <windows.h>
#else

/// A module's file and embedded resources. The compiled resource file (.res) in the module begins
/// at `resourcesBegin` and ends before `resourcesEnd`; both are null in a module without resources.
/// `file` is the full path of the module's file, or null. The loader owns the record, which is
/// valid as long as the module is loaded.
struct DSModuleInstance {
    const unsigned char* resourcesBegin;
    const unsigned char* resourcesEnd;
    const char* file = nullptr;
};

using HINSTANCE = DSModuleInstance*;

#endif
