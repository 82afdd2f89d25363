// A list of objects in the tree.

#pragma once

#include "overlay/vx_list.h"
#include "overlay/vx_t_object.h"

namespace ruvex {

/// What a container knows of its children's bounds.
enum class BoundsState : std::int32_t { SomeWithout = 0, AllHave = 1, NoChildren = 2 };

/// Children in the order in which they were added: drawn from the first to the last, hit from the
/// last to the first.
class VxTContainer : public VxTDraw {
public:
    VxTContainer() = default;
    VxTContainer(const VxTContainer&) = delete;
    VxTContainer& operator=(const VxTContainer&) = delete;
    /// Empties the list, see `clear`.
    virtual ~VxTContainer();
    /// The extent of all children with bounds: lowest x, highest x, lowest y, highest y; all 0
    /// without children. Sets and returns `boundsState`.
    virtual BoundsState getBounds(float (&out)[4]);

    /// 1; 0 for null and for an object that is listed.
    std::int32_t add(VxTObject* object);
    /// 1; 0 for null and for an object that is not listed.
    std::int32_t remove(VxTObject* object);
    /// Draws all visible children. A child may change the list.
    void drawAll();
    /// Takes all children out; deletes them if `ownsChildren` is set.
    void clear();
    void setManagerForAll(VxTManager* manager);
    /// The object if it is listed, else null.
    VxTObject* find(VxTObject* object) const;
    /// Tests the children from the last to the first, up to the first hit, and sets `focus`.
    VxHit hitChildren(const VxPosition& position, const VxPosition& radius);

    VxList<VxTObject*> children;
    /// The child that the last hit test chose.
    VxTObject* focus = nullptr;
    bool ownsChildren = false;
    BoundsState boundsState = BoundsState::NoChildren;
};

}  // namespace ruvex
