#include "overlay/vx_t_2d_axis.h"

#include <algorithm>
#include <cstdio>

#include "overlay/plane.h"

namespace ruvex {
namespace {

/// For the extent: half the width of an axis to translate by, and what is added to the position of
/// the aspect's handle on both axes.
constexpr float kMargin = 3.0f;
/// From the corner of the scale box to the aspect's handle.
constexpr float kAspectGap = 10.0f;
constexpr std::uint32_t kAllButAspect = 63;

/// What a drag of this handle does, for the tool-tip; null for no handle.
const char* verbOf(std::uint32_t handle) {
    switch (handle) {
        case VxT2DAxis::kTranslateX:
        case VxT2DAxis::kTranslateY:
        case VxT2DAxis::kCentre:
            return "Translates";
        case VxT2DAxis::kScaleUniform:
        case VxT2DAxis::kScaleX:
        case VxT2DAxis::kScaleY:
        case VxT2DAxis::kScaleX | VxT2DAxis::kScaleY:
            return "Scales";
        case VxT2DAxis::kRotate:
            return "Rotates";
        case VxT2DAxis::kAspect:
            return "Aspects";
        default:
            return nullptr;
    }
}

/// The four points (+-x, +-y), turned.
void includeBox(VxExtent& extent, VxPosition corner, const Turn& turn) {
    for (const VxPosition point : {corner, VxPosition{-corner.x, corner.y}}) {
        const VxPosition turned = turn(point);
        includePoint(extent, turned.x, turned.y);
        includePoint(extent, -turned.x, -turned.y);
    }
}

}  // namespace

VxT2DAxis::VxT2DAxis(const char* objectName, std::uint32_t handleMask)
    : VxTObject(objectName), handles(handleMask) {
    setFlag(kMovable, false);
    setFlag(kSizeable, false);
    // A constructor calls this class's `getExtent`. A derived class calls `updateBounds` again when
    // it gets children.
    VxT2DAxis::updateBounds();
}

void VxT2DAxis::setCentre(float x, float y) {
    const bool allowed = (handles & kCentre) == kCentre || (axisFlags & kShowsAll);
    if (!allowed || centre == VxPosition{x, y}) return;
    centre = {x, y};
    transformChanged();
}

void VxT2DAxis::transformChanged() {
    axisFlags |= kMatricesOutdated;
    updateBounds();
}

void VxT2DAxis::updateBounds() {
    VxExtent extent;
    getExtent(extent);
    setBounds(extent);
}

void VxT2DAxis::setUiScale(float newScale) {
    VxTObject::setUiScale(newScale);
    updateBounds();
}

void VxT2DAxis::rebuild() {
    if (!(axisFlags & kMatricesOutdated)) return;
    matrix = planeMatrix(scaleFactors(), rotation, centre);
    inverse = invert(matrix);
    axisFlags &= ~kMatricesOutdated;
}

void VxT2DAxis::toLocal(VxPosition& out, const VxPosition& where) {
    rebuild();
    out = transformed(where, inverse);
}

VxPosition VxT2DAxis::aspectFactors() const {
    return {aspect < 0.0f ? 1.0f - std::clamp(-aspect, 0.0f, 1.0f) : 1.0f,
            aspect > 0.0f ? 1.0f - std::min(aspect, 1.0f) : 1.0f};
}

VxPosition VxT2DAxis::scaleFactors() const {
    const VxPosition factors = aspectFactors();
    return {scaleUniform * scaleX * factors.x, scaleUniform * scaleY * factors.y};
}

VxPosition VxT2DAxis::aspectHandle() const {
    const float length = uiScale * kHandleLength;
    if (!(handles & kAnyScale)) {
        const VxPosition factors = aspectFactors();
        return {factors.x * length, factors.y * length};
    }
    const VxPosition scale = scaleFactors();
    const VxPosition corner{scale.x * length, scale.y * length};
    const float distance = std::hypot(corner.x, corner.y);
    if (distance == 0.0f) return corner;
    const float gap = kAspectGap * uiScale;
    return {corner.x + gap * (corner.x / distance), corner.y + gap * (corner.y / distance)};
}

VxPosition VxT2DAxis::boxCorner() const {
    const float uniform = scaleUniform * kHandleLength * uiScale;
    return {uniform * scaleX, uniform * scaleY};
}

std::uint32_t VxT2DAxis::shownHandles() const {
    return axisFlags & kShowsAll ? kAllButAspect : handles;
}

VxPosition VxT2DAxis::shownCentre() const {
    const std::uint32_t shown = shownHandles();
    return {shown & kTranslateX ? centre.x : 0.0f, shown & kTranslateY ? centre.y : 0.0f};
}

void VxT2DAxis::getExtent(VxExtent& out) {
    makeEmpty(out);
    const std::uint32_t shown = shownHandles();
    if (shown == 0) {
        includePoint(out, uiScale * centre.x, uiScale * centre.y);
        return;
    }
    const Turn none(0.0f), turn(rotation);
    const float length = uiScale * kHandleLength, arc = uiScale * kArcRadius;
    if (shown & kTranslateX) includeBox(out, {length, kMargin}, none);
    if (shown & kTranslateY) includeBox(out, {kMargin, length}, none);
    if (shown & kRotate) includeBox(out, {arc, arc}, none);
    if (shown & kAnyScale) includeBox(out, boxCorner(), turn);
    if (shown & kAspect) {
        // The margin is added to the position on both axes; there is none to the left and below.
        const VxPosition handle = turn(aspectHandle());
        includePoint(out, handle.x + kMargin, handle.y + kMargin);
    }
    out[0] += centre.x;
    out[1] += centre.x;
    out[2] += centre.y;
    out[3] += centre.y;
}

void VxT2DAxis::drawTip(const VxPosition& where) {
    char text[kTipSize];
    if (getTipText(text)) drawText(text, where.x, where.y);
}

bool VxT2DAxis::getTipText(char (&out)[kTipSize]) const {
    const char* const verb = verbOf(activeHandle);
    if (!tip || isPressed() || !verb) return false;
    std::snprintf(out, sizeof out, "%s the %s.", verb, tip->c_str());
    return true;
}

}  // namespace ruvex
