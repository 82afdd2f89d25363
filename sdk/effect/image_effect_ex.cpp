#include "sdk/effect/image_effect_ex.h"

#include <limits>

HRESULT CDSImageEffectEx::QueryInterface(const GUID& id, void** out) {
    if (!out) return E_POINTER;
    if (id == IID_IDSGraphDataAliases) {
        *out = static_cast<IDSGraphDataAliases*>(this);
    } else if (id == IID_IDSTimeDependency) {
        *out = static_cast<IDSTimeDependency*>(this);
    } else {
        return CDSImageEffect::QueryInterface(id, out);
    }
    AddRef();
    return S_OK;
}

HRESULT CDSImageEffectEx::GetAliasedProperty(const GUID& alias, GUID* id) {
    if (!id) return E_POINTER;
    *id = ResolveAlias(alias);
    return S_OK;
}

HRESULT CDSImageEffectEx::GetTimeDependency(double, DSTIMERANGE* range) {
    if (!range) return E_POINTER;
    constexpr double kForever = std::numeric_limits<double>::infinity();
    *range = {-kForever, kForever};
    return S_OK;
}
