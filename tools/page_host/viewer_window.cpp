#include "tools/page_host/viewer_window.h"

// clang-format off
#include <windowsx.h>  // needs the names of windows.h
// clang-format on

#include <algorithm>
#include <utility>

#include "runtime/error.h"
#include "sdk/com/utf8.h"

namespace ruvex::page_host {
namespace {

constexpr COLORREF kSurround = RGB(64, 64, 64);
constexpr COLORREF kFailureColour = RGB(255, 200, 120);

constexpr LONG kNoButton = 0;
constexpr LONG kMainButton = 1;
constexpr LONG kRightButton = 2;
constexpr LONG kMiddleButton = 3;

LONG pressedButton(WPARAM keys) {
    if (keys & MK_LBUTTON) return kMainButton;
    if (keys & MK_RBUTTON) return kRightButton;
    return keys & MK_MBUTTON ? kMiddleButton : kNoButton;
}

/// Paints a window's invalid area, which is valid afterwards, in any case.
class WindowPainting {
public:
    explicit WindowPainting(HWND window) : window_(window) { BeginPaint(window, &painting_); }
    WindowPainting(const WindowPainting&) = delete;
    WindowPainting& operator=(const WindowPainting&) = delete;
    ~WindowPainting() { EndPaint(window_, &painting_); }

    HDC context() const { return painting_.hdc; }

private:
    HWND window_;
    PAINTSTRUCT painting_{};
};

}  // namespace

ViewerWindow::ViewerWindow(HWND parent, int controlId) {
    create({.className = L"RuvexViewer",
            .style = WS_CHILD | WS_VISIBLE | WS_TABSTOP,
            .parent = parent,
            .menu = reinterpret_cast<HMENU>(static_cast<INT_PTR>(controlId))});
}

void ViewerWindow::show(EditedEffect* effect) {
    endDrag();
    tools_.reset();
    effect_ = effect;
    frame_.reset();
    if (!effect_) return;
    tools_ = std::make_unique<runtime::Viewer>(effect_->editor(), [this](ULONG, const RECT*) {
        InvalidateRect(handle(), nullptr, FALSE);
    });
    tools_->setWindow(handle());
    InvalidateRect(handle(), nullptr, FALSE);
}

void ViewerWindow::frameChanged() {
    frame_.reset();
    InvalidateRect(handle(), nullptr, FALSE);
}

ViewerLayout ViewerWindow::layout() const {
    return {clientSize(handle()), effect_->width(), effect_->height()};
}

RECT ViewerWindow::pictureOnScreen() const {
    if (!effect_) return {};
    RECT picture = layout().picture();
    MapWindowPoints(handle(), nullptr, reinterpret_cast<POINT*>(&picture), 2);
    return picture;
}

tagVWPENEVENT ViewerWindow::eventAt(LPARAM point, LONG button) const {
    const WorldPoint world = layout().worldAt({GET_X_LPARAM(point), GET_Y_LPARAM(point)});
    return {.button = button, .x = world.x, .y = world.y};
}

void ViewerWindow::press(LONG button, LPARAM point) {
    SetFocus(handle());
    if (buttonsDown_++ == 0) SetCapture(handle());
    tools_->penDown(eventAt(point, button));
}

void ViewerWindow::release(LONG button, LPARAM point) {
    if (buttonsDown_ == 0) return;
    tools_->penUp(eventAt(point, button));
    if (--buttonsDown_ == 0) ReleaseCapture();
}

void ViewerWindow::endDrag() {
    if (std::exchange(buttonsDown_, 0) == 0) return;
    if (tools_) tools_->releasePen();
    if (GetCapture() == handle()) ReleaseCapture();
}

bool ViewerWindow::onPen(UINT message, LPARAM lParam) {
    switch (message) {
        case WM_LBUTTONDOWN:
            return press(kMainButton, lParam), true;
        case WM_LBUTTONUP:
            return release(kMainButton, lParam), true;
        case WM_RBUTTONDOWN:
            return press(kRightButton, lParam), true;
        case WM_RBUTTONUP:
            return release(kRightButton, lParam), true;
        case WM_MBUTTONDOWN:
            return press(kMiddleButton, lParam), true;
        case WM_MBUTTONUP:
            return release(kMiddleButton, lParam), true;
        default:
            return false;
    }
}

LRESULT ViewerWindow::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (tools_ && onPen(message, lParam)) return 0;
    switch (message) {
        case WM_MOUSEMOVE:
            if (tools_) tools_->penMove(eventAt(lParam, pressedButton(wParam)));
            return 0;
        case WM_CAPTURECHANGED:
            endDrag();
            return 0;
        case WM_GETDLGCODE:
            // A drag takes Escape from the dialog keys.
            return buttonsDown_ > 0 ? DLGC_WANTALLKEYS : 0;
        case WM_KEYDOWN:
            if (wParam == VK_ESCAPE) endDrag();
            return 0;
        case WM_SIZE:
            InvalidateRect(handle(), nullptr, FALSE);
            return 0;
        case WM_ERASEBKGND:
            return 1;
        case WM_PAINT:
            paint();
            return 0;
        default:
            return defaultAnswer(message, wParam, lParam);
    }
}

