#include "overlay/vx_t_container.h"

#include <algorithm>

namespace ruvex {

VxTContainer::~VxTContainer() {
    clear();
}

BoundsState VxTContainer::getBounds(VxExtent& out) {
    std::fill_n(out, 4, 0.0f);
    boundsState = BoundsState::NoChildren;
    if (children.empty()) return boundsState;

    boundsState = BoundsState::AllHave;
    makeEmpty(out);
    for (const auto* node = children.head; node; node = node->next) {
        const VxTObject& child = *node->item;
        if (child.flags & VxTObject::kHasBounds) {
            includeRectangle(out, child.position, child.size);
        } else {
            boundsState = BoundsState::SomeWithout;
        }
    }
    return boundsState;
}

std::int32_t VxTContainer::add(VxTObject* object) {
    if (!object || find(object)) return 0;
    children.append(object);
    boundsState =
        object->flags & VxTObject::kHasBounds ? BoundsState::AllHave : BoundsState::SomeWithout;
    return 1;
}

std::int32_t VxTContainer::remove(VxTObject* object) {
    if (!object || !children.removeAll(object)) return 0;
    if (focus == object) focus = nullptr;
    return 1;
}

void VxTContainer::drawAll() {
    children.walk([](VxTObject* child) {
        if (child->isVisible()) child->draw();
        return true;
    });
}

void VxTContainer::clear() {
    if (children.empty()) return;
    // A child that loses its parent has itself removed from `children`. In a list that the parent
    // does not know it can still be deleted afterwards.
    VxList<VxTObject*> leaving;
    leaving.swap(children);
    leaving.cursor = nullptr;
    focus = nullptr;
    VxTObject* const parent = leaving.head->item->parent;
    for (auto* node = leaving.head; node; node = node->next) node->item->setParent(nullptr);
    if (parent) parent->childChanged(leaving.tail->item);
    while (leaving.head) {
        VxTObject* const child = leaving.remove(leaving.head);
        if (ownsChildren) delete child;
    }
}

void VxTContainer::setManagerForAll(VxTManager* manager) {
    for (auto* node = children.head; node; node = node->next) node->item->setManager(manager);
}

VxTObject* VxTContainer::find(VxTObject* object) const {
    return children.find(object) ? object : nullptr;
}

VxHit VxTContainer::hitChildren(const VxPosition& position, const VxPosition& radius) {
    focus = nullptr;
    for (auto* node = children.tail; node; node = node->previous) {
        const VxHit result = testObject(*node->item, position, radius);
        if (result == kMiss) continue;
        if (isObject(result)) focus = node->item;
        return result;
    }
    return kMiss;
}

}  // namespace ruvex
