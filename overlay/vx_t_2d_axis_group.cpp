#include "overlay/vx_t_2d_axis_group.h"

#include <cmath>

#include "overlay/plane.h"
#include "overlay/transform_level.h"

namespace ruvex {

VxT2DAxisGroup::VxT2DAxisGroup(const char* objectName, std::uint32_t handleMask)
    : VxT2DAxis(objectName, handleMask) {
    makeEmpty(childBounds);
}

VxT2DAxisGroup::~VxT2DAxisGroup() {
    // Removing a child calls virtual functions of this class, so it can't wait for the base's
    // destructor.
    setParent(nullptr);
    fixed.clear();
    transformed.clear();
}

void VxT2DAxisGroup::enterTransform() {
    rebuild();
    pushMatrix();
    multiplyMatrix(matrix);
}

void VxT2DAxisGroup::enterLocal(const VxPosition&, const VxPosition&) {
    enterTransform();
}

void VxT2DAxisGroup::leaveLocal() {
    popMatrix();
}

VxHit VxT2DAxisGroup::hit(const VxPosition& where, const VxPosition& radius) {
    VxPosition local;
    toLocal(local, where);
    const VxPosition scale = scaleFactors();
    const VxPosition localRadius{radius.x / std::fabs(scale.x), radius.y / std::fabs(scale.y)};
    VxHit result = hitList(transformed, local, localRadius);
    if (result == kMiss) result = hitList(fixed, local, localRadius);
    return result == kMiss && (groupFlags & kHasAxis) ? VxT2DAxis::hit(where, radius) : result;
}

VxHit VxT2DAxisGroup::hitList(VxTContainer& list, const VxPosition& local,
                              const VxPosition& localRadius) {
    const VxHit result = list.hitChildren(local, localRadius);
    focus = list.focus;
    return result;
}

void VxT2DAxisGroup::draw() {
    if (groupFlags & kHasAxis) {
        const TransformLevel level;
        if (drawGlobal) loadMatrixIntoGl();
        VxT2DAxis::draw();
    }
    enterTransform();
    fixed.drawAll();
    popMatrix();
    drawTransformed();
}

void VxT2DAxisGroup::drawTransformed() {
    const TransformLevel level;
    const std::uint32_t shown = shownHandles();
    const VxPosition shift = shownCentre();
    translate(shift.x, shift.y);
    if (shown & kRotate) rotate(rotation);
    if (shown & (kAnyScale | kAspect)) {
        const VxPosition factors = scaleFactors();
        scale(factors.x, factors.y);
    }
    transformed.drawAll();
}

void VxT2DAxisGroup::childChanged(VxTObject* child) {
    if (!child) return;
    makeEmpty(childBounds);
    VxExtent extents[2];
    const BoundsState states[2] = {transformed.getBounds(extents[0]), fixed.getBounds(extents[1])};
    const bool allHave =
        states[0] != BoundsState::SomeWithout && states[1] != BoundsState::SomeWithout;
    for (int list = 0; list < 2; ++list) {
        if (!allHave || states[list] == BoundsState::NoChildren) continue;
        includePoint(childBounds, extents[list][0], extents[list][2]);
        includePoint(childBounds, extents[list][1], extents[list][3]);
    }
    setFlag(kHasBounds, allHave);
    updateBounds();
}

void VxT2DAxisGroup::getExtent(VxExtent& out) {
    VxT2DAxis::getExtent(out);
    const bool isEmpty = transformed.children.empty() && fixed.children.empty();
    if (isEmpty || !(flags & kHasBounds)) return;
    rebuild();
    for (const float x : {childBounds[0], childBounds[1]}) {
        for (const float y : {childBounds[2], childBounds[3]}) {
            const VxPosition corner = ruvex::transformed({x, y}, matrix);
            includePoint(out, corner.x, corner.y);
        }
    }
}

void VxT2DAxisGroup::setManager(VxTManager* newManager) {
    VxTObject::setManager(newManager);
    transformed.setManagerForAll(newManager);
    fixed.setManagerForAll(newManager);
}

std::int32_t VxT2DAxisGroup::addChild(VxTObject* child) {
    if (!child || transformed.find(child) || fixed.find(child) || isWithin(*child)) return 0;
    child->setParent(nullptr);
    (addToFixed ? fixed : transformed).add(child);
    child->parent = this;
    child->setManager(manager);
    childChanged(child);
    return 1;
}

std::int32_t VxT2DAxisGroup::removeChild(VxTObject* child) {
    if (!transformed.remove(child) && !fixed.remove(child)) return 0;
    child->setParent(nullptr);
    childChanged(child);
    return 1;
}

VxTObject* VxT2DAxisGroup::setFocus(VxTObject* child) {
    VxTContainer& list = transformed.find(child) ? transformed : fixed;
    list.focus = VxTObject::setFocus(child);
    return focus;
}

}  // namespace ruvex
