#include "sdk/effect/image_effect_ex.h"

#include <limits>

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
