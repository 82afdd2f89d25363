#include "overlay/vx_t_ds_crop.h"

#include "host/base/picture_geometry.h"
#include "overlay/vx_t_interact.h"
#include "overlay/whole_units.h"
#include "sdk/effect/content.h"
#include "sdk/properties/properties.h"

namespace ruvex {
namespace {

constexpr float kCropLineWidth = 2.0f;
constexpr float kDefaultLineWidth = 1.0f;
constexpr VxColour kLeftColour{0.9f, 0.9f, 0.1f};
constexpr VxColour kRightColour{0.1f, 0.9f, 0.9f};
constexpr VxColour kBottomColour{0.9f, 0.1f, 0.9f};
constexpr VxColour kTopColour{1.0f, 0.5f, 0.2f};

float fromPercent(double percent, float lowest, float highest) {
    return lowest + (highest - lowest) * static_cast<float>(percent) / 100.0f;
}

double toPercent(float value, float lowest, float highest) {
    return (value - lowest) * 100.0f / (highest - lowest);
}

}  // namespace

VxTDsCrop::VxTDsCrop() : VxTCropBox("Crop Box", 0.0f, 0.0f, 1.0f, 1.0f) {
    limitFlags |= kLimited;
    watched = this;
    connect(this, this);
    const double width = projectSize(kDSProjectUserSizeX) * projectAspect();
    limits = {0.0f, 0.0f, static_cast<float>(wholeUnits(width)),
              static_cast<float>(wholeUnits(projectSize(kDSProjectUserSizeY)))};
}

void VxTDsCrop::setProperties(const GUID& left, const GUID& right, const GUID& bottom,
                              const GUID& top) {
    leftProperty = left;
    rightProperty = right;
    bottomProperty = bottom;
    topProperty = top;
}

void VxTDsCrop::setRect(float x0, float y0, float x1, float y1) {
    storeRect({x0, y0, x1, y1});
    position = {limits.x0, limits.y0};
    size = {limits.x1 - limits.x0, limits.y1 - limits.y0};
    if (parent) parent->childChanged(this);
}

VxHit VxTDsCrop::hit(const VxPosition& where, const VxPosition& radius) {
    return activate(edgesAt(where, radius, limits));
}

void VxTDsCrop::draw() {
    setLineWidth(kCropLineWidth);
    const auto drawEdge = [&](const VxRect& line, const VxColour& edgeColour, Handle edge) {
        drawHandleLine(line, edgeColour, (handle & edge) != 0);
    };
    drawEdge({rect.x0, limits.y0, rect.x0, limits.y1}, kLeftColour, kLeft);
    drawEdge({rect.x1, limits.y0, rect.x1, limits.y1}, kRightColour, kRight);
    drawEdge({limits.x0, rect.y0, limits.x1, rect.y0}, kBottomColour, kBottom);
    drawEdge({limits.x0, rect.y1, limits.x1, rect.y1}, kTopColour, kTop);
    setLineWidth(kDefaultLineWidth);
}

float VxTDsCrop::toX(double percent) const {
    return fromPercent(percent, limits.x0, limits.x1);
}

float VxTDsCrop::toY(double percent) const {
    return fromPercent(percent, limits.y0, limits.y1);
}

void VxTDsCrop::readAt(double seconds) {
    double left = 0.0;
    double right = 0.0;
    double bottom = 0.0;
    double top = 0.0;
    if (!tool || !tool->GetAnimatedDouble(leftProperty, &left, seconds) ||
        !tool->GetAnimatedDouble(rightProperty, &right, seconds) ||
        !tool->GetAnimatedDouble(bottomProperty, &bottom, seconds) ||
        !tool->GetAnimatedDouble(topProperty, &top, seconds)) {
        return;
    }
    setRect(toX(left), toY(bottom), toX(right), toY(top));
}

void VxTDsCrop::timeChanged(double seconds) {
    readAt(seconds);
}

void VxTDsCrop::readProperties() {
    readAt(DSTIME_CURRENT);
}

std::int32_t VxTDsCrop::propertyChanged(const GUID& id, const DSVARIANT* value) {
    const auto changed = [&](const GUID& property, double& percent) {
        if (!value) return tool && tool->GetAnimatedDoubleIfChanged(id, property, &percent);
        if (id != property && id != GUID_AllProperties) return false;
        if (value->vt != VT_R8) return false;
        percent = value->dblVal;
        return true;
    };
    VxRect moved = rect;
    double percent = 0.0;
    bool any = false;
    const auto update = [&](const GUID& property, float& edge,
                            float (VxTDsCrop::*convert)(double) const) {
        if (!changed(property, percent)) return;
        edge = (this->*convert)(percent);
        any = true;
    };
    update(leftProperty, moved.x0, &VxTDsCrop::toX);
    update(rightProperty, moved.x1, &VxTDsCrop::toX);
    update(bottomProperty, moved.y0, &VxTDsCrop::toY);
    update(topProperty, moved.y1, &VxTDsCrop::toY);
    if (!any) return 0;
    setRect(moved.x0, moved.y0, moved.x1, moved.y1);
    return 1;
}

void VxTDsCrop::writeProperties() {
    if (!tool) return;
    // A write may be answered by a read, which sorts and moves the lines: take the values first.
    struct Write {
        Handle edge;
        const GUID& property;
        double percent;
    };
    const std::uint32_t edges = handle;
    const Write writes[] = {
        {kLeft, leftProperty, toPercent(rect.x0, limits.x0, limits.x1)},
        {kRight, rightProperty, toPercent(rect.x1, limits.x0, limits.x1)},
        {kBottom, bottomProperty, toPercent(rect.y0, limits.y0, limits.y1)},
        {kTop, topProperty, toPercent(rect.y1, limits.y0, limits.y1)},
    };
    for (const Write& write : writes) {
        if (tool && (edges & write.edge) != 0)
            tool->SetAnimatedDouble(write.property, write.percent);
    }
}

}  // namespace ruvex
