#include <cmath>

#include "overlay/plane.h"
#include "overlay/vx_t_2d_axis.h"

namespace ruvex {
namespace {

float angleFrom(VxPosition centre, VxPosition point) {
    return std::atan2(point.y - centre.y, point.x - centre.x);
}

/// From one angle to another, both in radians, the shorter way round. In degrees, -180..180.
float degreesBetween(float from, float to) {
    const float degrees = toDegrees(to - from);
    if (degrees > 180.0f) return degrees - 360.0f;
    if (degrees < -180.0f) return degrees + 360.0f;
    return degrees;
}

/// The aspect at which the box's corner lies in the pen's direction. `pen` is the pen's position
/// from the centre, divided by the scales. If it is negative on X or Y, the result is the limit, -1
/// or 1, with the sign of `aspectNow`, or 0 if that is 0.
float aspectFor(VxPosition pen, float aspectNow) {
    if (pen.x < 0.0f || pen.y < 0.0f) {
        if (aspectNow < 0.0f) return -1.0f;
        return aspectNow > 0.0f ? 1.0f : aspectNow;
    }
    return pen.y > pen.x ? pen.x / pen.y - 1.0f : 1.0f - pen.y / pen.x;
}

}  // namespace

void VxT2DAxis::send(VxMessageId id) {
    VxMessage message(id);
    message.setNumber(static_cast<std::int32_t>(activeHandle));
    VxMessageSender::send(message);
}

std::int32_t VxT2DAxis::penDown(const VxPosition& where) {
    if (activeHandle == kNoHandle) return 0;
    send(VxMessageId::DragBegins);
    lastPen = where;
    if (activeHandle & kRotate) lastAngle = angleFrom(centre, where);
    if (activeHandle & (kAnyScale | kAspect)) {
        const Turn back(-rotation);
        dragSin = back.sine;
        dragCos = back.cosine;
    }
    return VxTObject::penDown(where);
}

std::int32_t VxT2DAxis::drag(const VxPosition& where) {
    if (activeHandle & kCentre) {
        dragCentre(where);
    } else if (activeHandle & kRotate) {
        dragRotation(where);
    } else if (activeHandle & kScaleUniform) {
        dragUniformScale(turnedBack(where));
    } else if (activeHandle & kScaleX) {
        dragScaleX(turnedBack(where));
    } else if (activeHandle & kScaleY) {
        dragScaleY(turnedBack(where));
    } else if (activeHandle & kAspect) {
        dragAspect(turnedBack(where));
    }
    send(VxMessageId::ValueChanged);
    axisFlags |= kMatricesOutdated;
    return 1;
}

void VxT2DAxis::dragCentre(const VxPosition& where) {
    const VxPosition delta = where - lastPen;
    lastPen = where;
    if (activeHandle & kTranslateX) centre.x += delta.x;
    if (activeHandle & kTranslateY) centre.y += delta.y;
    transformChanged();
}

void VxT2DAxis::dragRotation(const VxPosition& where) {
    const float angle = angleFrom(centre, where);
    rotation += degreesBetween(lastAngle, angle);
    lastAngle = angle;
    transformChanged();
}

VxPosition VxT2DAxis::turnedBack(const VxPosition& where) const {
    const VxPosition e = where - centre;
    return {dragCos * e.x - dragSin * e.y, dragCos * e.y + dragSin * e.x};
}

// The divisions below may be by 0: a scale then becomes infinite or no number.

void VxT2DAxis::dragUniformScale(VxPosition pen) {
    const float length = uiScale * kHandleLength;
    const float x = pen.x / scaleX, y = pen.y / scaleY;
    if (std::fabs(x) > std::fabs(y)) {
        scaleUniform = flipped & kScaleX ? -(x / length) : x / length;
    } else {
        scaleUniform = flipped & kScaleY ? -(y / length) : y / length;
    }
    transformChanged();
}

void VxT2DAxis::dragScaleX(VxPosition pen) {
    const float scale = pen.x / scaleUniform / (uiScale * kHandleLength);
    scaleX = flipped & kScaleX ? -scale : scale;
    transformChanged();
}

void VxT2DAxis::dragScaleY(VxPosition pen) {
    const float scale = pen.y / scaleUniform / (uiScale * kHandleLength);
    scaleY = flipped & kScaleY ? -scale : scale;
    transformChanged();
}

void VxT2DAxis::dragAspect(VxPosition pen) {
    aspect = aspectFor({pen.x / scaleX, pen.y / scaleY}, aspect);
    transformChanged();
}

std::int32_t VxT2DAxis::penUp() {
    send(VxMessageId::DragEnded);
    activeHandle = kNoHandle;
    return VxTObject::penUp();
}

std::int32_t VxT2DAxis::penEnter(const VxPosition& where) {
    return VxTObject::penEnter(where);
}

std::int32_t VxT2DAxis::penLeave() {
    activeHandle = kNoHandle;
    return VxTObject::penLeave();
}

}  // namespace ruvex
