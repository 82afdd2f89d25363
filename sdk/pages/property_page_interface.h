// The interfaces of a property page. On Windows, IPropertyPage is the system's own.

#pragma once

#include "sdk/com/interface_traits.h"
#include "sdk/properties/properties.h"
#include "sdk/window/window.h"

#ifdef _WIN32

#include <ocidl.h>

#else

using LPOLESTR = wchar_t*;
using LPCOLESTR = const wchar_t*;
struct MSG;
/// The object that a host passes to SetPageSite. The pages of this host ask it for IDSPageSite.
using IPropertyPageSite = IUnknown;

/// The description of a page. The texts are allocated with CoTaskMemAlloc and belong to the caller.
struct PROPPAGEINFO {
    ULONG cb;  ///< size of the record in bytes
    LPOLESTR pszTitle;
    SIZE size;  ///< in dialog units; on Windows in pixels
    LPOLESTR pszDocString;
    LPOLESTR pszHelpFile;
    DWORD dwHelpContext;
};

DSSDK_API void* CoTaskMemAlloc(std::size_t bytes);
DSSDK_API void CoTaskMemFree(void* memory);

struct IPropertyPage : IUnknown {
    virtual HRESULT SetPageSite(IPropertyPageSite* site) = 0;
    /// Creates the page's dialog as a child of `parent`, hidden.
    virtual HRESULT Activate(HWND parent, const RECT* place, BOOL modal) = 0;
    /// Destroys the dialog.
    virtual HRESULT Deactivate() = 0;
    virtual HRESULT GetPageInfo(PROPPAGEINFO* info) = 0;
    /// The objects whose properties the page shows; 0 releases them.
    virtual HRESULT SetObjects(ULONG count, IUnknown** objects) = 0;
    virtual HRESULT Show(UINT command) = 0;
    /// E_INVALIDARG for a rectangle whose sides are negative or longer than a window can be.
    virtual HRESULT Move(const RECT* place) = 0;
    virtual HRESULT IsPageDirty() = 0;
    virtual HRESULT Apply() = 0;
    virtual HRESULT Help(LPCOLESTR helpFolder) = 0;
    virtual HRESULT TranslateAccelerator(MSG* message) = 0;

protected:
    ~IPropertyPage() = default;
};

inline constexpr GUID IID_IPropertyPage =
    ruvex::guidFromText("B196B28D-BAB4-101A-B69C-00AA00341D07");

#endif

template <>
struct DSInterfaceTraits<IPropertyPage> : DSInterface<IID_IPropertyPage> {};

/// What the host tells its pages beyond IPropertyPage. Also their notification interface.
struct IDsPropertyPage : IDSPropertyObserver {
    /// The current time has changed: refreshes the controls of animated properties.
    virtual HRESULT OnTimeChange(double seconds) = 0;
    /// The dialog of the page; null while it is not activated.
    virtual HRESULT GetPageWindow(HWND* window) = 0;

protected:
    ~IDsPropertyPage() = default;
};

inline constexpr GUID IID_IDsPropertyPage =
    ruvex::guidFromText("3C0B7A51-6D2E-4F0B-9A77-52D1C4E08A1D");
template <>
struct DSInterfaceTraits<IDsPropertyPage> : DSInterface<IID_IDsPropertyPage, IDSPropertyObserver> {
};
