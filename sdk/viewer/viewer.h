// The host's viewer, as its tools see it.

#pragma once

#include "sdk/pages/page_site.h"
#include "sdk/window/window.h"

/// What OnLinkToViewer of a tool gets. All calls are made on the user-interface thread.
struct IDSViewer : IUnknown {
    /// Schedules a redraw of a layer, or of a part of it if `area` (in pixels) is not null.
    virtual HRESULT InvalidateLayer(ULONG layer, const RECT* area) = 0;
    /// The viewer's window; null if it has none.
    virtual HRESULT GetViewerWindow(HWND* window) = 0;
    /// What the host offers for editing: the current time, and writes that can be undone. The
    /// caller releases it.
    virtual HRESULT GetSite(IDSPageSite** site) = 0;
    /// Called before `tool` is taken away. If the pen is down in it, the viewer sends it OnPenUp at
    /// the last position.
    virtual HRESULT ReleasePen(IUnknown* tool) = 0;

protected:
    ~IDSViewer() = default;
};

inline constexpr GUID IID_IDSViewer = ruvex::guidFromText("3C0B7A51-6D2E-4F0B-9A77-52D1C4E08A21");
template <>
struct DSInterfaceTraits<IDSViewer> : DSInterface<IID_IDSViewer> {};
