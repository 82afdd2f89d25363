#include "sdk/registry.h"

#include <algorithm>
#include <iterator>
#include <mutex>
#include <utility>

#include "sdk/resources.h"

namespace {

struct Registry {
    std::mutex mutex;
    std::vector<DSRegisteredClass> classes;
    std::vector<DSRegisteredFamily> families;
    int callsToFailure = 0;
    HRESULT failure = S_OK;

    /// Counts one call; what it has to fail with, or 0.
    HRESULT count() { return callsToFailure > 0 && --callsToFailure == 0 ? failure : S_OK; }
};

Registry& registry() {
    static Registry instance;
    return instance;
}

/// Runs one of the four operations under the lock, unless it is the one that is to fail.
template <class Operation>
HRESULT counted(Operation operation) {
    Registry& all = registry();
    const std::lock_guard lock(all.mutex);
    const HRESULT failure = all.count();
    return FAILED(failure) ? failure : operation(all);
}

/// The module's string; empty when it has none of that number.
std::wstring textOf(HINSTANCE module, UINT stringId) {
    wchar_t buffer[260];
    const int length = LoadStringW(module, stringId, buffer, static_cast<int>(std::size(buffer)));
    return std::wstring(buffer, static_cast<std::size_t>(length));
}

bool contains(const GUID* families, ULONG count, const GUID& family) {
    return std::find(families, families + count, family) != families + count;
}

}  // namespace

HRESULT DSRegisterCOMEffect(const GUID& classId, HINSTANCE module, UINT stringId) {
    return counted([&](Registry& all) {
        DSRegisteredClass entry{classId, stringId, textOf(module, stringId)};
        for (DSRegisteredClass& known : all.classes) {
            if (known.classId == classId) {
                known = std::move(entry);
                return S_OK;
            }
        }
        all.classes.push_back(std::move(entry));
        return S_OK;
    });
}

HRESULT DSUnregisterCOMEffect(const GUID& classId) {
    return counted([&](Registry& all) {
        const auto removed = std::erase_if(
            all.classes, [&](const DSRegisteredClass& c) { return c.classId == classId; });
        return removed > 0 ? S_OK : REGDB_E_CLASSNOTREG;
    });
}

HRESULT DSRegisterObjectFamilies(const GUID& classId, ULONG familyCount, const GUID* families,
                                 ULONG version, const wchar_t* name, HINSTANCE) {
    return counted([&](Registry& all) {
        if (!name || (!families && familyCount > 0)) return E_POINTER;
        std::erase_if(all.families, [&](const DSRegisteredFamily& f) {
            return f.classId == classId && contains(families, familyCount, f.family);
        });
        for (ULONG i = 0; i < familyCount; ++i) {
            all.families.push_back({classId, families[i], version, name});
        }
        return S_OK;
    });
}

HRESULT DSUnregisterObjectFamilies(const GUID& classId, ULONG familyCount, const GUID* families,
                                   HINSTANCE) {
    return counted([&](Registry& all) {
        if (!families && familyCount > 0) return E_POINTER;
        const auto removed = std::erase_if(all.families, [&](const DSRegisteredFamily& f) {
            return f.classId == classId && contains(families, familyCount, f.family);
        });
        return removed > 0 ? S_OK : REGDB_E_CLASSNOTREG;
    });
}

std::vector<DSRegisteredClass> DSRegisteredClasses() {
    Registry& all = registry();
    const std::lock_guard lock(all.mutex);
    return all.classes;
}

std::vector<DSRegisteredFamily> DSRegisteredFamilies() {
    Registry& all = registry();
    const std::lock_guard lock(all.mutex);
    return all.families;
}

void DSClearRegistry() {
    Registry& all = registry();
    const std::lock_guard lock(all.mutex);
    all.classes.clear();
    all.families.clear();
    all.callsToFailure = 0;
}

void DSFailRegistryCall(int call, HRESULT status) {
    Registry& all = registry();
    const std::lock_guard lock(all.mutex);
    all.callsToFailure = call;
    all.failure = status;
}
