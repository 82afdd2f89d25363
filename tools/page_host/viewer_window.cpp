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
constexpr COLORREF kFailureInk = RGB(255, 200, 120);

constexpr LONG kNoButton = 0;
constexpr LONG kMainButton = 1;
constexpr LONG kRightButton = 2;
constexpr LONG kMiddleButton = 3;

LONG pressedButton(WPARAM keys) {
    if (keys & MK_LBUTTON) return kMainButton;
    if (keys & MK_RBUTTON) return kRightButton;
    return keys & MK_MBUTTON ? kMiddleButton : kNoButton;
}

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

tagVWPENEVENT ViewerWindow::eventAt(LPARAM place, LONG button) const {
    const WorldPoint point = layout().worldAt({GET_X_LPARAM(place), GET_Y_LPARAM(place)});
    return {.button = button, .x = point.x, .y = point.y};
}

void ViewerWindow::press(LONG button, LPARAM place) {
    SetFocus(handle());
    if (buttonsDown_++ == 0) SetCapture(handle());
    tools_->penDown(eventAt(place, button));
}

void ViewerWindow::release(LONG button, LPARAM place) {
    if (buttonsDown_ == 0) return;
    tools_->penUp(eventAt(place, button));
    if (--buttonsDown_ == 0) ReleaseCapture();
}

void ViewerWindow::endDrag() {
    if (std::exchange(buttonsDown_, 0) == 0) return;
    if (tools_) tools_->releasePen();
    if (GetCapture() == handle()) ReleaseCapture();
}

bool ViewerWindow::onPen(UINT message, LPARAM extra) {
    switch (message) {
        case WM_LBUTTONDOWN:
            return press(kMainButton, extra), true;
        case WM_LBUTTONUP:
            return release(kMainButton, extra), true;
        case WM_RBUTTONDOWN:
            return press(kRightButton, extra), true;
        case WM_RBUTTONUP:
            return release(kRightButton, extra), true;
        case WM_MBUTTONDOWN:
            return press(kMiddleButton, extra), true;
        case WM_MBUTTONUP:
            return release(kMiddleButton, extra), true;
        default:
            return false;
    }
}

LRESULT ViewerWindow::onMessage(UINT message, WPARAM wide, LPARAM extra) {
    if (tools_ && onPen(message, extra)) return 0;
    switch (message) {
        case WM_MOUSEMOVE:
            if (tools_) tools_->penMove(eventAt(extra, pressedButton(wide)));
            return 0;
        case WM_CAPTURECHANGED:
            endDrag();
            return 0;
        case WM_GETDLGCODE:
            // A drag takes Escape from the dialog keys.
            return buttonsDown_ > 0 ? DLGC_WANTALLKEYS : 0;
        case WM_KEYDOWN:
            if (wide == VK_ESCAPE) endDrag();
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
            return defaultAnswer(message, wide, extra);
    }
}

void ViewerWindow::paint() {
    PAINTSTRUCT painting{};
    const HDC context = BeginPaint(handle(), &painting);
    const SIZE size = clientSize(handle());
    if (size.cx > 0 && size.cy > 0) {
        DeviceBitmap canvas(context, size);
        draw(canvas);
        canvas.copyTo(context);
    }
    EndPaint(handle(), &painting);
}

void ViewerWindow::draw(DeviceBitmap& canvas) {
    const SIZE size = clientSize(handle());
    canvas.fill({0, 0, size.cx, size.cy}, kSurround);
    if (!effect_) return;
    // A failure is shown here: closing a dialog would paint, and open the next one.
    try {
        drawPicture(canvas.context());
        drawControls(canvas);
    } catch (const std::exception& error) {
        canvas.write(fromUtf8(error.what()), kFailureInk);
    }
}

void ViewerWindow::drawPicture(HDC context) {
    if (!frame_) {
        frame_ = effect_->render();
        swapRedAndBlue(frame_->bytes);
    }
    const RECT place = layout().picture();
    const BITMAPINFO info = bitmapInfo({frame_->width, frame_->height});
    SetStretchBltMode(context, HALFTONE);
    SetBrushOrgEx(context, 0, 0, nullptr);
    StretchDIBits(context, place.left, place.top, place.right - place.left,
                  place.bottom - place.top, 0, 0, frame_->width, frame_->height,
                  frame_->bytes.data(), &info, DIB_RGB_COLORS, SRCCOPY);
}

void ViewerWindow::drawControls(DeviceBitmap& canvas) {
    runtime::HeadlessSurface& surface = surfaceOf(layout());
    const std::span<std::uint8_t> pixels = canvas.bytes();
    swapRedAndBlue(pixels);
    surface.setPixels({pixels.begin(), pixels.end()});
    runtime::require(tools_->render(surface), "the on-screen controls cannot be drawn");
    const std::vector<std::uint8_t> drawn = surface.pixels();
    std::copy(drawn.begin(), drawn.end(), pixels.begin());
    swapRedAndBlue(pixels);
}

runtime::HeadlessSurface& ViewerWindow::surfaceOf(const ViewerLayout& layout) {
    const SIZE size = layout.window();
    if (!surface_ || size.cx != surfaceSize_.cx || size.cy != surfaceSize_.cy) {
        surface_ = runtime::HeadlessSurface::create(size.cx, size.cy);
        surfaceSize_ = size;
    }
    const WorldPoint origin = layout.worldOrigin();
    surface_->setWorld(origin.x, origin.y, layout.worldWidth(), layout.worldHeight());
    return *surface_;
}

}  // namespace ruvex::page_host
