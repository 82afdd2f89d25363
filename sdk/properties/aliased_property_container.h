// A property container whose properties can have further identifiers (aliases).

#pragma once

#include <utility>
#include <vector>

#include "sdk/properties/property_container.h"

/// In every look-up of a property, an alias is first replaced by the property's own identifier.
class DSSDK_API CDSAliasedPropertyContainer : public CDSPropertyContainer {
public:
    HRESULT GetValue(const GUID& id, double seconds, VARIANT* value) override;
    HRESULT SetValue(const GUID& id, double seconds, const VARIANT* value) override;
    HRESULT SetKeys(const GUID& id, const DSKey* keys, ULONG count) override;
    HRESULT ClearKeys(const GUID& id) override;
    HRESULT GetKeys(const GUID& id, DSKey* keys, ULONG capacity, ULONG* count) override;
    HRESULT GetPlainValue(const GUID& id, VARIANT* value) override;
    HRESULT SetStates(const DSPropertyState* states, ULONG count) override;

    /// Makes `alias` another identifier of property `id`, in this object and its later copies.
    void AddPropertyAlias(const GUID& alias, const GUID& id);
    /// The property of an alias. An identifier that is no alias is returned unchanged.
    const GUID& ResolveAlias(const GUID& id) const;

protected:
    CDSAliasedPropertyContainer() = default;
    CDSAliasedPropertyContainer(const CDSAliasedPropertyContainer&) = default;
    ~CDSAliasedPropertyContainer() override = default;

private:
    std::vector<std::pair<GUID, GUID>> aliases_;
};
