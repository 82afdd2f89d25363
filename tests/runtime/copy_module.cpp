// A module that serves CopyEffect under the effect's class identifier: all that the loader and the
// session ask of a module, and no more.

#include <atomic>
#include <new>

#include "runtime/effect_session.h"
#include "sdk/com/com_object.h"
#include "sdk/com/module_entry.h"
#include "sdk/registry/registry.h"
#include "tests/support/copy_effect.h"

namespace {

using ruvex::kRuvexClassId;
using ruvex::test::CopyEffect;

std::atomic<int> locks{0};
std::atomic<int> attached{0};
HINSTANCE instance = nullptr;

/// Lives as long as the module.
class Factory final : public ComObject<IClassFactory> {
public:
    HRESULT CreateInstance(IUnknown* outer, const GUID& id, void** out) override {
        *out = nullptr;
        if (outer) return CLASS_E_NOAGGREGATION;
        const auto made = ComPtr<CopyEffect>::attach(new (std::nothrow) CopyEffect);
#ifdef COPY_MODULE_KEEPS_INPUT
        if (made) made->keepInput();
#endif
        return made ? made->QueryInterface(id, out) : E_OUTOFMEMORY;
    }

    HRESULT LockServer(BOOL lock) override {
        locks += lock ? 1 : -1;
        return S_OK;
    }
};

}  // namespace

DS_MODULE_ENTRY BOOL DllMain(HINSTANCE module, DWORD reason, void*) {
#ifdef COPY_MODULE_REFUSES
    (void)module;
    return reason == DLL_PROCESS_DETACH;
#else
    instance = module;
    attached += reason == DLL_PROCESS_ATTACH ? 1 : -1;
    return TRUE;
#endif
}

/// How often the module was attached and not detached.
DS_MODULE_ENTRY int copyModuleAttached() {
    return attached;
}

DS_MODULE_ENTRY HRESULT DllCanUnloadNow() {
    return locks == 0 && CopyEffect::liveObjects == 0 ? S_OK : S_FALSE;
}

DS_MODULE_ENTRY HRESULT DllGetClassObject(const GUID& classId, const GUID& id, void** out) {
    static Factory factory;
    if (!out) return E_POINTER;
    *out = nullptr;
    if (!(classId == kRuvexClassId)) return CLASS_E_CLASSNOTAVAILABLE;
    return factory.QueryInterface(id, out);
}

#ifndef COPY_MODULE_LACKS_REGISTRATION
DS_MODULE_ENTRY HRESULT DllRegisterServer() {
    return DSRegisterCOMEffect(kRuvexClassId, instance, 2);
}
#endif

DS_MODULE_ENTRY HRESULT DllUnregisterServer() {
    return DSUnregisterCOMEffect(kRuvexClassId);
}
