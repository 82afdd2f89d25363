#include "sdk/com/module_table.h"

#include <algorithm>
#include <list>
#include <mutex>

#include "sdk/com/com_ptr.h"
#include "sdk/com/guarded.h"

namespace {

struct Entry {
    DSGetClassObject* getClassObject;
    /// Running calls of CoCreateInstance that use the module. The entry can't be removed while this
    /// is above 0.
    int users = 0;
};

struct ModuleTable {
    std::mutex mutex;
    std::list<Entry> modules;
};

ModuleTable& moduleTable() {
    static ModuleTable instance;
    return instance;
}

}  // namespace

HRESULT DSAddModule(DSGetClassObject* getClassObject) {
    if (!getClassObject) return E_POINTER;
    ModuleTable& table = moduleTable();
    return ruvex::guarded([&] {
        const std::lock_guard lock(table.mutex);
        table.modules.push_back({getClassObject});
        return S_OK;
    });
}

HRESULT DSRemoveModule(DSGetClassObject* getClassObject, DSCanUnloadNow* canUnloadNow) {
    ModuleTable& table = moduleTable();
    const std::lock_guard lock(table.mutex);
    const auto found = std::ranges::find_if(table.modules, [&](const Entry& entry) {
        return entry.getClassObject == getClassObject && entry.users == 0;
    });
    if (found == table.modules.end()) return S_FALSE;
    if (canUnloadNow && canUnloadNow() != S_OK) return S_FALSE;
    table.modules.erase(found);
    return S_OK;
}

#ifndef _WIN32

namespace {

/// Iterates over the modules. The lock is released while a module is used, since the constructor of
/// an object may create further objects; the entry's `users` keeps the module in the table.
class ModuleWalk {
public:
    ModuleWalk() : lock_(table_.mutex), at_(table_.modules.begin()) { enter(); }
    ~ModuleWalk() { leave(); }
    ModuleWalk(const ModuleWalk&) = delete;
    ModuleWalk& operator=(const ModuleWalk&) = delete;

    bool done() const { return done_; }
    DSGetClassObject* getClassObject() const { return at_->getClassObject; }
    /// Requires !done().
    void next() {
        leave();
        ++at_;
        enter();
    }

private:
    /// Requires the lock, and releases it.
    void enter() {
        done_ = at_ == table_.modules.end();
        if (!done_) ++at_->users;
        lock_.unlock();
    }
    /// Acquires the lock.
    void leave() {
        lock_.lock();
        if (!done_) --at_->users;
    }

    ModuleTable& table_ = moduleTable();
    std::unique_lock<std::mutex> lock_;
    std::list<Entry>::iterator at_;
    bool done_ = false;
};

}  // namespace

HRESULT CoCreateInstance(const GUID& classId, IUnknown* outer, DWORD, const GUID& id, void** out) {
    if (!out) return E_POINTER;
    *out = nullptr;
    for (ModuleWalk walk; !walk.done(); walk.next()) {
        ComPtr<IClassFactory> factory;
        const HRESULT status = walk.getClassObject()(classId, IID_IClassFactory, factory.putVoid());
        if (status == CLASS_E_CLASSNOTAVAILABLE) continue;
        return FAILED(status) ? status : factory->CreateInstance(outer, id, out);
    }
    return REGDB_E_CLASSNOTREG;
}

#endif