void ViewerWindow::paint() {
    const WindowPainting painting(handle());
    const SIZE size = clientSize(handle());
    if (size.cx <= 0 || size.cy <= 0) return;
    // A failure is written into the viewer. A message box would be no use: closing it has the
    // viewer painted again, which fails again.
    try {
        DeviceBitmap canvas(painting.context(), size);
        draw(canvas);
        canvas.copyTo(painting.context());
    } catch (const std::exception&) {
        fillArea(painting.context(), {0, 0, size.cx, size.cy}, kSurround);
        writeText(painting.context(), size, L"There is not enough memory to show the picture.",
                  kFailureColour);
    }
}

void ViewerWindow::draw(DeviceBitmap& canvas) {
    const SIZE size = clientSize(handle());
    fillArea(canvas.context(), {0, 0, size.cx, size.cy}, kSurround);
    if (!effect_) return;
    try {
        drawPicture(canvas.context());
        drawControls(canvas);
    } catch (const std::exception& error) {
        writeText(canvas.context(), size, fromUtf8(error.what()), kFailureColour);
    }
}

void ViewerWindow::drawPicture(HDC context) {
    if (!frame_) {
        frame_ = effect_->render();
        swapRedAndBlue(frame_->bytes);
    }
    const RECT area = layout().picture();
    const BITMAPINFO info = bitmapInfo({frame_->width, frame_->height});
    SetStretchBltMode(context, HALFTONE);
    SetBrushOrgEx(context, 0, 0, nullptr);
    StretchDIBits(context, area.left, area.top, area.right - area.left, area.bottom - area.top, 0,
                  0, frame_->width, frame_->height, frame_->bytes.data(), &info, DIB_RGB_COLORS,
                  SRCCOPY);
}

void ViewerWindow::drawControls(DeviceBitmap& canvas) {
    runtime::HeadlessSurface& surface = surfaceFor(layout());
    const std::span<std::uint8_t> pixels = canvas.bytes();
    swapRedAndBlue(pixels);
    surface.setPixels({pixels.begin(), pixels.end()});
    runtime::require(tools_->render(surface), "the on-screen controls cannot be drawn");
    const std::vector<std::uint8_t> drawn = surface.pixels();
    std::copy(drawn.begin(), drawn.end(), pixels.begin());
    swapRedAndBlue(pixels);
}

runtime::HeadlessSurface& ViewerWindow::surfaceFor(const ViewerLayout& layout) {
    const SIZE size = layout.window();
    if (!surface_ || size.cx > largest_.cx || size.cy > largest_.cy) {
        largest_ = {std::max<LONG>(size.cx, GetSystemMetrics(SM_CXVIRTUALSCREEN)),
                    std::max<LONG>(size.cy, GetSystemMetrics(SM_CYVIRTUALSCREEN))};
        surface_ = runtime::HeadlessSurface::create(largest_.cx, largest_.cy);
    }
    surface_->useSize(size.cx, size.cy);
    const WorldPoint origin = layout.worldOrigin();
    surface_->setWorld(origin.x, origin.y, layout.worldWidth(), layout.worldHeight());
    return *surface_;
}

}  // namespace ruvex::page_host
