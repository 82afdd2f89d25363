#include <EGL/egl.h>
#include <EGL/eglext.h>

#include "runtime/headless_context.h"

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

EGLDisplay openDisplay() {
    const auto getDisplay = reinterpret_cast<PFNEGLGETPLATFORMDISPLAYEXTPROC>(
        eglGetProcAddress("eglGetPlatformDisplayEXT"));
    if (!getDisplay) failOffScreen("EGL has no displays without a window system");
    const EGLDisplay opened =
        getDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
    if (opened == EGL_NO_DISPLAY || !eglInitialize(opened, nullptr, nullptr)) {
        failOffScreen("EGL cannot open its display without a window system");
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
        failOffScreen("EGL has no pixel format for OpenGL with 8 bits a channel");
    }
    return config;
}

}  // namespace

struct HeadlessContext::System {
    System(LONG width, LONG height) : display(sharedDisplay()) {
        if (!eglBindAPI(EGL_OPENGL_API)) failOffScreen("EGL has no OpenGL");
        const EGLConfig config = chooseConfig(display);
        const EGLint size[] = {EGL_WIDTH, width, EGL_HEIGHT, height, EGL_NONE};
        surface = eglCreatePbufferSurface(display, config, size);
        if (surface == EGL_NO_SURFACE) failOffScreen("EGL cannot make a surface of this size");
        context = eglCreateContext(display, config, EGL_NO_CONTEXT, kContextAttributes);
        if (context == EGL_NO_CONTEXT) {
            eglDestroySurface(display, surface);
            failOffScreen("EGL has no compatibility profile of OpenGL");
        }
    }
    System(const System&) = delete;
    System& operator=(const System&) = delete;
    ~System() {
        eglDestroyContext(display, context);
        eglDestroySurface(display, surface);
    }

    EGLDisplay display;
    EGLSurface surface = EGL_NO_SURFACE;
    EGLContext context = EGL_NO_CONTEXT;
};

HeadlessContext::HeadlessContext(LONG width, LONG height)
    : system_(std::make_unique<System>(width, height)) {}

HeadlessContext::~HeadlessContext() = default;

struct CurrentContext::Before {
    EGLDisplay display;
    EGLSurface draw, read;
    EGLContext context;
};

CurrentContext::CurrentContext(const HeadlessContext& own) {
    const HeadlessContext::System& system = *own.system_;
    eglBindAPI(EGL_OPENGL_API);
    before_ =
        std::make_unique<Before>(Before{eglGetCurrentDisplay(), eglGetCurrentSurface(EGL_DRAW),
                                        eglGetCurrentSurface(EGL_READ), eglGetCurrentContext()});
    // Without a context before there is no display either.
    if (!before_->context) before_->display = system.display;
    if (!eglMakeCurrent(system.display, system.surface, system.surface, system.context)) {
        failOffScreen("EGL cannot make the context current");
    }
}

CurrentContext::~CurrentContext() {
    eglMakeCurrent(before_->display, before_->draw, before_->read, before_->context);
}

}  // namespace ruvex::runtime
