#include "adapters/openfx/overlay/context_view.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "sdk/open_gl/open_gl.h"

namespace ruvex::openfx {
namespace {

/// By columns, as OpenGL stores it.
using Matrix = std::array<double, 16>;

Matrix matrix(GLenum which) {
    Matrix read{};
    gl().glGetDoublev(which, read.data());
    return read;
}

double element(const Matrix& matrix, int row, int column) {
    return matrix[static_cast<std::size_t>(4 * column + row)];
}

/// From the plane to OpenGL's coordinates, which are from -1 to 1 in the viewport.
Matrix product(const Matrix& a, const Matrix& b) {
    Matrix result{};
    for (int column = 0; column < 4; ++column) {
        for (int row = 0; row < 4; ++row) {
            double sum = 0.0;
            for (int i = 0; i < 4; ++i) sum += element(a, row, i) * element(b, i, column);
            result[static_cast<std::size_t>(4 * column + row)] = sum;
        }
    }
    return result;
}

/// One axis: normalised = scale * plane + offset.
struct Axis {
    double scale, offset;

    double planeAt(double normalised) const { return (normalised - offset) / scale; }
    /// Whether the axis shows a part of the plane, and not mirrored.
    bool isUsable() const { return std::isfinite(offset) && std::isfinite(scale) && scale > 0.0; }
};

struct Axes {
    Axis x, y;
};

/// No value if x depends on y or the reverse, and for a perspective.
std::optional<Axes> axesOf(const Matrix& m) {
    // What the other coordinate may move a position by, as a part of what its own moves it.
    constexpr double kStraight = 1e-6;
    const double weight = element(m, 3, 3);
    const bool flat = element(m, 3, 0) == 0.0 && element(m, 3, 1) == 0.0 && weight != 0.0;
    const Axes axes{{element(m, 0, 0) / weight, element(m, 0, 3) / weight},
                    {element(m, 1, 1) / weight, element(m, 1, 3) / weight}};
    if (!flat || !axes.x.isUsable() || !axes.y.isUsable()) return std::nullopt;
    const bool straight = std::abs(element(m, 0, 1) / weight) <= kStraight * axes.x.scale &&
                          std::abs(element(m, 1, 0) / weight) <= kStraight * axes.y.scale;
    return straight ? std::optional(axes) : std::nullopt;
}

struct PixelArea {
    GLint x, y, width, height;
};

PixelArea area(GLenum which) {
    PixelArea read{};
    gl().glGetIntegerv(which, &read.x);
    return read;
}

/// Confines drawing to an area, and to the one of the host if it has one.
void confine(const ContextView& view) {
    PixelArea wanted{view.x, view.y, view.width, view.height};
    if (gl().glIsEnabled(GL_SCISSOR_TEST)) {
        const PixelArea host = area(GL_SCISSOR_BOX);
        const GLint right = std::min(wanted.x + wanted.width, host.x + host.width);
        const GLint top = std::min(wanted.y + wanted.height, host.y + host.height);
        wanted.x = std::max(wanted.x, host.x);
        wanted.y = std::max(wanted.y, host.y);
        wanted.width = std::max(0, right - wanted.x);
        wanted.height = std::max(0, top - wanted.y);
    }
    gl().glEnable(GL_SCISSOR_TEST);
    gl().glScissor(wanted.x, wanted.y, wanted.width, wanted.height);
}

/// A tool takes the whole window as its surface, from pixel (0, 0), and leaves a row and a column
/// at its end: so the surface reaches from there to one pixel beyond the host's viewport.
class ContextSurface final : public ComObject<IViewerSurface> {
public:
    ContextSurface(const ContextView& view, double originX, double originY, double scale) {
        const double perPixelX = view.planeWidth / view.width;
        const double perPixelY = view.planeHeight / view.height;
        const int right = view.x + view.width;
        const int top = view.y + view.height;
        info_.width = right + 1;
        info_.height = top + 1;
        info_.worldX = (view.left - view.x * perPixelX - originX) / scale;
        info_.worldY = (view.bottom - view.y * perPixelY - originY) / scale;
        info_.worldWidth = right * perPixelX / scale;
        info_.worldHeight = top * perPixelY / scale;
    }

    HRESULT Begin(tagVWOPENGLSURFACE* surface) override {
        if (!surface) return E_POINTER;
        *surface = info_;
        return S_OK;
    }
    HRESULT End() override { return S_OK; }

private:
    ~ContextSurface() override = default;

    tagVWOPENGLSURFACE info_{};
};

}  // namespace

std::optional<ContextView> currentView() {
    if (!openGl()) return std::nullopt;
    // Without a context nothing is stored, and the sizes stay 0.
    const PixelArea viewport = area(GL_VIEWPORT);
    if (viewport.width <= 0 || viewport.height <= 0) return std::nullopt;
    const auto axes = axesOf(product(matrix(GL_PROJECTION_MATRIX), matrix(GL_MODELVIEW_MATRIX)));
    if (!axes) return std::nullopt;
    const double left = axes->x.planeAt(-1.0);
    const double bottom = axes->y.planeAt(-1.0);
    return ContextView{viewport.x,
                       viewport.y,
                       viewport.width,
                       viewport.height,
                       left,
                       bottom,
                       axes->x.planeAt(1.0) - left,
                       axes->y.planeAt(1.0) - bottom};
}

ContextDrawing::ContextDrawing(const ContextView& view, double originX, double originY,
                               double scale)
    : surface_(ComPtr<IViewerSurface>::attach(new ContextSurface(view, originX, originY, scale))) {
    const bool inWindow = view.x + view.width > 0 && view.y + view.height > 0;
    saved_ = inWindow && canPushAttributes();
    if (!saved_) return;
    gl().glPushAttrib(GL_SCISSOR_BIT | GL_VIEWPORT_BIT);
    confine(view);
}

ContextDrawing::~ContextDrawing() {
    if (saved_) gl().glPopAttrib();
}

}  // namespace ruvex::openfx
