// What the host offers to a property page: the current time, and writes that can be undone.

#pragma once

#include "sdk/com/interface_traits.h"
#include "sdk/com/variant.h"
#include "sdk/pages/undo_style.h"

/// The time argument that means the current time.
inline constexpr double DSTIME_CURRENT = -1.0;

/// Describes an undo step to the host.
struct DSUNDOINFO {
    /// The name for the user, in the module's language.
    const wchar_t* name;
    /// Steps in succession with the same number (not 0) and the same properties become one if they
    /// are less than 0.7 s apart. For arrow keys and wheels.
    std::uint64_t mergeKey;
};

/// Passed to IPropertyPage::SetPageSite. All calls are made on the user-interface thread.
struct IDSPageSite : IUnknown {
    /// The current time in seconds.
    virtual HRESULT GetTime(double* seconds) = 0;
    /// Writes a property of `object` (its IDSProperties) at `seconds` (or DSTIME_CURRENT), as part
    /// of the undo step that `style` says. Gives the status of IDSProperties::SetValue.
    virtual HRESULT WriteProperty(IUnknown* object, const GUID& id, double seconds,
                                  const VARIANT* value, UNDO_STYLE style) = 0;
    /// Begins a bracket and gives its style, above 1. Brackets nest: the inner one's writes belong
    /// to the outermost one.
    virtual HRESULT BeginUndo(const DSUNDOINFO* info, UNDO_STYLE* style) = 0;
    /// Ends a bracket, at once or as soon as the brackets inside it have ended. E_INVALIDARG if it
    /// is not open.
    virtual HRESULT EndUndo(UNDO_STYLE style) = 0;
    /// Undoes the writes of the innermost bracket and ends it: the user has cancelled a drag.
    /// E_INVALIDARG for another bracket, which stays open.
    virtual HRESULT CancelUndo(UNDO_STYLE style) = 0;

protected:
    ~IDSPageSite() = default;
};

inline constexpr GUID IID_IDSPageSite = ruvex::guidFromText("3C0B7A51-6D2E-4F0B-9A77-52D1C4E08A1C");
template <>
struct DSInterfaceTraits<IDSPageSite> : DSInterface<IID_IDSPageSite> {};
