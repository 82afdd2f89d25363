// What the module exports.

#pragma once

#include "sdk/com.h"
#include "sdk/export.h"
#include "sdk/module_instance.h"

extern "C" {

/// 0 when nothing of the module is in use, else 1.
DS_EXPORT HRESULT DllCanUnloadNow();

/// Makes the factory of a served class and hands out its interface `interfaceId`.
DS_EXPORT HRESULT DllGetClassObject(const GUID& classId, const GUID& interfaceId, void** out);

/// Enters all classes and the effect's families. The first failure ends it and is returned; what
/// was entered before stays.
DS_EXPORT HRESULT DllRegisterServer();

/// Takes out the families and all classes, whatever fails. Returns the first failure in the order
/// families, then classes from last to first.
DS_EXPORT HRESULT DllUnregisterServer();

/// Called at load and unload; always 1. `instance` is kept.
DS_EXPORT BOOL DllMain(HINSTANCE instance, DWORD reason, void* reserved);
}
