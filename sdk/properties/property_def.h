// The static property map of a class: definitions, each with the member that holds its value.

#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <optional>
#include <span>

#include "sdk/com/module_instance.h"
#include "sdk/com/variant.h"

class CDSBasePropertyContainer;

/// The classification of an effect's parameters.
inline constexpr ULONG DSCLASS_EFFECT_PARAMETER = 32768;

/// Capabilities of a property: a plain value; a value that can be animated; a value that only the
/// user interface reads.
inline constexpr ULONG DSCAPS_PLAIN = 4;
inline constexpr ULONG DSCAPS_ANIMATABLE = 5;
inline constexpr ULONG DSCAPS_USER_INTERFACE = 532;

/// The definition of a property. The string numbers refer to the string table of `module`; id and
/// short id may be the same.
struct CDSParamDef {
    GUID id;
    HINSTANCE module;
    ULONG classification;
    ULONG capabilities;
    /// VT_I4, VT_R8 or VT_BOOL.
    VARTYPE type;
    UINT nameId;
    UINT shortNameId;
    UINT descriptionId;

    /// Only reals can be animated.
    bool animatable() const { return capabilities == DSCAPS_ANIMATABLE && type == VT_R8; }

    /// Whether the property can have this value: it has the same type, and a real is finite.
    bool accepts(const VARIANT& value) const {
        return value.vt == type && (type != VT_R8 || std::isfinite(value.dblVal));
    }
};

/// A definition, and the member that holds the plain value: a double for VT_R8, a 32-bit signed
/// integer for VT_I4 and VT_BOOL. The function returns the member's address in an object of the
/// class; it receives `index`, so that one function can serve all entries.
struct CDSPropertiesMapEntry {
    using MemberAddress = void*(CDSBasePropertyContainer& container, std::uint32_t index);

    CDSParamDef definition;
    MemberAddress* member;
    std::uint32_t index = 0;
};

/// A MemberAddress for one named member: DSMemberOf<Fade, &Fade::amount>.
template <class Class, auto Member>
void* DSMemberOf(CDSBasePropertyContainer& container, std::uint32_t) {
    return &(static_cast<Class&>(container).*Member);
}

/// The property map of a class, shared by all its objects and threads. It is a view of entries that
/// exist as long as the class's module, and allocates nothing, so that looking up a property can't
/// fail for lack of memory.
class DSSDK_API CDSPropertiesMap {
public:
    explicit CDSPropertiesMap(std::span<const CDSPropertiesMapEntry> entries) noexcept
        : entries_(entries) {}

    /// In the order of declaration.
    std::span<const CDSPropertiesMapEntry> entries() const { return entries_; }

    /// The entry of a property, by linear search; null if the class has no such property.
    const CDSPropertiesMapEntry* find(const GUID& id) const;

private:
    std::span<const CDSPropertiesMapEntry> entries_;
};

/// Storage for the map of a class: a static object, filled by the first InitStaticPropertyMap.
struct DSStaticPropertiesMap {
    std::once_flag once;
    std::optional<CDSPropertiesMap> map;
};
