#include "runtime/headless_surface.h"

#include "runtime/error.h"
#include "runtime/headless_context.h"
#include "sdk/open_gl/open_gl.h"

namespace ruvex::runtime {

HeadlessSurface::HeadlessSurface(LONG width, LONG height)
    : fullWidth_(width),
      fullHeight_(height),
      info_{width, height, 0.0, 0.0, static_cast<double>(width), static_cast<double>(height)},
      context_(std::make_unique<HeadlessContext>(width, height)) {}

HeadlessSurface::~HeadlessSurface() = default;

ComPtr<HeadlessSurface> HeadlessSurface::create(LONG width, LONG height) {
    if (width <= 0 || height <= 0) failOffScreen("the size has to be positive");
    if (!openGl()) failOffScreen("the system's libraries for OpenGL and GLU are missing");
    auto surface = ComPtr<HeadlessSurface>::attach(new HeadlessSurface(width, height));
    surface->clear(0.0f, 0.0f, 0.0f, 0.0f);
    return surface;
}

HRESULT HeadlessSurface::Begin(tagVWOPENGLSURFACE* surface) {
    if (!surface) return E_POINTER;
    if (render_) return E_UNEXPECTED;
    return guarded([&] {
        render_ = std::make_unique<CurrentContext>(*context_);
        *surface = info_;
        return S_OK;
    });
}

HRESULT HeadlessSurface::End() {
    if (!render_) return E_UNEXPECTED;
    render_.reset();
    return S_OK;
}

void HeadlessSurface::useSize(LONG width, LONG height) {
    if (width <= 0 || height <= 0) failOffScreen("the size has to be positive");
    if (width > fullWidth_ || height > fullHeight_) failOffScreen("the surface is smaller");
    if (render_) failOffScreen("the size cannot change during a render");
    info_.width = width;
    info_.height = height;
}

void HeadlessSurface::setWorld(double x, double y, double width, double height) {
    info_.worldX = x;
    info_.worldY = y;
    info_.worldWidth = width;
    info_.worldHeight = height;
}

void HeadlessSurface::clear(float red, float green, float blue, float alpha) {
    const CurrentContext current(*context_);
    gl().glPushAttrib(GL_COLOR_BUFFER_BIT);
    gl().glClearColor(red, green, blue, alpha);
    gl().glClear(GL_COLOR_BUFFER_BIT);
    gl().glPopAttrib();
}

void HeadlessSurface::setPixels(const std::vector<std::uint8_t>& rgba) {
    if (rgba.size() != byteCount()) failOffScreen("the picture has not the surface's size");
    tagVWOPENGLSURFACE info;
    // The identity puts the raster position (-1, -1) into the low left corner.
    require(vwSurfaceBeginRenderOpenGL(this, &info), "cannot draw a picture");
    gl().glRasterPos2f(-1.0f, -1.0f);
    gl().glDrawPixels(info.width, info.height, GL_RGBA, GL_UNSIGNED_BYTE, rgba.data());
    require(vwSurfaceEndRenderOpenGL(this), "cannot draw a picture");
}

std::size_t HeadlessSurface::byteCount() const {
    return 4 * static_cast<std::size_t>(info_.width) * static_cast<std::size_t>(info_.height);
}

std::vector<std::uint8_t> HeadlessSurface::pixels() const {
    const CurrentContext current(*context_);
    std::vector<std::uint8_t> rgba(byteCount());
    gl().glReadPixels(0, 0, info_.width, info_.height, GL_RGBA, GL_UNSIGNED_BYTE, rgba.data());
    return rgba;
}

}  // namespace ruvex::runtime
