// An object with plain properties.

#pragma once

#include <span>
#include <vector>

#include "sdk/com/com_object.h"
#include "sdk/com/com_ptr.h"
#include "sdk/properties/properties.h"

/// Holds the plain values behind the static map, and the observers. The host serialises calls on
/// one object, except for AddRef and Release.
class DSSDK_API CDSBasePropertyContainer : public ComObject<IDSProperties> {
public:
    HRESULT GetPropertyCount(ULONG* count) override;
    HRESULT GetPropertyDef(ULONG index, const CDSParamDef** definition) override;
    HRESULT GetValue(const GUID& id, double seconds, VARIANT* value) override;
    HRESULT SetValue(const GUID& id, double seconds, const VARIANT* value) override;
    HRESULT Advise(IDSPropertyObserver* observer, ULONG* cookie) override;
    HRESULT Unadvise(ULONG cookie) override;

    /// Called after every change of a value or of keys; tells the observers that there are now. An
    /// object calls it itself when it has changed its members.
    virtual HRESULT OnPropertyChanged(const GUID& id, ULONG classification);

protected:
    CDSBasePropertyContainer() = default;
    /// The copy starts with one reference and no observers.
    CDSBasePropertyContainer(const CDSBasePropertyContainer&);
    CDSBasePropertyContainer& operator=(const CDSBasePropertyContainer&) = delete;
    ~CDSBasePropertyContainer() override;

    /// The property-map query: a class with properties overrides it and returns its static map, see
    /// `InitStaticPropertyMap`. Null, the base's answer, is a class without properties.
    virtual const CDSPropertiesMap* GetPropertyMap() { return nullptr; }

    /// For that override: builds the map at the first query and gives the same one ever after.
    static const CDSPropertiesMap* InitStaticPropertyMap(
        DSStaticPropertiesMap& storage, std::span<const CDSPropertiesMapEntry> entries);

    /// The map's entry; null for an unknown identifier.
    const CDSPropertiesMapEntry* FindProperty(const GUID& id);

    void RemoveObservers() { observers_.clear(); }

private:
    struct Observer {
        ULONG cookie;
        ComPtr<IDSPropertyObserver> target;
    };

    /// In the order of their cookies.
    std::vector<Observer> observers_;
    ULONG lastCookie_ = 0;
};
