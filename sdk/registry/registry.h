// The table of installed effect classes and the families that they belong to.

#pragma once

#include <memory>

#include "sdk/com/com.h"
#include "sdk/com/module_instance.h"
#include "sdk/registry/registry_store.h"

/// Enters a class, with the file of the module that serves it. Its description is string `stringId`
/// of the module; a module that lacks the string gives an empty one. Entering a class again
/// replaces its entry. This and the three below pass on what the store answers.
DSSDK_API HRESULT DSRegisterCOMEffect(const GUID& classId, HINSTANCE module, UINT stringId);

/// Removes a class; REGDB_E_CLASSNOTREG when it is not there.
DSSDK_API HRESULT DSUnregisterCOMEffect(const GUID& classId);

/// Enters an effect under `familyCount` families, with the name that its tool has. `version` is
/// kept as it is given. E_POINTER for a missing list or name.
DSSDK_API HRESULT DSRegisterObjectFamilies(const GUID& classId, ULONG familyCount,
                                           const GUID* families, ULONG version, const wchar_t* name,
                                           HINSTANCE module);

/// Removes an effect from those families; REGDB_E_CLASSNOTREG when it is in none of them.
DSSDK_API HRESULT DSUnregisterObjectFamilies(const GUID& classId, ULONG familyCount,
                                             const GUID* families, HINSTANCE module);

/// The host's side: what is registered now. What the store answers; E_POINTER for null.
DSSDK_API HRESULT DSReadRegistry(DSRegistryContents* contents);

/// The host's side: the store that all of these use from now on in this process, and the one that
/// they used before. Null, as at first, stands for the system's.
DSSDK_API std::shared_ptr<DSRegistryStore> DSUseRegistry(std::shared_ptr<DSRegistryStore> store);
