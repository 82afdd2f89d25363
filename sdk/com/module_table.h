// The loaded modules among which CoCreateInstance looks for a class.

#pragma once

#include "sdk/com/com.h"

/// The shape of a module's export DllGetClassObject.
using DSGetClassObject = HRESULT(const GUID& classId, const GUID& id, void** out);

/// Adds a module; one that is added twice must be removed twice. Modules are asked in the order in
/// which they were added. E_POINTER for null, E_OUTOFMEMORY.
DSSDK_API HRESULT DSAddModule(DSGetClassObject* getClassObject);

/// The shape of a module's export DllCanUnloadNow.
using DSCanUnloadNow = HRESULT();

/// Removes it again if nothing of it is in use: no CoCreateInstance is asking it, and
/// `canUnloadNow`, which may be null and must not use the table, answers S_OK. Afterwards no thread
/// can come into the module by way of the table. S_FALSE when it was not there or is in use; it
/// does not wait, since who makes an object may himself be waiting for the caller.
DSSDK_API HRESULT DSRemoveModule(DSGetClassObject* getClassObject,
                                 DSCanUnloadNow* canUnloadNow = nullptr);
