#include "sdk/effect/plug_in.h"

HRESULT CDSPlugInEffect::Term() {
    RemoveObservers();
    return S_OK;
}

HRESULT CDSPlugInEffect::GetInfo(DSPLUGININFO* info) {
    return info ? S_OK : E_POINTER;
}

HRESULT CDSPlugInEffect::GetToolInfo(DSTOOLINFO* info) {
    return info ? S_OK : E_POINTER;
}

HRESULT CDSPlugInEffect::SetDefaults() {
    RemoveAnimations();
    return S_OK;
}

HRESULT CDSPlugInEffect::GetPropertyPageCount(ULONG* count) {
    if (!count) return E_POINTER;
    *count = static_cast<ULONG>(propertyPages.size());
    return S_OK;
}

HRESULT CDSPlugInEffect::GetPropertyPage(ULONG index, GUID* classId) {
    if (!classId) return E_POINTER;
    if (index >= propertyPages.size()) return E_INVALIDARG;
    *classId = propertyPages[index];
    return S_OK;
}

bool CDSPlugInEffect::RemovePropertyPage(const GUID& classId) {
    return std::erase(propertyPages, classId) > 0;
}
