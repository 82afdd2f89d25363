// What the module exports.

#pragma once

#include "sdk/com/com.h"
#include "sdk/com/module_entry.h"

/// 0 when nothing of the module is in use, else 1.
DS_MODULE_ENTRY HRESULT DllCanUnloadNow();

/// Makes the factory of a served class and hands out its interface `interfaceId`. E_POINTER for a
/// null `out`; with null in `*out`, CLASS_E_CLASSNOTAVAILABLE for a class that is not served,
/// E_OUTOFMEMORY, and E_NOINTERFACE for what a factory does not answer to.
DS_MODULE_ENTRY HRESULT DllGetClassObject(const GUID& classId, const GUID& interfaceId, void** out);

/// Enters all classes and the effect's families. The first failure ends it and is returned; what
/// was entered before stays.
DS_MODULE_ENTRY HRESULT DllRegisterServer();

/// Takes out the families and all classes, whatever fails. Returns the first failure in the order
/// families, then classes from last to first.
DS_MODULE_ENTRY HRESULT DllUnregisterServer();

/// Called at load and unload; always 1. `instance` is kept.
DS_MODULE_ENTRY BOOL DllMain(HINSTANCE instance, DWORD reason, void* reserved);
