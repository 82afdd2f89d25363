// Base class of objects with properties, without animation.

#pragma once

#include <span>
#include <vector>

#include "sdk/com/com_object.h"
#include "sdk/com/com_ptr.h"
#include "sdk/properties/properties.h"

/// Implements properties that are declared in a static map, and notifies observers. The host must
/// serialise calls on one object, except AddRef and Release.
class DSSDK_API CDSBasePropertyContainer : public ComObject<IDSProperties> {
public:
    HRESULT GetPropertyCount(ULONG* count) override;
    HRESULT GetPropertyDef(ULONG index, const CDSParamDef** definition) override;
    HRESULT GetValue(const GUID& id, double seconds, VARIANT* value) override;
    HRESULT SetValue(const GUID& id, double seconds, const VARIANT* value) override;
    HRESULT GetPlainValue(const GUID& id, VARIANT* value) override;
    HRESULT Advise(IDSPropertyObserver* observer, ULONG* cookie) override;
    HRESULT Unadvise(ULONG cookie) override;

    /// Called after every change of a value or of key frames; notifies the observers. A class that
    /// changes its members directly has to call it. `value` is the new value, or null if observers
    /// have to read it. E_INVALIDARG, without a notification, for a value of GUID_AllProperties.
    virtual HRESULT OnPropertyChanged(const GUID& id, ULONG classification, const DSVARIANT* value);

protected:
    CDSBasePropertyContainer() = default;
    /// The copy starts with one reference and no observers.
    CDSBasePropertyContainer(const CDSBasePropertyContainer&);
    CDSBasePropertyContainer& operator=(const CDSBasePropertyContainer&) = delete;
    ~CDSBasePropertyContainer() override;

    /// The class's property map. A class with properties overrides this and returns its static map,
    /// see `InitStaticPropertyMap`. Null: the class has no properties.
    virtual const CDSPropertiesMap* GetPropertyMap() { return nullptr; }

    /// For the override: builds the map in the first call; later calls return the same one.
    static const CDSPropertiesMap* InitStaticPropertyMap(
        DSStaticPropertiesMap& storage, std::span<const CDSPropertiesMapEntry> entries);

    /// The entry in the property map; null for an unknown identifier.
    const CDSPropertiesMapEntry* FindProperty(const GUID& id);

    void RemoveObservers() { observers_.clear(); }

    /// Reads and writes the member with the plain value of `entry`; notifies nobody. A value to be
    /// written has to be one that the definition accepts.
    VARIANT ReadPlainValue(const CDSPropertiesMapEntry& entry);
    void WritePlainValue(const CDSPropertiesMapEntry& entry, const VARIANT& value);

private:
    struct Observer {
        ULONG cookie;
        ComPtr<IDSPropertyObserver> target;
    };

    /// Sorted by cookie.
    std::vector<Observer> observers_;
    ULONG lastCookie_ = 0;
};
