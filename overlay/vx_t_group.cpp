#include "overlay/vx_t_group.h"

namespace ruvex {

VxTGroup::VxTGroup(const char* objectName) : VxTObject(objectName) {
    setFlag(kMovable, false);
    setFlag(kSizeable, false);
}

VxTGroup::~VxTGroup() {
    // Removing a child calls virtual functions of this class, so it can't wait for the base's
    // destructor.
    setParent(nullptr);
    clear();
}

VxHit VxTGroup::hit(const VxPosition& where, const VxPosition& radius) {
    const VxHit result = hitChildren(where, radius);
    focus = VxTContainer::focus;
    if (result != kMiss) return result;
    return groupFlags & kSwallowHits ? kHitNothing : kMiss;
}

void VxTGroup::draw() {
    if (groupFlags & kDrawBackground) drawBackground();
    drawAll();
}

void VxTGroup::drawBackground() {
    setColour(groupFlags & kUseGlobalGrey ? paletteGrey : background);
    drawFilledRect(position.x, position.y, position.x + size.x, position.y + size.y);
}

std::int32_t VxTGroup::drag(const VxPosition&) {
    return 0;
}

std::int32_t VxTGroup::penDown(const VxPosition&) {
    return 0;
}

std::int32_t VxTGroup::penUp() {
    return 0;
}

std::int32_t VxTGroup::penEnter(const VxPosition&) {
    return 0;
}

std::int32_t VxTGroup::penLeave() {
    return 0;
}

void VxTGroup::childChanged(VxTObject*) {
    VxExtent extent;
    getBounds(extent);
    setFlag(kHasBounds, boundsState != BoundsState::SomeWithout);
    setBounds(extent);
}

void VxTGroup::toLocal(VxPosition& out, const VxPosition& where) {
    out = where;
}

void VxTGroup::setManager(VxTManager* newManager) {
    VxTObject::setManager(newManager);
    setManagerForAll(newManager);
}

std::int32_t VxTGroup::addChild(VxTObject* child) {
    if (!child || find(child) || isWithin(*child)) return 0;
    child->setParent(nullptr);
    const bool isFirst = children.empty();
    add(child);
    setFlag(kHasBounds, boundsState != BoundsState::SomeWithout);
    child->parent = this;
    child->setManager(manager);
    if (child->flags & kHasBounds) includeBounds(*child, isFirst);
    if (parent) parent->childChanged(this);
    return 1;
}

void VxTGroup::includeBounds(const VxTObject& child, bool isFirst) {
    if (isFirst) {
        position = child.position;
        size = child.size;
        return;
    }
    VxExtent extent = {position.x, position.x + size.x, position.y, position.y + size.y};
    includeRectangle(extent, child.position, child.size);
    storeBounds(extent);
}

std::int32_t VxTGroup::removeChild(VxTObject* child) {
    if (!remove(child)) return 0;
    child->setParent(nullptr);
    childChanged(child);
    return 1;
}

VxTObject* VxTGroup::setFocus(VxTObject* child) {
    VxTContainer::focus = VxTObject::setFocus(child);
    return focus;
}

}  // namespace ruvex
