#include <windows.h>

#include "runtime/headless_context.h"
#include "sdk/open_gl/open_gl.h"

namespace ruvex::runtime {
namespace {

// Of framebuffer objects, which <GL/gl.h> does not have there.
constexpr GLenum kFramebuffer = 0x8D40;
constexpr GLenum kRenderbuffer = 0x8D41;
constexpr GLenum kFirstColours = 0x8CE0;
constexpr GLenum kComplete = 0x8CD5;
constexpr GLenum kRgba8 = 0x8058;

constexpr int kBitsPerChannel = 8;

/// A class of windows of this name's own, so that several surfaces need not share one.
class WindowClass {
public:
    WindowClass() {
        const std::wstring name =
            L"Surface off screen " + std::to_wstring(reinterpret_cast<std::uintptr_t>(this));
        WNDCLASSW description{};
        description.style = CS_OWNDC;
        description.lpfnWndProc = DefWindowProcW;
        description.hInstance = GetModuleHandleW(nullptr);
        description.lpszClassName = name.c_str();
        atom_ = RegisterClassW(&description);
        if (!atom_) failOffScreen("Windows cannot register a class of windows");
    }
    WindowClass(const WindowClass&) = delete;
    WindowClass& operator=(const WindowClass&) = delete;
    ~WindowClass() { UnregisterClassW(name(), GetModuleHandleW(nullptr)); }

    LPCWSTR name() const { return MAKEINTATOM(atom_); }

private:
    ATOM atom_;
};

/// A window that is never shown, with a device context of its own, which goes with it.
class HiddenWindow {
public:
    HiddenWindow(LPCWSTR className, LONG width, LONG height)
        : window_(CreateWindowExW(0, className, L"", WS_POPUP, 0, 0, width, height, nullptr,
                                  nullptr, GetModuleHandleW(nullptr), nullptr)) {
        if (!window_) failOffScreen("Windows cannot make a window of this size");
    }
    HiddenWindow(const HiddenWindow&) = delete;
    HiddenWindow& operator=(const HiddenWindow&) = delete;
    ~HiddenWindow() { DestroyWindow(window_); }

    HDC device() const { return GetDC(window_); }

private:
    HWND window_;
};

/// Gives the window of a device context a pixel format for OpenGL.
void setPixelFormat(HDC device) {
    PIXELFORMATDESCRIPTOR format{};
    format.nSize = sizeof(format);
    format.nVersion = 1;
    format.dwFlags = PFD_DRAW_TO_WINDOW | PFD_SUPPORT_OPENGL | PFD_DOUBLEBUFFER;
    format.iPixelType = PFD_TYPE_RGBA;
    format.cColorBits = 3 * kBitsPerChannel;
    format.cAlphaBits = kBitsPerChannel;
    const int chosen = ChoosePixelFormat(device, &format);
    if (!chosen || !SetPixelFormat(device, chosen, &format)) {
        failOffScreen("Windows has no pixel format for OpenGL with 8 bits a channel");
    }
}

class WglContext {
public:
    explicit WglContext(HDC device) {
        setPixelFormat(device);
        context_ = wglCreateContext(device);
        if (!context_) failOffScreen("Windows cannot make a context");
    }
    WglContext(const WglContext&) = delete;
    WglContext& operator=(const WglContext&) = delete;
    ~WglContext() { wglDeleteContext(context_); }

    HGLRC get() const { return context_; }

private:
    HGLRC context_;
};

template <class Function>
bool findFunction(const char* name, Function& function) {
    function = reinterpret_cast<Function>(reinterpret_cast<void*>(wglGetProcAddress(name)));
    return function != nullptr;
}

/// Lets the current context draw into, and read, a framebuffer object, which goes with the context.
/// Changes nothing if the driver has none of this size.
void useFramebufferObject(LONG width, LONG height) {
    void(APIENTRY * genFramebuffers)(GLsizei, GLuint*);
    void(APIENTRY * bindFramebuffer)(GLenum, GLuint);
    void(APIENTRY * genRenderbuffers)(GLsizei, GLuint*);
    void(APIENTRY * bindRenderbuffer)(GLenum, GLuint);
    void(APIENTRY * renderbufferStorage)(GLenum, GLenum, GLsizei, GLsizei);
    void(APIENTRY * framebufferRenderbuffer)(GLenum, GLenum, GLenum, GLuint);
    GLenum(APIENTRY * checkFramebufferStatus)(GLenum);
    if (!findFunction("glGenFramebuffers", genFramebuffers) ||
        !findFunction("glBindFramebuffer", bindFramebuffer) ||
        !findFunction("glGenRenderbuffers", genRenderbuffers) ||
        !findFunction("glBindRenderbuffer", bindRenderbuffer) ||
        !findFunction("glRenderbufferStorage", renderbufferStorage) ||
        !findFunction("glFramebufferRenderbuffer", framebufferRenderbuffer) ||
        !findFunction("glCheckFramebufferStatus", checkFramebufferStatus)) {
        return;
    }
    GLuint colours = 0, framebuffer = 0;
    genRenderbuffers(1, &colours);
    bindRenderbuffer(kRenderbuffer, colours);
    renderbufferStorage(kRenderbuffer, kRgba8, width, height);
    genFramebuffers(1, &framebuffer);
    bindFramebuffer(kFramebuffer, framebuffer);
    framebufferRenderbuffer(kFramebuffer, kFirstColours, kRenderbuffer, colours);
    if (checkFramebufferStatus(kFramebuffer) != kComplete) bindFramebuffer(kFramebuffer, 0);
}

}  // namespace

struct HeadlessContext::System {
    System(LONG width, LONG height)
        : window(windowClass.name(), width, height), device(window.device()), context(device) {}

    WindowClass windowClass;
    HiddenWindow window;
    HDC device;
    WglContext context;
};

// The pixels of a window are its own only where it can be seen: a driver may drop what is drawn
// into a hidden one. A framebuffer object has its own pixels, and takes nothing but the device
// context from the window. Without such objects (OpenGL 1.1 of the system itself) the window's back
// buffer, which is never swapped, is the only place to draw into; if it has no alpha, all pixels
// are opaque.
HeadlessContext::HeadlessContext(LONG width, LONG height)
    : system_(std::make_unique<System>(width, height)) {
    const CurrentContext current(*this);
    useFramebufferObject(width, height);
    gl().glViewport(0, 0, width, height);
}

HeadlessContext::~HeadlessContext() = default;

struct CurrentContext::Before {
    HDC device;
    HGLRC context;
};

CurrentContext::CurrentContext(const HeadlessContext& own)
    : before_(std::make_unique<Before>(Before{wglGetCurrentDC(), wglGetCurrentContext()})) {
    const HeadlessContext::System& system = *own.system_;
    if (!wglMakeCurrent(system.device, system.context.get())) {
        failOffScreen("Windows cannot make the context current");
    }
}

CurrentContext::~CurrentContext() {
    wglMakeCurrent(before_->device, before_->context);
}

}  // namespace ruvex::runtime
