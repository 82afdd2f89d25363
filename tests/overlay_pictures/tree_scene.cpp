#include "tests/overlay_pictures/tree_scene.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "runtime/error.h"
#include "sdk/open_gl/open_gl.h"

namespace ruvex::test {
namespace {

/// Room for a bold font of 18 pixels, in all directions.
constexpr int kBelow = 8, kAbove = 20, kBeside = 4, kWidestCharacter = 14;

/// Half the depth of what is drawn.
constexpr double kTreeDepth = 100.0;

}  // namespace

StatePicture pictureOf(const runtime::HeadlessSurface& surface, int width, int height,
                       Backdrop backdrop) {
    StatePicture picture;
    picture.width = width;
    picture.height = height;
    picture.backdrop = backdrop;
    const std::vector<std::uint8_t> rgba = surface.pixels();
    for (std::size_t i = 0; i < rgba.size(); i += 4) {
        picture.pixels.push_back({rgba[i], rgba[i + 1], rgba[i + 2]});
    }
    return picture;
}

TextArea textAt(float x, float y, std::size_t characters) {
    const int left = std::max(kTreeMiddle + static_cast<int>(x) - kBeside, 0);
    const int bottom = std::max(kTreeMiddle + static_cast<int>(y) - kBelow, 0);
    const int width = static_cast<int>(characters) * kWidestCharacter + 2 * kBeside;
    return {left, bottom, std::min(width, kTreeSize - left),
            std::min(kBelow + kAbove, kTreeSize - bottom)};
}

StatePicture drawOnSurface(const std::function<void()>& draw, Backdrop backdrop,
                           std::vector<TextArea> texts) {
    const auto surface = runtime::HeadlessSurface::create(kTreeSize, kTreeSize);
    surface->setPixels(backdropPixels(backdrop, kTreeSize, kTreeSize));
    tagVWOPENGLSURFACE info;
    runtime::require(vwSurfaceBeginRenderOpenGL(surface.get(), &info), "nothing can be drawn");
    gl().glOrtho(-0.5, kTreeSize - 0.5, -0.5, kTreeSize - 0.5, -kTreeDepth, kTreeDepth);
    VxTDraw::translate(kTreeMiddle, kTreeMiddle);
    gl().glEnable(GL_LINE_STIPPLE);
    VxTDraw::currentFont = VxTDraw::createFont(wglGetCurrentDC());
    draw();
    VxTDraw::currentFont = 0;
    const GLenum error = gl().glGetError();
    runtime::require(vwSurfaceEndRenderOpenGL(surface.get()), "the drawing cannot end");
    if (error != GL_NO_ERROR) throw std::runtime_error("OpenGL has an error");
    StatePicture picture = pictureOf(*surface, kTreeSize, kTreeSize, backdrop);
    picture.texts = std::move(texts);
    return picture;
}

}  // namespace ruvex::test
