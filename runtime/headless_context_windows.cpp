// The context draws into a pbuffer: memory of the driver's, as with EGL. To make one takes a
// context of a window, which is never shown. Without pbuffers (OpenGL 1.1 of the system itself) the
// context draws into that window's back buffer, which is never swapped. That is the second choice,
// since a driver may drop what is drawn into a hidden window: only pixels that can be seen belong
// to it. A framebuffer object would do on Windows, but Mesa sets other pixels in it than in a
// pbuffer where lines meet, so that pictures under Wine would differ from those of EGL.

#include <windows.h>

#include "runtime/headless_context.h"
#include "sdk/open_gl/open_gl.h"

namespace ruvex::runtime {
namespace {

constexpr int kBitsPerChannel = 8;

/// A window class for one surface. Its name holds its address, since the name of a class that is
/// still in use cannot be registered again.
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
        setPixelFormat(device());
    }
    HiddenWindow(const HiddenWindow&) = delete;
    HiddenWindow& operator=(const HiddenWindow&) = delete;
    ~HiddenWindow() { DestroyWindow(window_); }

    HDC device() const { return GetDC(window_); }

private:
    static void setPixelFormat(HDC device) {
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

    HWND window_;
};

class WglContext {
public:
    explicit WglContext(HDC device) : context_(wglCreateContext(device)) {
        if (!context_) failOffScreen("Windows cannot make a context");
    }
    WglContext(const WglContext&) = delete;
    WglContext& operator=(const WglContext&) = delete;
    ~WglContext() { wglDeleteContext(context_); }

    HGLRC get() const { return context_; }

private:
    HGLRC context_;
};

/// Makes a context current as long as it lives, then the one that was current before.
class MadeCurrent {
public:
    MadeCurrent(HDC device, const WglContext& context)
        : deviceBefore_(wglGetCurrentDC()), contextBefore_(wglGetCurrentContext()) {
        if (!wglMakeCurrent(device, context.get())) {
            failOffScreen("Windows cannot make the context current");
        }
    }
    MadeCurrent(const MadeCurrent&) = delete;
    MadeCurrent& operator=(const MadeCurrent&) = delete;
    ~MadeCurrent() { wglMakeCurrent(deviceBefore_, contextBefore_); }

private:
    HDC deviceBefore_;
    HGLRC contextBefore_;
};

template <class Function>
bool findFunction(const char* name, Function& function) {
    function = reinterpret_cast<Function>(reinterpret_cast<void*>(wglGetProcAddress(name)));
    return function != nullptr;
}

/// The functions of WGL_ARB_pixel_format and WGL_ARB_pbuffer.
struct PbufferFunctions {
    /// False if the driver of the current context lacks one.
    bool find() {
        return findFunction("wglChoosePixelFormatARB", choosePixelFormat) &&
               findFunction("wglCreatePbufferARB", create) &&
               findFunction("wglDestroyPbufferARB", destroy) &&
               findFunction("wglGetPbufferDCARB", getDevice) &&
               findFunction("wglReleasePbufferDCARB", releaseDevice);
    }

    BOOL(WINAPI* choosePixelFormat)(HDC, const int*, const FLOAT*, UINT, int*, UINT*);
    HANDLE(WINAPI* create)(HDC, int, int, int, const int*);
    BOOL(WINAPI* destroy)(HANDLE);
    HDC(WINAPI* getDevice)(HANDLE);
    int(WINAPI* releaseDevice)(HANDLE, HDC);
};

/// Names and values of WGL_ARB_pixel_format's attributes.
constexpr int kPbufferFormat[] = {
    0x202D, 1,                // drawn into a pbuffer
    0x2010, 1,                // by OpenGL
    0x2011, 1,                // with a back buffer, which is never copied to a screen
    0x2013, 0x202B,           // pixels are red, green, blue and alpha
    0x2015, kBitsPerChannel,  // red
    0x2017, kBitsPerChannel,  // green
    0x2019, kBitsPerChannel,  // blue
    0x201B, kBitsPerChannel,  // alpha
    0,
};

class Pbuffer {
public:
    /// `window` is a device context of the same driver, and `format` one of its pixel formats.
    Pbuffer(const PbufferFunctions& functions, HDC window, int format, LONG width, LONG height)
        : functions_(functions) {
        const int noAttributes[] = {0};
        buffer_ = functions_.create(window, format, width, height, noAttributes);
        if (!buffer_) failOffScreen("the driver cannot make a surface of this size");
        device_ = functions_.getDevice(buffer_);
    }
    Pbuffer(const Pbuffer&) = delete;
    Pbuffer& operator=(const Pbuffer&) = delete;
    ~Pbuffer() {
        functions_.releaseDevice(buffer_, device_);
        functions_.destroy(buffer_);
    }

    HDC device() const { return device_; }

private:
    PbufferFunctions functions_;
    HANDLE buffer_ = nullptr;
    HDC device_ = nullptr;
};

/// Throws Error for more pixels than the current context can draw. Wine ends the process if the X
/// server refuses a pbuffer.
void checkSize(LONG width, LONG height) {
    GLint largest[2] = {};
    gl().glGetIntegerv(GL_MAX_VIEWPORT_DIMS, largest);
    if (width > largest[0] || height > largest[1]) {
        failOffScreen("the driver cannot make a surface of this size");
    }
}

/// The driver's best format for pbuffers; 0 if it has none.
int findPbufferFormat(const PbufferFunctions& functions, HDC window) {
    int format = 0;
    UINT found = 0;
    const BOOL done =
        functions.choosePixelFormat(window, kPbufferFormat, nullptr, 1, &format, &found);
    return done && found > 0 ? format : 0;
}

}  // namespace

struct HeadlessContext::System {
    System(LONG width, LONG height)
        : window(windowClass.name(), width, height), windowContext(window.device()) {
        const MadeCurrent current(window.device(), windowContext);
        checkSize(width, height);
        PbufferFunctions functions{};
        const int format = functions.find() ? findPbufferFormat(functions, window.device()) : 0;
        if (format == 0) return;
        pbuffer.emplace(functions, window.device(), format, width, height);
        pbufferContext.emplace(pbuffer->device());
    }

    HDC device() const { return pbuffer ? pbuffer->device() : window.device(); }
    const WglContext& context() const { return pbufferContext ? *pbufferContext : windowContext; }

    WindowClass windowClass;
    HiddenWindow window;
    WglContext windowContext;
    std::optional<Pbuffer> pbuffer;
    std::optional<WglContext> pbufferContext;
};

HeadlessContext::HeadlessContext(LONG width, LONG height)
    : system_(std::make_unique<System>(width, height)) {}

HeadlessContext::~HeadlessContext() = default;

struct CurrentContext::Before : MadeCurrent {
    using MadeCurrent::MadeCurrent;
};

CurrentContext::CurrentContext(const HeadlessContext& own)
    : before_(std::make_unique<Before>(own.system_->device(), own.system_->context())) {}

CurrentContext::~CurrentContext() = default;

}  // namespace ruvex::runtime
