// The identifier that belongs to each interface type.

#pragma once

#include <type_traits>

#include "sdk/com/com.h"

/// Describes interface type `Interface`. Each interface has a specialisation beside its
/// declaration:
///
///     template <>
///     struct DSInterfaceTraits<IDSImage> : DSInterface<IID_IDSImage> {};
///
/// A type without one is not an interface, and using its traits does not compile.
template <class Interface>
struct DSInterfaceTraits;

/// The traits of an interface with identifier `kId` that derives from interface `BaseInterface`.
template <const GUID& kId, class BaseInterface = IUnknown>
struct DSInterface {
    static constexpr const GUID& id = kId;
    using Base = BaseInterface;
};

template <>
struct DSInterfaceTraits<IUnknown> : DSInterface<IID_IUnknown, void> {};
template <>
struct DSInterfaceTraits<IClassFactory> : DSInterface<IID_IClassFactory> {};
template <>
struct DSInterfaceTraits<IMarshal> : DSInterface<IID_IMarshal> {};

/// Whether a pointer to `Interface` may be given to a caller that asks for `id`: it is the
/// identifier of `Interface` or of an interface that it derives from, IUnknown left aside.
template <class Interface>
bool DSIsInterfaceOf(const GUID& id) {
    using Traits = DSInterfaceTraits<Interface>;
    if (id == Traits::id) return true;
    if constexpr (std::is_void_v<typename Traits::Base> ||
                  std::is_same_v<typename Traits::Base, IUnknown>) {
        return false;
    } else {
        return DSIsInterfaceOf<typename Traits::Base>(id);
    }
}
