// The table of installed effect classes and the families that they belong to.

#pragma once

#include <string>
#include <vector>

#include "sdk/com.h"
#include "sdk/module_instance.h"

/// Enters a class. Its description is string `stringId` of the module; a module that lacks the
/// string gives an empty one. Entering a class again replaces its entry.
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

struct DSRegisteredClass {
    GUID classId;
    UINT stringId;
    std::wstring description;
};

struct DSRegisteredFamily {
    GUID classId;
    GUID family;
    ULONG version;
    std::wstring name;
};

/// The host's side: what is registered now, in the order of registration.
DSSDK_API std::vector<DSRegisteredClass> DSRegisteredClasses();
DSSDK_API std::vector<DSRegisteredFamily> DSRegisteredFamilies();

/// Empties both tables and forgets a failure that was asked for.
DSSDK_API void DSClearRegistry();

/// For tests: the `call`-th of the four operations above, counted from 1 from now on, does nothing
/// and returns `status`. 0 asks for none.
DSSDK_API void DSFailRegistryCall(int call, HRESULT status);
