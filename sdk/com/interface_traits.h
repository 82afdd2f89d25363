// Maps each interface type to its identifier.

#pragma once

#include <type_traits>

#include "sdk/com/com.h"

/// The identifier and base of interface type `Interface`. Each interface has a specialisation next
/// to its declaration:
///
///     template <>
///     struct DSInterfaceTraits<IDSImage> : DSInterface<IID_IDSImage> {};
///
/// The traits of a type without a specialisation do not compile.
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

/// Whether `id` is the identifier of `Interface` or of one of its base interfaces. IUnknown does
/// not count.
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
