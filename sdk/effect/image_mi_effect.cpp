#include "sdk/effect/image_mi_effect.h"

HRESULT CDSImageMIEffect::GetNumInputs(ULONG* count) {
    if (!count) return E_POINTER;
    *count = (input ? 1u : 0u) + (input2 ? 1u : 0u);
    return S_OK;
}

HRESULT CDSImageMIEffect::EnumInputs(ULONG capacity, IDSImage** inputs, ULONG* fetched) {
    if (!fetched || (!inputs && capacity > 0)) return E_POINTER;
    *fetched = 0;
    for (const auto* image : {&input, &input2}) {
        if (!*image) continue;
        if (*fetched == capacity) return S_FALSE;
        copyReference(*image, &inputs[(*fetched)++]);
    }
    return S_OK;
}
