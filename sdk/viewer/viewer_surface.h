// The surface on which a tool draws over the host's viewer.

#pragma once

#include "sdk/com/interface_traits.h"

/// What a surface says about one render.
struct tagVWOPENGLSURFACE {
    /// The size in pixels; on a screen with a scale, in unscaled (logical) pixels.
    LONG width, height;
    /// The part of the world that is visible: its low corner and its size, in world units.
    double worldX, worldY, worldWidth, worldHeight;
};

/// A surface with an OpenGL context of its own. For one thread.
struct IViewerSurface : IUnknown {
    /// Makes the OpenGL context current on the calling thread and fills `*surface`.
    virtual HRESULT Begin(tagVWOPENGLSURFACE* surface) = 0;
    /// Called once after each Begin that has succeeded.
    virtual HRESULT End() = 0;

protected:
    ~IViewerSurface() = default;
};

inline constexpr GUID IID_IViewerSurface =
    ruvex::guidFromText("3C0B7A51-6D2E-4F0B-9A77-52D1C4E08A20");
template <>
struct DSInterfaceTraits<IViewerSurface> : DSInterface<IID_IViewerSurface> {};

/// Begins a render: IViewerSurface::Begin, and then a defined state of OpenGL. The matrix mode is
/// MODELVIEW, the projection and model-view matrices are the identity, the line stipple pattern is
/// 0xFFFF with factor 1, the line width is 1, pixels are unpacked by OpenGL's defaults. The rest is
/// as the surface has it. Renders of several surfaces may be nested.
/// Returns the surface's status if it fails; E_POINTER for a null pointer, E_FAIL without OpenGL
/// and E_OUTOFMEMORY, and then the surface is not begun. Also E_FAIL if one of OpenGL's two stacks
/// of attributes is full; then the surface is ended again, and the state of OpenGL is as before.
DSVWR_API HRESULT vwSurfaceBeginRenderOpenGL(IViewerSurface* surface, tagVWOPENGLSURFACE* info);

/// Ends a render: restores the state of OpenGL from before vwSurfaceBeginRenderOpenGL (all
/// attributes, both matrices and how pixels are stored), then calls IViewerSurface::End and returns
/// its status. E_POINTER for null; E_UNEXPECTED if `surface` is not the one whose render this
/// thread has begun last.
DSVWR_API HRESULT vwSurfaceEndRenderOpenGL(IViewerSurface* surface);
