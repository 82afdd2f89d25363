// Properties as the host sees them: values, keys and notifications by identifier.

#pragma once

#include "sdk/com/interface_traits.h"
#include "sdk/properties/animation.h"
#include "sdk/properties/property_def.h"

/// Stands where no property is meant.
inline constexpr GUID GUID_NoProperty = ruvex::guidFromText("96BBD590-4EBD-11D0-82B5-00A0243F1013");
/// A notification with this identifier concerns every property.
inline constexpr GUID GUID_AllProperties =
    ruvex::guidFromText("5B192010-2C0D-11D0-82AB-00A0243F1013");

/// Told after a property has changed, on the thread that changed it.
struct IDSPropertyObserver : IUnknown {
    virtual HRESULT PropertyChanged(const GUID& id, ULONG classification) = 0;

protected:
    ~IDSPropertyObserver() = default;
};

/// An unknown identifier, a value of another type than the property's, and a real that is not
/// finite give E_INVALIDARG and change nothing; a missing pointer gives E_POINTER. Keys and
/// observers may find no memory: E_OUTOFMEMORY, and nothing is changed.
struct IDSProperties : IUnknown {
    virtual HRESULT GetPropertyCount(ULONG* count) = 0;
    /// Definition `index`, in the order of declaration; it lives as long as the module is loaded.
    virtual HRESULT GetPropertyDef(ULONG index, const CDSParamDef** definition) = 0;

    /// The value at `seconds`: the animated one, else the plain one.
    virtual HRESULT GetValue(const GUID& id, double seconds, VARIANT* value) = 0;
    /// Stores the plain value of a property that is not animated; sets the key at `seconds` of one
    /// that is.
    virtual HRESULT SetValue(const GUID& id, double seconds, const VARIANT* value) = 0;

    /// Animates a real by the keys, in any order; of several at one time the last wins. What it was
    /// animated by before is forgotten; no keys end the animation. E_INVALIDARG for a property that
    /// cannot be animated.
    virtual HRESULT SetKeys(const GUID& id, const DSKey* keys, ULONG count) = 0;
    /// Ends an animation: the plain value holds again. S_FALSE when there was none.
    virtual HRESULT ClearKeys(const GUID& id) = 0;
    /// The sorted keys: writes at most `capacity` of them and gives their full number in `count`.
    /// `keys` may be null when `capacity` is 0.
    virtual HRESULT GetKeys(const GUID& id, DSKey* keys, ULONG capacity, ULONG* count) = 0;

    /// Observers are told in the order in which they came; the object holds a reference to each.
    virtual HRESULT Advise(IDSPropertyObserver* observer, ULONG* cookie) = 0;
    virtual HRESULT Unadvise(ULONG cookie) = 0;

protected:
    ~IDSProperties() = default;
};

inline constexpr GUID IID_IDSPropertyObserver =
    ruvex::guidFromText("3C0B7A51-6D2E-4F0B-9A77-52D1C4E08A13");
template <>
struct DSInterfaceTraits<IDSPropertyObserver> : DSInterface<IID_IDSPropertyObserver> {};
inline constexpr GUID IID_IDSProperties =
    ruvex::guidFromText("3C0B7A51-6D2E-4F0B-9A77-52D1C4E08A14");
template <>
struct DSInterfaceTraits<IDSProperties> : DSInterface<IID_IDSProperties> {};
