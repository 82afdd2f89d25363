// The table of loaded modules in which CoCreateInstance looks for a class.

#pragma once

#include "sdk/com/com.h"

/// The signature of a module's export DllGetClassObject.
using DSGetClassObject = HRESULT(const GUID& classId, const GUID& id, void** out);

/// Adds a module. A module that was added twice must be removed twice. CoCreateInstance asks the
/// modules in the order in which they were added. E_POINTER for null, E_OUTOFMEMORY if memory ran
/// out.
DSSDK_API HRESULT DSAddModule(DSGetClassObject* getClassObject);

/// The signature of a module's export DllCanUnloadNow.
using DSCanUnloadNow = HRESULT();

/// Removes a module that is not in use: no CoCreateInstance is calling it, and `canUnloadNow`
/// returns S_OK. `canUnloadNow` may be null and must not use the table. Afterwards no thread can
/// enter the module through the table. S_FALSE if the module is not in the table or is in use. The
/// function does not wait for the module: the thread that uses it may be waiting for the caller.
DSSDK_API HRESULT DSRemoveModule(DSGetClassObject* getClassObject,
                                 DSCanUnloadNow* canUnloadNow = nullptr);
