#include "sdk/properties/property_container.h"

#include <algorithm>
#include <cmath>

#include "sdk/com/guarded.h"

HRESULT CDSPropertyContainer::GetValue(const GUID& id, double seconds, VARIANT* value) {
    const DSAnimation* animation = FindAnimation(id);
    if (!animation) return CDSBasePropertyContainer::GetValue(id, seconds, value);
    if (!value) return E_POINTER;
    *value = DSVariantFromReal(animation->valueAt(seconds));
    return S_OK;
}

HRESULT CDSPropertyContainer::SetValue(const GUID& id, double seconds, const VARIANT* value) {
    const DSAnimation* animation = FindAnimation(id);
    if (!animation) return CDSBasePropertyContainer::SetValue(id, seconds, value);
    if (!value) return E_POINTER;
    if (value->vt != VT_R8) return E_INVALIDARG;
    return ruvex::guarded([&] {
        std::vector<DSKey> keys = animation->keys();
        keys.push_back({seconds, value->dblVal, animation->modeAt(seconds)});
        return SetKeys(id, keys.data(), static_cast<ULONG>(keys.size()));
    });
}

HRESULT CDSPropertyContainer::SetKeys(const GUID& id, const DSKey* keys, ULONG count) {
    const CDSPropertiesMapEntry* entry = FindProperty(id);
    if (!entry || !entry->definition.animatable()) return E_INVALIDARG;
    if (count == 0) return ClearKeys(id);
    if (!keys) return E_POINTER;
    const HRESULT status = ruvex::guarded([&] {
        auto animation = DSAnimation::fromKeys({keys, keys + count});
        if (!animation) return E_INVALIDARG;
        store(id, *std::move(animation));
        return S_OK;
    });
    if (FAILED(status)) return status;
    return OnPropertyChanged(id, entry->definition.classification, nullptr);
}

HRESULT CDSPropertyContainer::ClearKeys(const GUID& id) {
    const CDSPropertiesMapEntry* entry = FindProperty(id);
    if (!entry) return E_INVALIDARG;
    if (!remove(id)) return S_FALSE;
    return OnPropertyChanged(id, entry->definition.classification, nullptr);
}

HRESULT CDSPropertyContainer::GetKeys(const GUID& id, DSKey* keys, ULONG capacity, ULONG* count) {
    if (!count || (!keys && capacity > 0)) return E_POINTER;
    *count = 0;
    if (!FindProperty(id)) return E_INVALIDARG;
    const DSAnimation* animation = FindAnimation(id);
    if (!animation) return S_OK;
    *count = static_cast<ULONG>(animation->keys().size());
    std::copy_n(animation->keys().begin(), std::min(capacity, *count), keys);
    return S_OK;
}

HRESULT CDSPropertyContainer::prepare(const DSPropertyState& state, NewStates& result) {
    const CDSPropertiesMapEntry* entry = FindProperty(state.id);
    if (!entry || !entry->definition.accepts(state.plain)) return E_INVALIDARG;
    const auto isSame = [&](const PlainValue& other) { return other.entry == entry; };
    if (std::ranges::any_of(result.values, isSame)) return E_INVALIDARG;
    result.values.push_back({entry, state.plain});
    if (state.keyCount == 0) return S_OK;
    if (!entry->definition.animatable()) return E_INVALIDARG;
    if (!state.keys) return E_POINTER;
    auto animation = DSAnimation::fromKeys({state.keys, state.keys + state.keyCount});
    if (!animation) return E_INVALIDARG;
    result.animated.push_back({state.id, *std::move(animation)});
    return S_OK;
}

void CDSPropertyContainer::keepOtherAnimations(NewStates& result) const {
    for (const Animated& animated : animated_) {
        const auto isSame = [&](const PlainValue& changed) {
            return changed.entry->definition.id == animated.id;
        };
        if (std::ranges::none_of(result.values, isSame)) result.animated.push_back(animated);
    }
}

HRESULT CDSPropertyContainer::SetStates(const DSPropertyState* states, ULONG count) {
    if (count == 0) return S_OK;
    if (!states) return E_POINTER;
    NewStates next;
    const HRESULT status = ruvex::guarded([&] {
        for (ULONG i = 0; i < count; ++i) {
            if (const HRESULT prepared = prepare(states[i], next); FAILED(prepared)) {
                return prepared;
            }
        }
        keepOtherAnimations(next);
        return S_OK;
    });
    if (FAILED(status)) return status;
    for (const PlainValue& plain : next.values) WritePlainValue(*plain.entry, plain.value);
    animated_.swap(next.animated);
    const ULONG classification = next.values.front().entry->definition.classification;
    return OnPropertyChanged(GUID_AllProperties, classification, nullptr);
}

void CDSPropertyContainer::store(const GUID& id, DSAnimation animation) {
    for (Animated& animated : animated_) {
        if (animated.id == id) {
            animated.animation = std::move(animation);
            return;
        }
    }
    animated_.push_back({id, std::move(animation)});
}

bool CDSPropertyContainer::remove(const GUID& id) {
    return std::erase_if(animated_, [&](const Animated& a) { return a.id == id; }) > 0;
}
