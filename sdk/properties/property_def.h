// How a class declares its properties: a static list of definitions, each tied to a member.

#pragma once

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

/// What the host may do with a property: keep a plain value; keep a value and animate it; keep a
/// value that only the user interface reads.
inline constexpr ULONG DSCAPS_PLAIN = 4;
inline constexpr ULONG DSCAPS_ANIMATABLE = 5;
inline constexpr ULONG DSCAPS_USER_INTERFACE = 532;

/// A property by itself. The strings are found in `module`; id and short id may be the same.
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
};

/// Ties a definition to the member that holds its plain value: a double for VT_R8, a 32-bit signed
/// integer for VT_I4 and VT_BOOL. The function gives the member's address in an object of the class
/// that declares the map; `index` is handed to it, so that one function can serve a whole table.
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

/// The static map of one class, read by all its objects on any thread. A view: the entries live as
/// long as the class's module. It needs no memory, so that no query of a property can run out of
/// it.
class DSSDK_API CDSPropertiesMap {
public:
    explicit CDSPropertiesMap(std::span<const CDSPropertiesMapEntry> entries) noexcept
        : entries_(entries) {}

    /// In the order of declaration.
    std::span<const CDSPropertiesMapEntry> entries() const { return entries_; }

    /// Null when the class has no such property. A walk over the entries.
    const CDSPropertiesMapEntry* find(const GUID& id) const;

private:
    std::span<const CDSPropertiesMapEntry> entries_;
};

/// Where a class keeps its map: a static object of the class, filled at the first query.
struct DSStaticPropertiesMap {
    std::once_flag once;
    std::optional<CDSPropertiesMap> map;
};
