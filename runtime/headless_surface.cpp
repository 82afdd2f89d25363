#include "runtime/headless_surface.h"

#include <EGL/egl.h>
#include <EGL/eglext.h>
#include <string>

#include "runtime/error.h"
#include "sdk/open_gl/open_gl.h"

namespace ruvex::runtime {
namespace {

constexpr EGLint kConfigAttributes[] = {
    EGL_SURFACE_TYPE,
    EGL_PBUFFER_BIT,
    EGL_RENDERABLE_TYPE,
    EGL_OPENGL_BIT,
    EGL_RED_SIZE,
    8,
    EGL_GREEN_SIZE,
    8,
    EGL_BLUE_SIZE,
    8,
    EGL_ALPHA_SIZE,
    8,
    EGL_NONE,
};
constexpr EGLint kContextAttributes[] = {
    EGL_CONTEXT_OPENGL_PROFILE_MASK,
    EGL_CONTEXT_OPENGL_COMPATIBILITY_PROFILE_BIT,
    EGL_NONE,
};

[[noreturn]] void fail(const std::string& what) {
    throw Error("cannot draw with OpenGL off screen: " + what);
}

EGLDisplay openDisplay() {
    const auto getDisplay = reinterpret_cast<PFNEGLGETPLATFORMDISPLAYEXTPROC>(
        eglGetProcAddress("eglGetPlatformDisplayEXT"));
    if (!getDisplay) fail("EGL has no displays without a window system");
    const EGLDisplay opened =
        getDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
    if (opened == EGL_NO_DISPLAY || !eglInitialize(opened, nullptr, nullptr)) {
        fail("EGL cannot open its display without a window system");
    }
    return opened;
}

/// The process's display. It stays open: another user in the process may share it.
EGLDisplay sharedDisplay() {
    static const EGLDisplay display = openDisplay();
    return display;
}

EGLConfig chooseConfig(EGLDisplay display) {
    EGLConfig config = nullptr;
    EGLint found = 0;
    if (!eglChooseConfig(display, kConfigAttributes, &config, 1, &found) || found < 1) {
        fail("EGL has no pixel format for OpenGL with 8 bits a channel");
    }
    return config;
}

}  // namespace

class HeadlessSurface::Context {
public:
    Context(LONG width, LONG height) : display(sharedDisplay()) {
        if (!eglBindAPI(EGL_OPENGL_API)) fail("EGL has no OpenGL");
        const EGLConfig config = chooseConfig(display);
        const EGLint size[] = {EGL_WIDTH, width, EGL_HEIGHT, height, EGL_NONE};
        surface = eglCreatePbufferSurface(display, config, size);
        if (surface == EGL_NO_SURFACE) fail("EGL cannot make a surface of this size");
        context = eglCreateContext(display, config, EGL_NO_CONTEXT, kContextAttributes);
        if (context == EGL_NO_CONTEXT) {
            eglDestroySurface(display, surface);
            fail("EGL has no compatibility profile of OpenGL");
        }
    }
    Context(const Context&) = delete;
    Context& operator=(const Context&) = delete;
    ~Context() {
        eglDestroyContext(display, context);
        eglDestroySurface(display, surface);
    }

    EGLDisplay display;
    EGLSurface surface = EGL_NO_SURFACE;
    EGLContext context = EGL_NO_CONTEXT;
};

/// Makes a context current as long as it lives, then the one that was current before.
class HeadlessSurface::Current {
public:
    explicit Current(const Context& own) : own_(own) {
        eglBindAPI(EGL_OPENGL_API);
        display_ = eglGetCurrentDisplay();
        draw_ = eglGetCurrentSurface(EGL_DRAW);
        read_ = eglGetCurrentSurface(EGL_READ);
        context_ = eglGetCurrentContext();
        if (!eglMakeCurrent(own.display, own.surface, own.surface, own.context)) {
            fail("EGL cannot make the context current");
        }
    }
    Current(const Current&) = delete;
    Current& operator=(const Current&) = delete;
    ~Current() {
        // Without a context before there is no display either.
        eglMakeCurrent(context_ ? display_ : own_.display, draw_, read_, context_);
    }

private:
    const Context& own_;
    EGLDisplay display_;
    EGLSurface draw_, read_;
    EGLContext context_;
};

HeadlessSurface::HeadlessSurface(LONG width, LONG height)
    : info_{width, height, 0.0, 0.0, static_cast<double>(width), static_cast<double>(height)},
      context_(std::make_unique<Context>(width, height)) {}

HeadlessSurface::~HeadlessSurface() = default;

ComPtr<HeadlessSurface> HeadlessSurface::create(LONG width, LONG height) {
    if (width <= 0 || height <= 0) fail("the size has to be positive");
    if (!openGl()) fail("the libraries libOpenGL and libGLU are missing");
    auto surface = ComPtr<HeadlessSurface>::attach(new HeadlessSurface(width, height));
    surface->clear(0.0f, 0.0f, 0.0f, 0.0f);
    return surface;
}

HRESULT HeadlessSurface::Begin(tagVWOPENGLSURFACE* surface) {
    if (!surface) return E_POINTER;
    if (render_) return E_UNEXPECTED;
    return guarded([&] {
        render_ = std::make_unique<Current>(*context_);
        *surface = info_;
        return S_OK;
    });
}

HRESULT HeadlessSurface::End() {
    if (!render_) return E_UNEXPECTED;
    render_.reset();
    return S_OK;
}

void HeadlessSurface::setWorld(double x, double y, double width, double height) {
    info_.worldX = x;
    info_.worldY = y;
    info_.worldWidth = width;
    info_.worldHeight = height;
}

void HeadlessSurface::clear(float red, float green, float blue, float alpha) {
    const Current current(*context_);
    gl().glPushAttrib(GL_COLOR_BUFFER_BIT);
    gl().glClearColor(red, green, blue, alpha);
    gl().glClear(GL_COLOR_BUFFER_BIT);
    gl().glPopAttrib();
}

void HeadlessSurface::setPixels(const std::vector<std::uint8_t>& rgba) {
    if (rgba.size() != pixels().size()) fail("the picture has not the surface's size");
    tagVWOPENGLSURFACE info;
    // The identity puts the raster position (-1, -1) into the low left corner.
    require(vwSurfaceBeginRenderOpenGL(this, &info), "cannot draw a picture");
    gl().glRasterPos2f(-1.0f, -1.0f);
    gl().glDrawPixels(info.width, info.height, GL_RGBA, GL_UNSIGNED_BYTE, rgba.data());
    require(vwSurfaceEndRenderOpenGL(this), "cannot draw a picture");
}

std::vector<std::uint8_t> HeadlessSurface::pixels() const {
    const Current current(*context_);
    std::vector<std::uint8_t> rgba(4 * static_cast<std::size_t>(info_.width) *
                                   static_cast<std::size_t>(info_.height));
    gl().glReadPixels(0, 0, info_.width, info_.height, GL_RGBA, GL_UNSIGNED_BYTE, rgba.data());
    return rgba;
}

}  // namespace ruvex::runtime
