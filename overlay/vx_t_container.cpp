#include "overlay/vx_t_container.h"

#include <algorithm>
#include <cfloat>

namespace ruvex {

VxTContainer::~VxTContainer() {
    clear();
}

BoundsState VxTContainer::getBounds(float (&out)[4]) {
    std::fill_n(out, 4, 0.0f);
    boundsState = BoundsState::NoChildren;
    if (children.empty()) return boundsState;

    boundsState = BoundsState::AllHave;
    out[0] = out[2] = FLT_MAX;
    out[1] = out[3] = -FLT_MAX;
    for (const auto* node = children.head; node; node = node->next) {
        const VxTObject& child = *node->item;
        if (child.flags & VxTObject::kHasBounds) {
            includePoint(out, child.position.x, child.position.y);
            includePoint(out, child.position.x + child.size.x, child.position.y + child.size.y);
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
    while (children.head) {
        VxTObject* const child = children.head->item;
        child->setParent(nullptr);
        remove(child);
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
