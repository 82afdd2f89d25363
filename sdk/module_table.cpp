#include "sdk/module_table.h"

#include <algorithm>
#include <mutex>
#include <new>
#include <vector>

#include "sdk/com_ptr.h"

namespace {

struct ModuleTable {
    std::mutex mutex;
    std::vector<DSGetClassObject*> modules;
};

ModuleTable& moduleTable() {
    static ModuleTable instance;
    return instance;
}

}  // namespace

HRESULT DSAddModule(DSGetClassObject* getClassObject) {
    if (!getClassObject) return E_POINTER;
    ModuleTable& table = moduleTable();
    const std::lock_guard lock(table.mutex);
    try {
        table.modules.push_back(getClassObject);
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    }
    return S_OK;
}

HRESULT DSRemoveModule(DSGetClassObject* getClassObject) {
    ModuleTable& table = moduleTable();
    const std::lock_guard lock(table.mutex);
    const auto found = std::find(table.modules.begin(), table.modules.end(), getClassObject);
    if (found == table.modules.end()) return S_FALSE;
    table.modules.erase(found);
    return S_OK;
}

#ifndef _WIN32

namespace {

/// False when memory ran out.
bool copyModules(std::vector<DSGetClassObject*>& modules) {
    ModuleTable& table = moduleTable();
    const std::lock_guard lock(table.mutex);
    try {
        modules = table.modules;
    } catch (const std::bad_alloc&) {
        return false;
    }
    return true;
}

}  // namespace

HRESULT CoCreateInstance(const GUID& classId, IUnknown* outer, DWORD, const GUID& id, void** out) {
    if (!out) return E_POINTER;
    *out = nullptr;
    // Without the lock: a class may create objects of other classes while it is made.
    std::vector<DSGetClassObject*> modules;
    if (!copyModules(modules)) return E_OUTOFMEMORY;
    for (DSGetClassObject* getClassObject : modules) {
        ComPtr<IClassFactory> factory;
        const HRESULT status = getClassObject(classId, IID_IClassFactory, factory.putVoid());
        if (status == CLASS_E_CLASSNOTAVAILABLE) continue;
        return FAILED(status) ? status : factory->CreateInstance(outer, id, out);
    }
    return REGDB_E_CLASSNOTREG;
}

#endif
