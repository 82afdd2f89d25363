#include "overlay/plane.h"
#include "overlay/transform_level.h"
#include "overlay/vx_t_2d_axis.h"

namespace ruvex {
namespace {

// Lengths in units of the tree, before `uiScale`; angles in degrees.
constexpr float kAxisStart = 3.0f;
constexpr float kArcEnd = 45.0f;
/// 32 times the sine of 45 degrees.
constexpr float kArcEndPosition = 22.627417f;
/// The heads at the ends of the arc point along (-1, this) and (-1, -this).
constexpr float kArcHeadSlope = 1.4142135f;
constexpr float kHeadLength = 10.0f;
constexpr float kArcHeadHalfWidth = 2.0f;
constexpr float kAxisHeadHalfWidth = 1.5f;
constexpr float kGuideLength = 17.0f;
constexpr float kDotRadius = 2.0f;
constexpr float kNameShadow = 3.0f, kNameText = 5.0f;
constexpr VxColour kBlack{0.0f, 0.0f, 0.0f};

}  // namespace

void VxT2DAxis::draw() {
    const BlendBracket blend(BlendBracket::Points | BlendBracket::Lines | BlendBracket::Polygons);
    const TransformLevel level;
    if (useGlobalMatrix) loadMatrixIntoGl();
    const VxPosition shift = shownCentre();
    translate(shift.x, shift.y);
    drawTurnedHandles();
    drawCentreDot();
    drawTranslateAxes();
    drawName();
}

VxT2DAxis::Look VxT2DAxis::lookOf(std::uint32_t anyOfHandles) const {
    if (!(activeHandle & anyOfHandles)) return Look::Plain;
    if (isPressed()) return Look::Pressed;
    return isHovered() ? Look::Hovered : Look::Plain;
}

void VxT2DAxis::drawTurnedHandles() const {
    const TransformLevel level;
    rotate(rotation);
    drawAspectGuides();
    drawScaleBox();
    drawAspectHandle();
    drawRotateHandle();
}

void VxT2DAxis::drawAspectGuides() const {
    if (lookOf(kAspect) == Look::Plain) return;
    const float length = uiScale * kGuideLength;
    drawStippledLine(0.0f, 0.0f, length, 0.0f, paletteBlue, paletteWhite);
    drawStippledLine(0.0f, 0.0f, 0.0f, length, paletteBlue, paletteWhite);
}

void VxT2DAxis::drawScaleBox() const {
    if (!(shownHandles() & kAnyScale)) return;
    const VxPosition corner = boxCorner();
    const Look lookX = lookOf(kScaleUniform | kScaleX), lookY = lookOf(kScaleUniform | kScaleY);
    for (const float side : {-1.0f, 1.0f}) {
        const float x = side * corner.x, y = side * corner.y;
        drawHandleLine({x, -corner.y}, {x, corner.y}, paletteBlue, lookX);
        drawHandleLine({-corner.x, y}, {corner.x, y}, paletteBlue, lookY);
    }
}

void VxT2DAxis::drawAspectHandle() const {
    if (!(shownHandles() & kAspect)) return;
    const VxColour& ink = activeHandle == kAspect ? paletteWhite : paletteBlue;
    const VxPosition handle = aspectHandle();
    setColour(ink);
    drawLine(0.0f, 0.0f, handle.x, handle.y);
    drawDot(handle.x, handle.y, uiScale * kDotRadius, ink, dotOutline());
}

VxColour VxT2DAxis::dotOutline() const {
    return activeHandle == kAspect ? paletteWhite : paletteDark;
}

void VxT2DAxis::drawRotateHandle() const {
    if (!(shownHandles() & kRotate)) return;
    const Look look = lookOf(kRotate);
    const float radius = uiScale * kArcRadius, end = uiScale * kArcEndPosition;
    if (look == Look::Plain) {
        setColour(paletteGreen);
        drawLine(0.0f, 0.0f, radius, 0.0f);
        drawArc(0.0f, 0.0f, radius, -kArcEnd, kArcEnd);
    } else {
        drawStippledLine(0.0f, 0.0f, radius, 0.0f, paletteGreen, paletteWhite);
        drawStippledArc(0.0f, 0.0f, radius, -kArcEnd, kArcEnd, paletteGreen, paletteWhite);
    }
    for (const float side : {1.0f, -1.0f}) {
        drawHandleArrow({end, side * end}, {-1.0f, side * kArcHeadSlope}, kArcHeadHalfWidth,
                        paletteGreen, look);
    }
}

void VxT2DAxis::drawCentreDot() const {
    if ((handles & kCentre) || (axisFlags & kShowsAll)) return;
    const VxColour& ink = handles ? paletteBlue : paletteGreen;
    drawDot(0.0f, 0.0f, uiScale * kDotRadius, ink, dotOutline());
}

void VxT2DAxis::drawTranslateAxes() const {
    if (axisFlags & kNoHitTest) return;
    drawTranslateAxis(kTranslateX, {1.0f, 0.0f});
    drawTranslateAxis(kTranslateY, {0.0f, 1.0f});
}

void VxT2DAxis::drawTranslateAxis(std::uint32_t handle, VxPosition direction) const {
    if (!(shownHandles() & handle)) return;
    const Look look = lookOf(handle);
    for (const float side : {1.0f, -1.0f}) {
        const float start = side * uiScale * kAxisStart, end = side * uiScale * kHandleLength;
        const VxPosition headTip{direction.x * end, direction.y * end};
        drawHandleLine({direction.x * start, direction.y * start}, headTip, paletteRed, look);
        drawHandleArrow(headTip, {side * direction.x, side * direction.y}, kAxisHeadHalfWidth,
                        paletteRed, look);
    }
}

void VxT2DAxis::drawHandleLine(VxPosition from, VxPosition to, const VxColour& ink, Look look) {
    if (look == Look::Hovered) {
        drawStippledLine(from.x, from.y, to.x, to.y, ink, paletteWhite);
    } else {
        setColour(look == Look::Pressed ? paletteWhite : ink);
        drawLine(from.x, from.y, to.x, to.y);
    }
}

void VxT2DAxis::drawHandleArrow(VxPosition headTip, VxPosition direction, float halfWidth,
                                const VxColour& ink, Look look) const {
    const VxPosition headSize{uiScale * kHeadLength, uiScale * halfWidth};
    drawArrow(headTip, direction, headSize, look == Look::Pressed ? paletteWhite : ink,
              look == Look::Plain ? ink : paletteWhite);
}

void VxT2DAxis::drawName() const {
    if (!(axisFlags & kShowName) || !name) return;
    const int length = static_cast<int>(name->size());
    const float shadow = uiScale * kNameShadow, text = uiScale * kNameText;
    setColour(kBlack);
    drawTextRaw(name->c_str(), length, shadow, shadow);
    setColour(paletteText);
    drawTextRaw(name->c_str(), length, text, text);
}

}  // namespace ruvex
