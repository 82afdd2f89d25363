// The functions that the module exports.

#pragma once

#include "sdk/com/com.h"
#include "sdk/com/module_entry.h"

/// S_OK if no object, factory or server lock of the module exists, else S_FALSE.
DS_MODULE_ENTRY HRESULT DllCanUnloadNow();

/// Creates the factory of a class and stores its interface `interfaceId` in `*out`. Errors:
/// E_POINTER if `out` is null; and, with null in `*out`, CLASS_E_CLASSNOTAVAILABLE for a class that
/// is not served, E_OUTOFMEMORY, and E_NOINTERFACE for an interface that a factory does not
/// implement.
DS_MODULE_ENTRY HRESULT DllGetClassObject(const GUID& classId, const GUID& interfaceId, void** out);

/// Registers all classes and the effect's families. Stops at the first failure and returns it;
/// entries made before remain.
DS_MODULE_ENTRY HRESULT DllRegisterServer();

/// Removes the families and all classes; continues after a failure. Returns the failure of the
/// families or else that of the last class that failed.
DS_MODULE_ENTRY HRESULT DllUnregisterServer();

/// Called at load and unload. Stores `instance`; always returns 1.
DS_MODULE_ENTRY BOOL DllMain(HINSTANCE instance, DWORD reason, void* reserved);
