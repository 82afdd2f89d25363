#include "sdk/viewer/viewer_controller.h"

#include <algorithm>
#include <mutex>

#include "sdk/com/guarded.h"

namespace {

struct Controller {
    std::mutex mutex;
    std::vector<VWContext> contexts;
    ULONG lastId = 0;
};

Controller& controller() {
    static Controller instance;
    return instance;
}

}  // namespace

HRESULT VWControllerPushContext(ULONG type, IUnknown* tool, IUnknown* object, IUnknown* first,
                                IUnknown* second, double number, ULONG* id) {
    if (!tool || !object || !id) return E_POINTER;
    Controller& all = controller();
    const std::lock_guard lock(all.mutex);
    return ruvex::guarded([&] {
        all.contexts.push_back({all.lastId + 1, type, tool, object, first, second, number});
        *id = ++all.lastId;
        return S_OK;
    });
}

HRESULT VWControllerRemoveContext(ULONG id) {
    Controller& all = controller();
    VWContext removed;
    {
        const std::lock_guard lock(all.mutex);
        const auto found = std::ranges::find(all.contexts, id, &VWContext::id);
        if (found == all.contexts.end()) return E_INVALIDARG;
        // Release it after the lock: the destructor of a tool may call the viewer again.
        removed = std::move(*found);
        all.contexts.erase(found);
    }
    return S_OK;
}

std::vector<VWContext> VWControllerContexts() {
    Controller& all = controller();
    const std::lock_guard lock(all.mutex);
    return all.contexts;
}
