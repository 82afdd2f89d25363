#include "overlay/vx_t_manager.h"

#include <cmath>

namespace ruvex {
namespace {

/// A pen that has moved by no more than this on both axes has not moved.
constexpr float kSmallestMove = 0.001f;
/// From the pen to its tool-tip.
constexpr VxPosition kTipOffset{8.0f, 8.0f};

/// Sets bits of a word, and clears them in the destructor.
class BitsSet {
public:
    BitsSet(std::uint32_t& word, std::uint32_t bits) : word_(word), bits_(bits) { word_ |= bits_; }
    BitsSet(const BitsSet&) = delete;
    BitsSet& operator=(const BitsSet&) = delete;
    ~BitsSet() { word_ &= ~bits_; }

private:
    std::uint32_t& word_;
    std::uint32_t bits_;
};

/// A movement that is not a number counts as one.
bool hasMoved(VxPosition delta) {
    return !(std::fabs(delta.x) <= kSmallestMove && std::fabs(delta.y) <= kSmallestMove);
}

/// The object of a hit. Null if the low 32 bits are 0xFFFFFFFF or 0xFFFFFFFE: nothing is under the
/// pen.
VxTObject* objectUnderPen(VxHit hit) {
    return static_cast<std::uint32_t>(hit) >= 0xFFFFFFFEu ? nullptr : objectOf(hit);
}

/// The end of the focus, without a change of coordinates. Null if the focus leads nowhere.
VxTObject* leafOf(VxTObject* object) {
    while (object && object->focus != object) object = object->focus;
    return object;
}

}  // namespace

/// An object whose coordinate system an event has entered on its way down.
class VxTManager::Step {
public:
    Step(VxTManager& manager, VxTObject& object)
        : object_(&object), manager_(manager), outer_(manager.innermost_) {
        manager.innermost_ = this;
    }
    Step(const Step&) = delete;
    Step& operator=(const Step&) = delete;
    ~Step() {
        manager_.innermost_ = outer_;
        if (object_) object_->leaveLocal();
    }

    /// Forgets an object that leaves the tree, and all below it: they may be destroyed before the
    /// event returns.
    static void forget(Step* innermost, const VxTObject& object) {
        Step* found = innermost;
        while (found && found->object_ != &object) found = found->outer_;
        if (!found) return;
        for (Step* step = innermost; step != found->outer_; step = step->outer_) {
            step->object_ = nullptr;
        }
    }

private:
    VxTObject* object_;
    VxTManager& manager_;
    Step* outer_;
};

VxTManager::~VxTManager() {
    // Removing a child calls virtual functions of this class, so it can't wait for the base's
    // destructor.
    clear();
}

void VxTManager::handleMessage(VxMessage* message, VxMessageSender*) {
    const bool isPen = message->id == VxMessageId::PenMoved ||
                       message->id == VxMessageId::PenDown || message->id == VxMessageId::PenUp;
    if (!isPen || !message->hasPosition()) return;
    const VxPosition position = message->position();
    penDelta = {position.x - penPosition.x, position.y - penPosition.y};
    penPosition = position;
    if (managerFlags & kHandling) return;
    const BitsSet handling(managerFlags, kHandling);
    if (message->id == VxMessageId::PenMoved) {
        penMoved();
    } else if (message->id == VxMessageId::PenDown) {
        pressPen();
    } else {
        releasePen();
    }
}

void VxTManager::penMoved() {
    if (penFlags & kPenDown) {
        const bool changed = routeDown(&VxTObject::drag) != 0;
        managerFlags &= ~kRedrawWanted;
        wantRedraw(changed);
    } else if (hasMoved(penDelta)) {
        hover();
    }
    // The tip follows the pen.
    wantRedraw(over && showTips);
}

void VxTManager::hover() {
    const VxTObject* const before = over;
    toLeaf(&VxTObject::penLeave);
    pick();
    routeDown(&VxTObject::penEnter);
    wantRedraw(over != before);
}

void VxTManager::pressPen() {
    penFlags |= kPenDown;
    wantRedraw(toLeaf(&VxTObject::penLeave) != 0);
    pick();
    wantRedraw(routeDown(&VxTObject::penDown) != 0);
}

void VxTManager::releasePen() {
    penFlags &= ~kPenDown;
    wantRedraw(toLeaf(&VxTObject::penUp) != 0);
    pick();
    wantRedraw(routeDown(&VxTObject::penEnter) != 0);
}

void VxTManager::wantRedraw(bool wanted) {
    if (wanted) managerFlags |= kRedrawWanted;
}

void VxTManager::pick() {
    const BitsSet picking(managerFlags, kPicking);
    over = objectUnderPen(hitChildren(penPosition, pickRadius));
    if (!over && fallback && fallback->isEnabled() && fallback->isVisible()) pickFallback();
}

void VxTManager::pickFallback() {
    over = fallback;
    fallback->setFocus(nullptr);
    VxTObject* top = fallback;
    for (; top->parent; top = top->parent) top->parent->setFocus(top);
    focus = top;
}

std::int32_t VxTManager::routeDown(PositionEvent event) {
    const int depth = matrixStack.depth();
    const std::int32_t result = routeDown(focus, penPosition, event);
    // An object that left the tree on the way has not taken its matrix from the stack.
    while (matrixStack.depth() > depth) popMatrix();
    return result;
}

std::int32_t VxTManager::routeDown(VxTObject* object, const VxPosition& position,
                                   PositionEvent event) {
    if (!object || !object->focus) return 0;
    if (object->focus == object) return (object->*event)(position);
    VxPosition local;
    object->toLocal(local, position);
    object->enterLocal(position, pickRadius);
    const Step step(*this, *object);
    return routeDown(object->focus, local, event);
}

std::int32_t VxTManager::toLeaf(PlainEvent event) {
    VxTObject* const leaf = leafOf(focus);
    return leaf ? (leaf->*event)() : 0;
}

void VxTManager::getPenPosition(VxPosition& out) {
    out = penPosition;
}

void VxTManager::getPenDelta(VxPosition& out) {
    out = penDelta;
}

std::uint32_t VxTManager::isPenDown() {
    return penFlags & kPenDown;
}

void VxTManager::render() {
    drawAll();
    managerFlags &= ~kRedrawWanted;
    if (showTips && over) {
        over->drawTip({penPosition.x + kTipOffset.x, penPosition.y + kTipOffset.y});
    }
}

std::int32_t VxTManager::addObject(VxTObject* object) {
    if (!object || find(object)) return 0;
    object->setParent(nullptr);
    add(object);
    object->setManager(this);
    wantRedraw(object->isVisible());
    return 1;
}

std::int32_t VxTManager::removeObject(VxTObject* object) {
    if (!remove(object)) return 0;
    object->setParent(nullptr);
    return 1;
}

void VxTManager::forget(VxTObject& object) {
    if (over && over->isWithin(object)) over = nullptr;
    if (fallback && fallback->isWithin(object)) fallback = nullptr;
    if (focusLeadsTo(object)) focus = nullptr;
    Step::forget(innermost_, object);
}

bool VxTManager::focusLeadsTo(const VxTObject& object) const {
    const VxTObject* node = focus;
    while (node && node != &object && node->focus != node) node = node->focus;
    return node == &object;
}

}  // namespace ruvex
