// A list of objects in the tree.

#pragma once

#include "overlay/vx_list.h"
#include "overlay/vx_t_object.h"

namespace ruvex {

/// What a container knows of its children's bounds.
enum class BoundsState : std::int32_t { SomeWithout = 0, AllHave = 1, NoChildren = 2 };

/// Children in the order in which they were added: drawn from the first to the last, hit from the
/// last to the first. The list alone does not make an object a child: the group or manager that has
/// the list sets `parent` and `manager`, and an object without both has to be removed before it is
/// destroyed.
class VxTContainer : public VxTDraw {
public:
    VxTContainer() = default;
    VxTContainer(const VxTContainer&) = delete;
    VxTContainer& operator=(const VxTContainer&) = delete;
    /// Empties the list, see `clear`. A derived class whose children know it as their parent or
    /// manager calls `clear` in its own destructor.
    virtual ~VxTContainer();
    /// The extent of all children with bounds. All 0 without children; empty (see `makeEmpty`) if
    /// no child has bounds. Sets and returns `boundsState`.
    virtual BoundsState getBounds(VxExtent& out);

    /// 1; 0 for null and for an object that is listed. `boundsState` says afterwards whether this
    /// object has bounds. Throws std::bad_alloc.
    std::int32_t add(VxTObject* object);
    /// 1; 0 for null and for an object that is not listed. The list's focus is not on it
    /// afterwards.
    std::int32_t remove(VxTObject* object);
    /// Draws all visible children. A child that is drawn may remove or destroy itself or others; if
    /// it removes the NEXT child, it is drawn a second time. A `drawAll` of the same list inside
    /// this one ends the outer one.
    void drawAll();
    /// Empties the list: first all children lose their parent and manager, then they are deleted if
    /// `ownsChildren` is set.
    void clear();
    void setManagerForAll(VxTManager* manager);
    /// The object if it is listed, else null.
    VxTObject* find(VxTObject* object) const;
    /// Tests the children from the last to the first, up to the first hit, and sets `focus`.
    VxHit hitChildren(const VxPosition& position, const VxPosition& radius);

    VxList<VxTObject*> children;
    /// The child that the last hit test chose; null if it hit no object.
    VxTObject* focus = nullptr;
    bool ownsChildren = false;
    BoundsState boundsState = BoundsState::NoChildren;
};

}  // namespace ruvex
