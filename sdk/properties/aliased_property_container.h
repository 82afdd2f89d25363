// Lets a property answer to further identifiers.

#pragma once

#include <utility>
#include <vector>

#include "sdk/properties/property_container.h"

/// An identifier that is an alias is replaced by the property's own before anything is looked up.
class DSSDK_API CDSAliasedPropertyContainer : public CDSPropertyContainer {
public:
    HRESULT GetValue(const GUID& id, double seconds, VARIANT* value) override;
    HRESULT SetValue(const GUID& id, double seconds, const VARIANT* value) override;
    HRESULT SetKeys(const GUID& id, const DSKey* keys, ULONG count) override;
    HRESULT ClearKeys(const GUID& id) override;
    HRESULT GetKeys(const GUID& id, DSKey* keys, ULONG capacity, ULONG* count) override;

    /// `alias` stands for `id` from now on, in this object and its copies.
    void AddPropertyAlias(const GUID& alias, const GUID& id);
    /// The property that an identifier means: itself, unless it is an alias.
    const GUID& ResolveAlias(const GUID& id) const;

protected:
    CDSAliasedPropertyContainer() = default;
    CDSAliasedPropertyContainer(const CDSAliasedPropertyContainer&) = default;
    ~CDSAliasedPropertyContainer() override = default;

private:
    std::vector<std::pair<GUID, GUID>> aliases_;
};
