#include "overlay/vx_t_rectangle.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace ruvex {
namespace {

/// Half the length of the arms of the centre cross.
constexpr float kCrossArm = 20.0f;

VxPosition centreOf(const VxRect& rect) {
    return {(rect.x0 + rect.x1) * 0.5f, (rect.y0 + rect.y1) * 0.5f};
}

float clampTo(float value, float low, float high) {
    if (value < low) return low;
    return value > high ? high : value;
}

/// A movement along one axis, cut so that `low` and `high` stay within their limits.
float cutMove(float delta, float low, float high, float lowest, float highest) {
    if (delta > 0.0f) return std::min(delta, highest - high);
    return delta < 0.0f ? std::max(delta, lowest - low) : delta;
}

}  // namespace

VxTRectangle::VxTRectangle(const char* objectName, float x0, float y0, float x1, float y1)
    : VxTObject(objectName) {
    VxTRectangle::setRect(x0, y0, x1, y1);
    colour = paletteRed;
}

VxRect VxTRectangle::storeRect(VxRect corners) {
    if (corners.x0 > corners.x1) std::swap(corners.x0, corners.x1);
    if (corners.y0 > corners.y1) std::swap(corners.y0, corners.y1);
    rect = corners;
    if ((limitFlags & kLimited) == 0) return corners;
    rect.x0 = clampTo(rect.x0, limits.x0, limits.x1);
    rect.x1 = clampTo(rect.x1, limits.x0, limits.x1);
    rect.y0 = clampTo(rect.y0, limits.y0, limits.y1);
    rect.y1 = clampTo(rect.y1, limits.y0, limits.y1);
    return corners;
}

void VxTRectangle::setRect(float x0, float y0, float x1, float y1) {
    const VxRect given = storeRect({x0, y0, x1, y1});
    // The bounds are those of the corners before the limits.
    position = {given.x0, given.y0};
    size = {given.x1 - given.x0, given.y1 - given.y0};
    if (parent) parent->childChanged(this);
}

std::uint32_t VxTRectangle::edgesAt(const VxPosition& where, const VxPosition& radius,
                                    const VxRect& range) const {
    std::uint32_t edges = 0;
    if (where.y > range.y0 - radius.y && where.y < range.y1 + radius.y) {
        if (std::fabs(where.x - rect.x0) < radius.x) {
            edges |= kLeft;
        } else if (std::fabs(where.x - rect.x1) < radius.x) {
            edges |= kRight;
        }
    }
    if (where.x > range.x0 - radius.x && where.x < range.x1 + radius.x) {
        if (std::fabs(where.y - rect.y1) < radius.y) {
            edges |= kTop;
        } else if (std::fabs(where.y - rect.y0) < radius.y) {
            edges |= kBottom;
        }
    }
    return edges;
}

std::uint32_t VxTRectangle::crossAt(const VxPosition& where, const VxPosition& radius) const {
    const VxPosition centre = centreOf(rect);
    const VxPosition d{where.x - centre.x, where.y - centre.y};
    // Both arms are lengthened by the radius in X.
    const auto isAlongArm = [&](float along) {
        return along > -kCrossArm - radius.x && along < kCrossArm + radius.x;
    };
    std::uint32_t arms = 0;
    if (std::fabs(d.y) < radius.y && isAlongArm(d.x)) arms |= kMoveX;
    if (std::fabs(d.x) < radius.x && isAlongArm(d.y)) arms |= kMoveY;
    return arms;
}

VxHit VxTRectangle::activate(std::uint32_t newHandle) {
    if (newHandle == 0) {
        handle = 0;
        focus = nullptr;
        return kMiss;
    }
    if (newHandle != handle) requestRedraw();
    handle = newHandle;
    focus = this;
    return hitOn(*this);
}

VxHit VxTRectangle::hit(const VxPosition& where, const VxPosition& radius) {
    const std::uint32_t edges = edgesAt(where, radius, rect);
    return activate(edges != 0 ? edges : crossAt(where, radius));
}

