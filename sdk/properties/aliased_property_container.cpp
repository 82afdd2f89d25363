#include "sdk/properties/aliased_property_container.h"

#include "sdk/com/guarded.h"

HRESULT CDSAliasedPropertyContainer::GetValue(const GUID& id, double seconds, VARIANT* value) {
    return CDSPropertyContainer::GetValue(ResolveAlias(id), seconds, value);
}

HRESULT CDSAliasedPropertyContainer::SetValue(const GUID& id, double seconds,
                                              const VARIANT* value) {
    return CDSPropertyContainer::SetValue(ResolveAlias(id), seconds, value);
}

HRESULT CDSAliasedPropertyContainer::SetKeys(const GUID& id, const DSKey* keys, ULONG count) {
    return CDSPropertyContainer::SetKeys(ResolveAlias(id), keys, count);
}

HRESULT CDSAliasedPropertyContainer::ClearKeys(const GUID& id) {
    return CDSPropertyContainer::ClearKeys(ResolveAlias(id));
}

HRESULT CDSAliasedPropertyContainer::GetKeys(const GUID& id, DSKey* keys, ULONG capacity,
                                             ULONG* count) {
    return CDSPropertyContainer::GetKeys(ResolveAlias(id), keys, capacity, count);
}

HRESULT CDSAliasedPropertyContainer::GetPlainValue(const GUID& id, VARIANT* value) {
    return CDSPropertyContainer::GetPlainValue(ResolveAlias(id), value);
}

HRESULT CDSAliasedPropertyContainer::SetStates(const DSPropertyState* states, ULONG count) {
    if (!states || count == 0) return CDSPropertyContainer::SetStates(states, count);
    return ruvex::guarded([&] {
        std::vector<DSPropertyState> resolved(states, states + count);
        for (DSPropertyState& state : resolved) state.id = ResolveAlias(state.id);
        return CDSPropertyContainer::SetStates(resolved.data(), count);
    });
}

void CDSAliasedPropertyContainer::AddPropertyAlias(const GUID& alias, const GUID& id) {
    aliases_.emplace_back(alias, id);
}

const GUID& CDSAliasedPropertyContainer::ResolveAlias(const GUID& id) const {
    for (const auto& [alias, property] : aliases_) {
        if (alias == id) return property;
    }
    return id;
}
