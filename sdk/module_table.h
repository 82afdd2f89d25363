// The loaded modules among which CoCreateInstance looks for a class.

#pragma once

#include "sdk/com.h"

/// The shape of a module's export DllGetClassObject.
using DSGetClassObject = HRESULT(const GUID& classId, const GUID& id, void** out);

/// Adds a module; one that is added twice must be removed twice. Modules are asked in the order in
/// which they were added. E_POINTER for null, E_OUTOFMEMORY.
DSSDK_API HRESULT DSAddModule(DSGetClassObject* getClassObject);

/// Removes it again; S_FALSE when it was not there.
DSSDK_API HRESULT DSRemoveModule(DSGetClassObject* getClassObject);