VxRect VxTRectangle::dragged(VxPosition delta) const {
    VxRect moved = rect;
    if (handle & kLeft) {
        moved.x0 = std::min(moved.x0 + delta.x, moved.x1);
    } else if (handle & kRight) {
        moved.x1 = std::max(moved.x1 + delta.x, moved.x0);
    }
    if (handle & kBottom) {
        moved.y0 = std::min(moved.y0 + delta.y, moved.y1);
    } else if (handle & kTop) {
        moved.y1 = std::max(moved.y1 + delta.y, moved.y0);
    }
    const bool limited = (limitFlags & kLimited) != 0;
    if (handle & kMoveX) {
        if (limited) delta.x = cutMove(delta.x, rect.x0, rect.x1, limits.x0, limits.x1);
        moved.x0 += delta.x;
        moved.x1 += delta.x;
    }
    if (handle & kMoveY) {
        if (limited) delta.y = cutMove(delta.y, rect.y0, rect.y1, limits.y0, limits.y1);
        moved.y0 += delta.y;
        moved.y1 += delta.y;
    }
    return moved;
}

std::int32_t VxTRectangle::drag(const VxPosition& where) {
    const VxPosition delta{where.x - lastPen.x, where.y - lastPen.y};
    lastPen = where;
    const VxRect moved = dragged(delta);
    if (moved == rect) return 0;
    setRect(moved.x0, moved.y0, moved.x1, moved.y1);
    VxMessage message(VxMessageId::ValueChanged);
    send(message);
    return 1;
}

std::int32_t VxTRectangle::penDown(const VxPosition& where) {
    VxMessage message(VxMessageId::DragBegins);
    send(message);
    lastPen = where;
    return VxTObject::penDown(where);
}

std::int32_t VxTRectangle::penUp() {
    VxMessage message(VxMessageId::DragEnded);
    send(message);
    return VxTObject::penUp();
}

void VxTRectangle::drawHandleLine(const VxRect& line, const VxColour& lineColour,
                                  bool active) const {
    const VxColour& handleColour = active ? paletteWhite : lineColour;
    if (isHovered() && !isPressed()) {
        drawStippledLine(line.x0, line.y0, line.x1, line.y1, lineColour, handleColour);
        return;
    }
    setColour(isPressed() ? handleColour : lineColour);
    drawLine(line.x0, line.y0, line.x1, line.y1);
}

void VxTRectangle::drawCross() const {
    const VxPosition centre = centreOf(rect);
    const auto drawArm = [&](const VxRect& arm, Handle move) {
        drawHandleLine(arm, colour, (handle & move) != 0);
    };
    drawArm({centre.x - kCrossArm, centre.y, centre.x + kCrossArm, centre.y}, kMoveX);
    drawArm({centre.x, centre.y - kCrossArm, centre.x, centre.y + kCrossArm}, kMoveY);
}

void VxTRectangle::drawEdges() const {
    if (!isHovered() && !isPressed()) {
        setColour(colour);
        drawRectOutline(rect.x0, rect.y0, rect.x1, rect.y1);
        return;
    }
    const auto drawEdge = [&](const VxRect& edge, Handle which) {
        drawHandleLine(edge, colour, (handle & which) != 0);
    };
    drawEdge({rect.x0, rect.y0, rect.x0, rect.y1}, kLeft);
    drawEdge({rect.x1, rect.y0, rect.x1, rect.y1}, kRight);
    drawEdge({rect.x0, rect.y0, rect.x1, rect.y0}, kBottom);
    drawEdge({rect.x0, rect.y1, rect.x1, rect.y1}, kTop);
}

void VxTRectangle::draw() {
    const BlendBracket smooth(BlendBracket::Lines);
    drawCross();
    drawEdges();
}

}  // namespace ruvex
