#include "overlay/vx_t_object.h"

#include <cfloat>
#include <utility>

#include "overlay/vx_t_2d_axis_group.h"
#include "overlay/vx_t_manager.h"

namespace ruvex {
namespace {

void clearFocusOn(VxTContainer& list, const VxTObject& child) {
    if (list.focus == &child) list.focus = nullptr;
}

/// Clears the focus of the lists of children that a parent has, where it is on this child.
void clearListFocus(VxTObject& parent, const VxTObject& child) {
    if (auto* const list = dynamic_cast<VxTContainer*>(&parent)) clearFocusOn(*list, child);
    if (auto* const group = dynamic_cast<VxT2DAxisGroup*>(&parent)) {
        clearFocusOn(group->transformed, child);
        clearFocusOn(group->fixed, child);
    }
}

}  // namespace

VxTObject::VxTObject(const char* objectName) {
    if (objectName) name = objectName;
}

VxTObject::~VxTObject() {
    setParent(nullptr);
}

void VxTObject::enterLocal(const VxPosition&, const VxPosition&) {}

void VxTObject::leaveLocal() {}

std::int32_t VxTObject::penDown(const VxPosition&) {
    setFlag(kPressed, true);
    return 1;
}

std::int32_t VxTObject::penUp() {
    setFlag(kPressed, false);
    return 1;
}

std::int32_t VxTObject::penEnter(const VxPosition&) {
    setFlag(kHovered, true);
    return 1;
}

std::int32_t VxTObject::penLeave() {
    setFlag(kHovered, false);
    return 1;
}

void VxTObject::drawTip(const VxPosition& where) {
    if (tip && !isPressed()) drawText(tip->c_str(), where.x, where.y);
}

void VxTObject::childChanged(VxTObject*) {}

void VxTObject::toLocal(VxPosition& out, const VxPosition& where) {
    out = {where.x - position.x, where.y - position.y};
}

void VxTObject::setSize(float width, float height) {
    if (!(flags & kSizeable)) return;
    size = {width, height};
    if (parent) parent->childChanged(this);
}

void VxTObject::setPosition(float x, float y) {
    if (!(flags & kMovable)) return;
    position = {x, y};
    if (parent) parent->childChanged(this);
}

void VxTObject::setManager(VxTManager* newManager) {
    manager = newManager;
}

void VxTObject::setUiScale(float newScale) {
    uiScale = newScale;
}

void VxTObject::getMinimum(VxPosition& out) {
    out = {0.0f, 0.0f};
}

void VxTObject::getMaximum(VxPosition& out) {
    out = {FLT_MAX, FLT_MAX};
}

VxTObject* VxTObject::findByName(const char* wanted) {
    return name && wanted && *name == wanted ? this : nullptr;
}

std::int32_t VxTObject::addChild(VxTObject*) {
    return 0;
}

std::int32_t VxTObject::removeChild(VxTObject*) {
    return 0;
}

VxTObject* VxTObject::setFocus(VxTObject* child) {
    focus = child ? child : this;
    return focus;
}

bool VxTObject::isWithin(const VxTObject& subtree) const {
    const VxTObject* node = this;
    while (node && node != &subtree) node = node->parent;
    return node;
}

void VxTObject::requestRedraw() {
    if (manager) manager->managerFlags |= VxTManager::kRedrawWanted;
}

void VxTObject::setParent(VxTObject* newParent) {
    if (!newParent) {
        leaveTree();
    } else if (newParent->addChild(this)) {
        parent = newParent;
        setManager(newParent->manager);
        newParent->childChanged(this);
    }
}

void VxTObject::leaveTree() {
    if (manager) manager->forget(*this);
    leavePen();
    leaveFocus();
    // Cleared first: `removeChild` and `removeObject` call setParent(nullptr) in their turn.
    VxTObject* const oldParent = std::exchange(parent, nullptr);
    VxTManager* const oldManager = manager;
    if (oldManager) setManager(nullptr);
    if (oldParent) {
        oldParent->removeChild(this);
    } else if (oldManager) {
        oldManager->removeObject(this);
    }
}

void VxTObject::leavePen() {
    VxTObject* node = this;
    while (node) {
        node->flags &= ~(kHovered | kPressed);
        node = node->focus == node ? nullptr : node->focus;
    }
}

void VxTObject::leaveFocus() {
    focus = nullptr;
    for (VxTObject* node = this; node->parent && node->parent->focus == node; node = node->parent) {
        node->parent->focus = nullptr;
        clearListFocus(*node->parent, *node);
    }
}

void VxTObject::storeBounds(const VxExtent& extent) {
    position = {extent[0], extent[2]};
    size = {extent[1] - extent[0], extent[3] - extent[2]};
}

void VxTObject::setBounds(const VxExtent& extent) {
    storeBounds(extent);
    if (parent) parent->childChanged(this);
}

VxHit testObject(VxTObject& object, const VxPosition& position, const VxPosition& radius) {
    if (!object.isEnabled() || !object.isVisible()) return kMiss;
    if (object.flags & VxTObject::kHasBounds) {
        const VxPosition &low = object.position, &size = object.size;
        const bool inside = position.x + radius.x >= low.x && position.y + radius.y >= low.y &&
                            low.x + size.x >= position.x - radius.x &&
                            low.y + size.y >= position.y - radius.y;
        if (!inside) return kMiss;
    }
    object.enterLocal(position, radius);
    const VxHit result = object.hit(position, radius);
    object.leaveLocal();
    if (result == kMiss) object.focus = nullptr;
    return result;
}

}  // namespace ruvex
