#include <cmath>

#include "overlay/plane.h"
#include "overlay/vx_t_2d_axis.h"

namespace ruvex {
namespace {

/// Added to the pen's radius around the centre and the aspect's handle.
constexpr float kTolerance = 3.0f;
/// The arc to rotate by reaches so far to both sides of the X axis: 45 degrees, in radians.
constexpr float kArcHalf = 0.7853982f;

bool isNear(VxPosition a, VxPosition b, VxPosition reach) {
    return std::fabs(a.x - b.x) < reach.x && std::fabs(a.y - b.y) < reach.y;
}

/// The handle if scale and position have opposite signs, else 0.
std::uint32_t flippedHandle(std::uint32_t handle, float scale, float position) {
    const bool opposite = (scale < 0.0f && position > 0.0f) || (scale > 0.0f && position < 0.0f);
    return opposite ? handle : 0;
}

}  // namespace

VxHit VxT2DAxis::hit(const VxPosition& where, const VxPosition& radius) {
    const std::uint32_t handle =
        axisFlags & kNoHitTest ? kNoHandle : handleAt(where - centre, radius);
    if (handle != kNoHandle) return activate(handle);
    focus = nullptr;
    activeHandle = kNoHandle;
    return kMiss;
}

VxHit VxT2DAxis::activate(std::uint32_t handle) {
    if (focus != this || activeHandle != handle) requestRedraw();
    focus = this;
    activeHandle = handle;
    return hitOn(*this);
}

std::uint32_t VxT2DAxis::handleAt(VxPosition fromCentre, const VxPosition& radius) {
    const VxPosition reach{radius.x + kTolerance, radius.y + kTolerance};
    const VxPosition turned = Turn(-rotation)(fromCentre);
    if ((handles & kAspect) && isNear(aspectHandle(), turned, reach)) return kAspect;
    if ((handles & kCentre) == kCentre && isNear(fromCentre, {}, reach)) return kCentre;
    if ((handles & kRotate) && arcIsAt(turned, radius)) return kRotate;
    if (const std::uint32_t handle = scaleHandleAt(turned, radius)) return handle;
    const float length = uiScale * kHandleLength;
    if ((handles & kTranslateY) && isNear(fromCentre, {}, {radius.x, length + radius.y}))
        return kTranslateY;
    if ((handles & kTranslateX) && isNear(fromCentre, {}, {length + radius.x, radius.y}))
        return kTranslateX;
    return kNoHandle;
}

bool VxT2DAxis::arcIsAt(VxPosition turned, const VxPosition& radius) const {
    if (!(std::fabs(std::hypot(turned.x, turned.y) - uiScale * kArcRadius) < radius.x))
        return false;
    const float angle = std::atan2(turned.y, turned.x);
    return angle >= -kArcHalf && angle <= kArcHalf;
}

std::uint32_t VxT2DAxis::scaleHandleAt(VxPosition turned, const VxPosition& radius) {
    const VxPosition scale = scaleFactors();
    const float length = uiScale * kHandleLength;
    const float u = turned.x / scale.x, v = turned.y / scale.y;
    const bool onX = std::fabs(std::fabs(u) - length) < radius.x / std::fabs(scale.x);
    const bool onY = std::fabs(std::fabs(v) - length) < radius.y / std::fabs(scale.y);
    const std::uint32_t flippedX = flippedHandle(kScaleX, scale.x, turned.x);
    const std::uint32_t flippedY = flippedHandle(kScaleY, scale.y, turned.y);
    if ((handles & kScaleUniform) && onX && onY) {
        flipped = flippedX | flippedY;
        return kScaleUniform;
    }
    if ((handles & kScaleX) && onX && -length < v && v < length) {
        flipped = flippedX;
        return kScaleX;
    }
    if ((handles & kScaleY) && onY && -length < u && u < length) {
        flipped = flippedY;
        return kScaleY;
    }
    return kNoHandle;
}

}  // namespace ruvex
