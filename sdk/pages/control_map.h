// The control map of a page class: which control shows and edits which property.

#pragma once

#include <span>

#include "sdk/com/variant.h"

class CDSBasePropertyPage;

/// The control id of an entry without a control, whose bound variable is kept up to date all the
/// same.
inline constexpr UINT DSCONTROL_NONE = 0xFFFFFFFF;
/// No tool-tip.
inline constexpr UINT DSTOOLTIP_NONE = 0xFFFFFFFF;

/// Flags of an entry. Other bits are kept and have no meaning here.
inline constexpr UINT DSENTRY_ANIMATABLE = 1;
inline constexpr UINT DSENTRY_COMMAND = 2;

/// A page's function that is called after the user has changed a control.
using DSNotify = void (CDSBasePropertyPage::*)();
/// Gives the bound variable of an entry in a page: a double for VT_R8, a 32-bit signed integer for
/// VT_I4 and VT_BOOL.
using DSBoundVariable = void*(CDSBasePropertyPage& page);

/// One entry. A command entry (a button, a colour chip) has GUID_NoProperty, type 0 and no bound
/// variable.
struct CDSPPGControlMapEntry {
    GUID property;
    VARTYPE propertyType;
    DSBoundVariable* boundVariable;
    VARTYPE boundType;  ///< equal to `propertyType`
    UINT controlId;
    DSNotify notify;  ///< may be null
    UINT flags;
    UINT toolTip;  ///< a string of the module, or DSTOOLTIP_NONE
    UINT last = 0xFFFFFFFF;

    /// The entry that ends a map.
    static constexpr CDSPPGControlMapEntry terminator() {
        return {GUID{}, 0, nullptr, 0, DSCONTROL_NONE, nullptr, DSENTRY_COMMAND, DSTOOLTIP_NONE};
    }
    bool isTerminator() const {
        return property == GUID{} && propertyType == 0 && controlId == DSCONTROL_NONE;
    }
};

/// The map of a class. A static object; its entries exist as long as the class's module.
class DSSDK_API CDSPPGControlMap {
public:
    CDSPPGControlMap(const wchar_t* name, int version, const CDSPPGControlMap* base,
                     const CDSPPGControlMapEntry* entries)
        : name_(name), version_(version), base_(base), first_(entries) {}

    /// Finds the terminator. Each GetControlMap calls it before it returns its map; only the first
    /// call has an effect.
    static void Initialize(CDSPPGControlMap& map);

    const wchar_t* name() const { return name_; }
    int version() const { return version_; }
    const CDSPPGControlMap* base() const { return base_; }
    /// Without the terminator; empty before Initialize.
    std::span<const CDSPPGControlMapEntry> entries() const { return {first_, count_}; }
    /// The entry of a control in this map or its bases; null if there is none and for
    /// DSCONTROL_NONE.
    const CDSPPGControlMapEntry* find(UINT controlId) const;

private:
    const wchar_t* name_;
    int version_;
    const CDSPPGControlMap* base_;
    const CDSPPGControlMapEntry* first_;
    std::size_t count_ = 0;
};
