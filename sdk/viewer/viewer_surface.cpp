#include "sdk/viewer/viewer_surface.h"

#include <memory>
#include <new>

#include "sdk/open_gl/open_gl.h"
#include "sdk/viewer/viewer_font.h"

namespace {

using ruvex::gl;

/// A render that has begun, and the state of OpenGL from before it that the attribute stacks do not
/// save. The matrices are stored here since OpenGL's stack of projection matrices may be 2 deep.
struct SurfaceRender {
    IViewerSurface* surface;
    SurfaceRender* outer;
    double projection[16];
    double modelView[16];
};

/// The innermost render of this thread. A plain pointer: a thread-local object with a destructor
/// would keep the library loaded until the thread ends.
thread_local SurfaceRender* currentRender = nullptr;

bool canSaveState() {
    return ruvex::canPushAttributes() && ruvex::canPushClientAttributes();
}

void saveState(SurfaceRender& render) {
    gl().glPushAttrib(GL_ALL_ATTRIB_BITS);
    gl().glPushClientAttrib(GL_CLIENT_PIXEL_STORE_BIT);
    gl().glGetDoublev(GL_PROJECTION_MATRIX, render.projection);
    gl().glGetDoublev(GL_MODELVIEW_MATRIX, render.modelView);
}

void loadMatrix(GLenum mode, const double* matrix) {
    gl().glMatrixMode(mode);
    gl().glLoadMatrixd(matrix);
}

void restoreState(const SurfaceRender& render) {
    loadMatrix(GL_PROJECTION, render.projection);
    loadMatrix(GL_MODELVIEW, render.modelView);
    gl().glPopClientAttrib();
    // The matrix mode is among the attributes.
    gl().glPopAttrib();
}

void resetPixelUnpacking() {
    gl().glPixelStorei(GL_UNPACK_SWAP_BYTES, GL_FALSE);
    gl().glPixelStorei(GL_UNPACK_LSB_FIRST, GL_FALSE);
    gl().glPixelStorei(GL_UNPACK_ROW_LENGTH, 0);
    gl().glPixelStorei(GL_UNPACK_SKIP_ROWS, 0);
    gl().glPixelStorei(GL_UNPACK_SKIP_PIXELS, 0);
    gl().glPixelStorei(GL_UNPACK_ALIGNMENT, 4);
}

void makeDefinedState() {
    gl().glMatrixMode(GL_PROJECTION);
    gl().glLoadIdentity();
    gl().glMatrixMode(GL_MODELVIEW);
    gl().glLoadIdentity();
    gl().glLineStipple(1, 0xFFFF);
    gl().glLineWidth(1.0f);
    resetPixelUnpacking();
}

}  // namespace

HRESULT vwSurfaceBeginRenderOpenGL(IViewerSurface* surface, tagVWOPENGLSURFACE* info) {
    if (!surface || !info) return E_POINTER;
    if (!ruvex::openGl()) return E_FAIL;
    std::unique_ptr<SurfaceRender> render(new (std::nothrow) SurfaceRender{});
    if (!render) return E_OUTOFMEMORY;
    const HRESULT status = surface->Begin(info);
    if (FAILED(status)) return status;
    if (!canSaveState()) {
        surface->End();
        return E_FAIL;
    }
    render->surface = surface;
    render->outer = currentRender;
    saveState(*render);
    makeDefinedState();
    currentRender = render.release();
    return status;
}

HRESULT vwSurfaceEndRenderOpenGL(IViewerSurface* surface) {
    if (!surface) return E_POINTER;
    if (!currentRender || currentRender->surface != surface) return E_UNEXPECTED;
    const std::unique_ptr<SurfaceRender> render(currentRender);
    currentRender = render->outer;
    restoreState(*render);
    return surface->End();
}

#ifndef _WIN32

HDC wglGetCurrentDC() {
    return currentRender ? reinterpret_cast<HDC>(currentRender->surface) : nullptr;
}

#endif
