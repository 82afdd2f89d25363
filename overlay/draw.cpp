#include "overlay/draw.h"

#include <cmath>
#include <numbers>
#include <utility>

#include "sdk/open_gl/open_gl.h"

namespace ruvex {
namespace {

/// Bits drawn in the first colour of a two-colour line, lowest first: four pixels and four gaps.
constexpr GLushort kStipple = 0x0F0F;
/// The gaps of the first colour.
constexpr GLushort kInverseStipple = 0xF0F0;

constexpr GLint kArcSlices = 360;
constexpr GLint kDiskSlices = 180;
constexpr GLint kLoops = 1;

constexpr float kDegreesPerRadian = static_cast<float>(180.0 / std::numbers::pi);

/// Made by the first drawing that needs it; null before.
GLUquadric* quadric = nullptr;

/// The stipple from before a two-colour drawing.
GLint stipplePattern = 0xFFFF;
GLint stippleFactor = 1;

bool hasQuadric() {
    if (quadric) return true;
    quadric = gl().gluNewQuadric();
    if (quadric) gl().gluQuadricNormals(quadric, GLU_FLAT);
    return quadric != nullptr;
}

/// Draws with one colour in the dashes and with the other in the gaps, and restores the stipple.
template <class Drawing>
void drawInTwoColours(const VxColour& colourA, const VxColour& colourB, Drawing draw) {
    gl().glGetIntegerv(GL_LINE_STIPPLE_PATTERN, &stipplePattern);
    gl().glGetIntegerv(GL_LINE_STIPPLE_REPEAT, &stippleFactor);
    gl().glLineStipple(1, kStipple);
    VxTDraw::setColour(colourA);
    draw();
    gl().glLineStipple(1, kInverseStipple);
    VxTDraw::setColour(colourB);
    draw();
    gl().glLineStipple(stippleFactor, static_cast<GLushort>(stipplePattern));
}

/// What a blend bracket can smooth.
struct Smoothing {
    std::uint32_t bit;
    GLenum state;
};
constexpr Smoothing kSmoothings[] = {
    {BlendBracket::Points, GL_POINT_SMOOTH},
    {BlendBracket::Lines, GL_LINE_SMOOTH},
    {BlendBracket::Polygons, GL_POLYGON_SMOOTH},
};

GLenum styleOf(QuadricStyle style) {
    return style == QuadricStyle::Line ? GLU_LINE : GLU_FILL;
}

/// Calls `draw` with the inner radius of a round shape: all of its radius for a line, 0 for a
/// filled one. (x, y) is the origin meanwhile. Nothing for a radius of 0 or less, or without a
/// quadric.
template <class Drawing>
void drawRound(float x, float y, float radius, QuadricStyle style, Drawing draw) {
    if (!(radius > 0.0f) || !hasQuadric()) return;
    gl().glPushMatrix();
    gl().glTranslatef(x, y, 0.0f);
    gl().gluQuadricDrawStyle(quadric, styleOf(style));
    draw(style == QuadricStyle::Line ? radius : 0.0f);
    gl().glPopMatrix();
}

void drawWholeCircle(float x, float y, float radius, QuadricStyle style) {
    drawRound(x, y, radius, style,
              [=](float inner) { gl().gluDisk(quadric, inner, radius, kDiskSlices, kLoops); });
}

/// The tip at the origin, pointing along the X axis.
void drawArrowHead(GLenum primitive, VxPosition size) {
    gl().glBegin(primitive);
    gl().glVertex2f(-size.x, size.y);
    gl().glVertex2f(0.0f, 0.0f);
    gl().glVertex2f(-size.x, -size.y);
    gl().glEnd();
}

}  // namespace

void VxTDraw::setColour(const VxColour& colour) {
    gl().glColor3f(colour.r, colour.g, colour.b);
}

void VxTDraw::setLineWidth(float pixels) {
    gl().glLineWidth(pixels);
}

void VxTDraw::drawLine(float x0, float y0, float x1, float y1) {
    gl().glBegin(GL_LINES);
    gl().glVertex2f(x0, y0);
    gl().glVertex2f(x1, y1);
    gl().glEnd();
}

void VxTDraw::drawStippledLine(float x0, float y0, float x1, float y1, const VxColour& colourA,
                               const VxColour& colourB) {
    drawInTwoColours(colourA, colourB, [=] { drawLine(x0, y0, x1, y1); });
}

void VxTDraw::drawRectOutline(float x0, float y0, float x1, float y1) {
    gl().glBegin(GL_LINE_LOOP);
    gl().glVertex2f(x0, y0);
    gl().glVertex2f(x1, y0);
    gl().glVertex2f(x1, y1);
    gl().glVertex2f(x0, y1);
    gl().glEnd();
}

void VxTDraw::drawFilledRect(float x0, float y0, float x1, float y1) {
    gl().glRectf(x0, y0, x1, y1);
}

void VxTDraw::drawArc(float x, float y, float radius, float startDegrees, float endDegrees,
                      QuadricStyle style) {
    // GLU measures angles clockwise from the Y axis.
    const float start = 90.0f - startDegrees;
    const float sweep = (90.0f - endDegrees) - start;
    drawRound(x, y, radius, style, [=](float inner) {
        gl().gluPartialDisk(quadric, inner, radius, kArcSlices, kLoops, start, sweep);
    });
}

void VxTDraw::drawStippledArc(float x, float y, float radius, float startDegrees, float endDegrees,
                              const VxColour& colourA, const VxColour& colourB) {
    drawInTwoColours(colourA, colourB, [=] { drawArc(x, y, radius, startDegrees, endDegrees); });
}

void VxTDraw::drawDisk(float x, float y, float radius) {
    drawWholeCircle(x, y, radius, QuadricStyle::Fill);
}

void VxTDraw::drawCircle(float x, float y, float radius) {
    drawWholeCircle(x, y, radius, QuadricStyle::Line);
}

void VxTDraw::drawDot(float x, float y, float radius, const VxColour& fill,
                      const VxColour& outline) {
    setColour(fill);
    drawDisk(x, y, radius);
    setColour(outline);
    drawCircle(x, y, radius);
}

void VxTDraw::drawArrow(VxPosition tip, VxPosition direction, VxPosition size, const VxColour& fill,
                        const VxColour& outline) {
    gl().glPushMatrix();
    translate(tip.x, tip.y);
    rotate(std::atan2(direction.y, direction.x) * kDegreesPerRadian);
    setColour(fill);
    drawArrowHead(GL_TRIANGLES, size);
    setColour(outline);
    drawArrowHead(GL_LINE_LOOP, size);
    gl().glPopMatrix();
}

void VxTDraw::pushTransform() {
    gl().glPushMatrix();
}

void VxTDraw::popTransform() {
    gl().glPopMatrix();
}

void VxTDraw::translate(float x, float y) {
    gl().glTranslatef(x, y, 0.0f);
}

void VxTDraw::rotate(float degrees) {
    gl().glRotatef(degrees, 0.0f, 0.0f, 1.0f);
}

void VxTDraw::scale(float x, float y) {
    gl().glScalef(x, y, 1.0f);
}

void VxTDraw::loadMatrixIntoGl() {
    const auto& m = matrixStack.top().m;
    // A matrix that multiplies row vectors, stored by rows, has the same 16 numbers in the same
    // order as OpenGL's, which multiplies column vectors and is stored by columns.
    const float matrix[16] = {
        m[0][0], m[0][1], 0.0f, 0.0f,  //
        m[1][0], m[1][1], 0.0f, 0.0f,  //
        0.0f,    0.0f,    1.0f, 0.0f,  //
        m[2][0], m[2][1], 0.0f, 1.0f,
    };
    gl().glMultMatrixf(matrix);
}

BlendBracket::BlendBracket(std::uint32_t request) : request_(request) {
    if (request == 0) return;
    blended_ = gl().glIsEnabled(GL_BLEND);
    gl().glGetIntegerv(GL_BLEND_SRC, &source_);
    gl().glGetIntegerv(GL_BLEND_DST, &destination_);
    gl().glEnable(GL_BLEND);
    gl().glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    for (const Smoothing& kind : kSmoothings) {
        if (!(request & kind.bit)) continue;
        if (gl().glIsEnabled(kind.state)) {
            smoothed_ |= kind.bit;
        } else {
            gl().glEnable(kind.state);
        }
    }
    active_ = true;
}

BlendBracket::~BlendBracket() {
    if (!active_) return;
    gl().glBlendFunc(static_cast<GLenum>(source_), static_cast<GLenum>(destination_));
    if (!blended_) gl().glDisable(GL_BLEND);
    for (const Smoothing& kind : kSmoothings) {
        if (request_ & ~smoothed_ & kind.bit) gl().glDisable(kind.state);
    }
}

void releaseDrawing() {
    // Without a quadric the library may never have been opened.
    if (quadric) gl().gluDeleteQuadric(std::exchange(quadric, nullptr));
    closeOpenGl();
}

}  // namespace ruvex
