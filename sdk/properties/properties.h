// The host's interfaces to properties: values, key frames and notifications, by identifier.

#pragma once

#include "sdk/com/interface_traits.h"
#include "sdk/properties/animation.h"
#include "sdk/properties/property_def.h"

/// The identifier for "no property".
inline constexpr GUID GUID_NoProperty = ruvex::guidFromText("96BBD590-4EBD-11D0-82B5-00A0243F1013");
/// A notification with this identifier is about all properties.
inline constexpr GUID GUID_AllProperties =
    ruvex::guidFromText("5B192010-2C0D-11D0-82AB-00A0243F1013");

/// Is notified after a property has changed, on the thread that changed it.
struct IDSPropertyObserver : IUnknown {
    /// `value` is the new value, or null if it is to be read from `object`: always for
    /// GUID_AllProperties, and after a change of key frames. `object` is the one that has changed.
    /// `params` is always null.
    virtual HRESULT PropertyChanged(const GUID& id, const DSVARIANT* value, IUnknown* object,
                                    const DSPARAMS* params, unsigned short classification) = 0;

protected:
    ~IDSPropertyObserver() = default;
};

/// The whole state of a property: its plain value, and the key frames of its animation.
struct DSPropertyState {
    GUID id;
    VARIANT plain;
    const DSKey* keys;  ///< `keyCount` of them, in any order; may be null if there are none
    ULONG keyCount;
};

/// Errors of all functions, which then change nothing: E_INVALIDARG for an unknown identifier, a
/// value of another type than the property's, or a real that is not finite; E_POINTER for a null
/// pointer; E_OUTOFMEMORY if there is no memory for key frames or observers.
struct IDSProperties : IUnknown {
    virtual HRESULT GetPropertyCount(ULONG* count) = 0;
    /// Gives definition `index`, in the order of declaration. Valid while the module is loaded.
    virtual HRESULT GetPropertyDef(ULONG index, const CDSParamDef** definition) = 0;

    /// Gives the value at `seconds`: from the animation if there is one, else the plain value.
    virtual HRESULT GetValue(const GUID& id, double seconds, VARIANT* value) = 0;
    /// Sets the plain value of a property that is not animated. Of an animated one, sets the key
    /// frame at `seconds`, which keeps its mode; a new one gets the mode of the segment that it
    /// divides.
    virtual HRESULT SetValue(const GUID& id, double seconds, const VARIANT* value) = 0;

    /// Replaces the animation of a real by these key frames, in any order; of several at the same
    /// time the last counts. A `count` of 0 removes the animation. E_INVALIDARG for a property that
    /// can't be animated, and for an unknown mode.
    virtual HRESULT SetKeys(const GUID& id, const DSKey* keys, ULONG count) = 0;
    /// Removes an animation; the property has its plain value again. S_FALSE if there was none.
    virtual HRESULT ClearKeys(const GUID& id) = 0;
    /// Gives the key frames, sorted by time: writes at most `capacity` of them, and the number of
    /// all to `count`. `keys` may be null if `capacity` is 0.
    virtual HRESULT GetKeys(const GUID& id, DSKey* keys, ULONG capacity, ULONG* count) = 0;

    /// Gives the plain value, also of a property that is animated.
    virtual HRESULT GetPlainValue(const GUID& id, VARIANT* value) = 0;
    /// Replaces the plain values and the animations of several properties, all or none of them, and
    /// notifies the observers once, with GUID_AllProperties (not at all if `count` is 0).
    virtual HRESULT SetStates(const DSPropertyState* states, ULONG count) = 0;

    /// Adds an observer, keeps a reference to it and gives a cookie for Unadvise. Observers are
    /// notified in the order in which they were added.
    virtual HRESULT Advise(IDSPropertyObserver* observer, ULONG* cookie) = 0;
    virtual HRESULT Unadvise(ULONG cookie) = 0;

protected:
    ~IDSProperties() = default;
};

inline constexpr GUID IID_IDSPropertyObserver =
    ruvex::guidFromText("3C0B7A51-6D2E-4F0B-9A77-52D1C4E08A1B");
template <>
struct DSInterfaceTraits<IDSPropertyObserver> : DSInterface<IID_IDSPropertyObserver> {};
inline constexpr GUID IID_IDSProperties =
    ruvex::guidFromText("3C0B7A51-6D2E-4F0B-9A77-52D1C4E08A1E");
template <>
struct DSInterfaceTraits<IDSProperties> : DSInterface<IID_IDSProperties> {};
