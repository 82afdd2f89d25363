// The registry of installed effect classes and their object families.

#pragma once

#include <memory>

#include "sdk/com/com.h"
#include "sdk/com/module_instance.h"
#include "sdk/registry/registry_store.h"

/// Registers a class with the file of its module. Its description is string `stringId` of the
/// module's string table, or empty if there is none. Replaces an existing entry of the class. This
/// and the three functions below return the status of the store (see DSRegistryStore).
DSSDK_API HRESULT DSRegisterCOMEffect(const GUID& classId, HINSTANCE module, UINT stringId);

/// Removes a class; REGDB_E_CLASSNOTREG if it is not registered.
DSSDK_API HRESULT DSUnregisterCOMEffect(const GUID& classId);

/// Registers an effect under `familyCount` families with the name of its tool. `version` is stored
/// unchanged. E_POINTER for a null list or name.
DSSDK_API HRESULT DSRegisterObjectFamilies(const GUID& classId, ULONG familyCount,
                                           const GUID* families, ULONG version, const wchar_t* name,
                                           HINSTANCE module);

/// Removes an effect from these families; REGDB_E_CLASSNOTREG if it is in none of them.
DSSDK_API HRESULT DSUnregisterObjectFamilies(const GUID& classId, ULONG familyCount,
                                             const GUID* families, HINSTANCE module);

/// For hosts: reads the whole registry. Returns the status of the store; E_POINTER for null.
DSSDK_API HRESULT DSReadRegistry(DSRegistryContents* contents);

/// For hosts: sets the store that all these functions use in this process, and returns the previous
/// one. Null (the initial value) means the system's registry.
DSSDK_API std::shared_ptr<DSRegistryStore> DSUseRegistry(std::shared_ptr<DSRegistryStore> store);
