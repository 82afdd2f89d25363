#include "host/module/entry_points.h"

#include "host/base/module_use.h"
#include "host/module/class_table.h"
#include "overlay/draw.h"
#include "sdk/registry/registry.h"
#include "sdk/resources/resources.h"

namespace ruvex {
namespace {

constexpr UINT kNameString = 1;
constexpr int kMaxName = 260;
/// The version that the host stores with each family. It has been 1 in every release.
constexpr ULONG kFamilyVersion = 1;

const GUID& effectClassId() {
    return servedClasses().front().classId;
}

void throwFailure(HRESULT status) {
    if (FAILED(status)) throw status;
}

void registerAll() {
    for (const ServedClass& served : servedClasses()) {
        throwFailure(DSRegisterCOMEffect(served.classId, moduleInstance, served.stringId));
    }
    wchar_t name[kMaxName] = {};
    LoadStringW(moduleInstance, kNameString, name, kMaxName);
    const auto families = servedFamilies();
    throwFailure(DSRegisterObjectFamilies(effectClassId(), static_cast<ULONG>(families.size()),
                                          families.data(), kFamilyVersion, name, moduleInstance));
}

}  // namespace
}  // namespace ruvex

BOOL DllMain(HINSTANCE instance, DWORD reason, void* processEnds) {
    if (reason == DLL_PROCESS_ATTACH) {
        ruvex::moduleInstance = instance;
        DisableThreadLibraryCalls(instance);
    }
    // At the end of the process the libraries that this calls may be gone already.
    if (reason == DLL_PROCESS_DETACH && !processEnds) ruvex::releaseDrawing();
    return TRUE;
}

HRESULT DllCanUnloadNow() {
    return ruvex::objectCount == 0 ? S_OK : S_FALSE;
}

HRESULT DllGetClassObject(const GUID& classId, const GUID& interfaceId, void** out) {
    if (!out) return E_POINTER;
    *out = nullptr;
    for (const ruvex::ServedClass& served : ruvex::servedClasses()) {
        if (served.classId != classId) continue;
        IClassFactory* factory = served.makeFactory();
        if (!factory) return E_OUTOFMEMORY;
        const HRESULT status = factory->QueryInterface(interfaceId, out);
        factory->Release();
        return status;
    }
    return CLASS_E_CLASSNOTAVAILABLE;
}

HRESULT DllRegisterServer() {
    try {
        ruvex::registerAll();
    } catch (HRESULT status) {
        return status;
    }
    return S_OK;
}

HRESULT DllUnregisterServer() {
    HRESULT failure = S_OK;
    // The failure of a later class replaces that of an earlier one; that of the families wins.
    for (const ruvex::ServedClass& served : ruvex::servedClasses()) {
        const HRESULT status = DSUnregisterCOMEffect(served.classId);
        if (FAILED(status)) failure = status;
    }
    const auto families = ruvex::servedFamilies();
    const HRESULT status =
        DSUnregisterObjectFamilies(ruvex::effectClassId(), static_cast<ULONG>(families.size()),
                                   families.data(), ruvex::moduleInstance);
    return FAILED(status) ? status : failure;
}
