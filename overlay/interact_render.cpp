// The picture of the on-screen controls.

#include "overlay/vx_t_interact.h"
#include "sdk/com/guarded.h"
#include "sdk/open_gl/open_gl.h"

namespace ruvex {
namespace {

/// All groups of attributes.
constexpr GLbitfield kAttributes = 0xFFFFF;
/// Half the depth of what is drawn; everything has the depth 0.
constexpr double kDepth = 100.0;
/// The tolerance of the pen, in pixels of the surface.
constexpr double kPickPixels = 4.0;

void prepareState() {
    const OpenGl& api = gl();
    api.glPushAttrib(kAttributes);
    api.glShadeModel(GL_SMOOTH);
    api.glClearColor(paletteGrey.r, paletteGrey.g, paletteGrey.b, 0.0f);
    api.glEnable(GL_LINE_STIPPLE);
}

/// The world's borders are mapped with the precision of a float.
double rounded(double value) {
    return static_cast<double>(static_cast<float>(value));
}

void mapWorld(const tagVWOPENGLSURFACE& surface) {
    const OpenGl& api = gl();
    api.glViewport(0, 0, surface.width - 1, surface.height - 1);
    api.glLoadIdentity();
    api.glOrtho(-0.5, surface.width - 0.5, -0.5, surface.height - 0.5, -kDepth, kDepth);
    // The mapping of pixels is replaced by that of the world.
    api.glLoadIdentity();
    api.glOrtho(rounded(surface.worldX), rounded(surface.worldX + surface.worldWidth),
                rounded(surface.worldY), rounded(surface.worldY + surface.worldHeight), -kDepth,
                kDepth);
}

float toleranceFor(double worldLength, LONG pixels) {
    return static_cast<float>(worldLength * kPickPixels / pixels);
}

}  // namespace

void VxTInteract::renderControls(const tagVWOPENGLSURFACE& surface) {
    if (fontLists == 0) fontLists = VxTDraw::createFont(wglGetCurrentDC());
    VxTDraw::currentFont = fontLists;
    prepareState();
    mapWorld(surface);
    gl().glScalef(userScale, userScale, 1.0f);
    pickRadius = {toleranceFor(surface.worldWidth, surface.width),
                  toleranceFor(surface.worldHeight, surface.height)};
    render();
    gl().glPopAttrib();
}

HRESULT VxTInteract::OnRender(IViewerSurface* surface) {
    if (!surface) return E_POINTER;
    const Kept kept(*this);
    HRESULT drawn = S_OK;
    tagVWOPENGLSURFACE info{};
    if (isEnabled() && openGl() && SUCCEEDED(vwSurfaceBeginRenderOpenGL(surface, &info))) {
        // The render is ended also if drawing runs out of memory.
        drawn = guarded([&] {
            if (canPushAttributes()) renderControls(info);
            return S_OK;
        });
        vwSurfaceEndRenderOpenGL(surface);
    }
    const HRESULT status = CDSInteractiveTool::OnRender(surface);
    return FAILED(drawn) ? drawn : status;
}

}  // namespace ruvex
