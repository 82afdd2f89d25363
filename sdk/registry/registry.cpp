#include "sdk/registry/registry.h"

#include <iterator>
#include <mutex>
#include <utility>

#include "sdk/com/dynamic_library.h"
#include "sdk/com/guarded.h"
#include "sdk/resources/resources.h"

namespace {

struct Registry {
    std::mutex mutex;
    std::shared_ptr<DSRegistryStore> store;

    static Registry& get() {
        static Registry instance;
        return instance;
    }
};

/// Runs an operation on the store in use; exceptions become status codes.
template <class Operation>
HRESULT onStore(Operation operation) {
    Registry& registry = Registry::get();
    return ruvex::guarded([&] {
        const std::lock_guard lock(registry.mutex);
        if (!registry.store) registry.store = DSSystemRegistry();
        return operation(*registry.store);
    });
}

/// String `stringId` of the module's string table; empty if there is none.
std::wstring textOf(HINSTANCE module, UINT stringId) {
    wchar_t buffer[260];
    const int length = LoadStringW(module, stringId, buffer, static_cast<int>(std::size(buffer)));
    return std::wstring(buffer, static_cast<std::size_t>(length));
}

}  // namespace

HRESULT DSRegisterCOMEffect(const GUID& classId, HINSTANCE module, UINT stringId) {
    return onStore([&](DSRegistryStore& store) {
        return store.addClass(
            {classId, stringId, textOf(module, stringId), DSDynamicLibrary::fileOf(module)});
    });
}

HRESULT DSUnregisterCOMEffect(const GUID& classId) {
    return onStore([&](DSRegistryStore& store) { return store.removeClass(classId); });
}

HRESULT DSRegisterObjectFamilies(const GUID& classId, ULONG familyCount, const GUID* families,
                                 ULONG version, const wchar_t* name, HINSTANCE) {
    if (!name || (!families && familyCount > 0)) return E_POINTER;
    return onStore([&](DSRegistryStore& store) {
        std::vector<DSRegisteredFamily> entries;
        for (ULONG i = 0; i < familyCount; ++i) {
            entries.push_back({classId, families[i], version, name});
        }
        return store.addFamilies(entries);
    });
}

HRESULT DSUnregisterObjectFamilies(const GUID& classId, ULONG familyCount, const GUID* families,
                                   HINSTANCE) {
    if (!families && familyCount > 0) return E_POINTER;
    return onStore([&](DSRegistryStore& store) {
        return store.removeFamilies(classId, {families, familyCount});
    });
}

HRESULT DSReadRegistry(DSRegistryContents* contents) {
    if (!contents) return E_POINTER;
    return onStore([&](DSRegistryStore& store) { return store.read(*contents); });
}

std::shared_ptr<DSRegistryStore> DSUseRegistry(std::shared_ptr<DSRegistryStore> store) {
    Registry& registry = Registry::get();
    const std::lock_guard lock(registry.mutex);
    return std::exchange(registry.store, std::move(store));
}
