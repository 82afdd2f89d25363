// The base class of everything in the tree of on-screen controls.

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "overlay/draw.h"
#include "overlay/extent.h"
#include "overlay/vx_message.h"

namespace ruvex {

class VxTManager;
class VxTObject;

/// What a hit test gives: 0 for a miss, the address of the object that was hit, or kHitNothing.
using VxHit = std::uintptr_t;

inline constexpr VxHit kMiss = 0;
/// All ones: a hit on something that does not get the focus, and that hides what lies below it.
inline constexpr VxHit kHitNothing = ~VxHit{0};

/// True for a hit on an object. The low 32 bits decide: no object has an address whose low 32 bits
/// are all ones.
constexpr bool isObject(VxHit hit) {
    return hit != kMiss && static_cast<std::uint32_t>(hit) != 0xFFFFFFFFu;
}

/// The hit on an object.
inline VxHit hitOn(const VxTObject& object) {
    return reinterpret_cast<VxHit>(&object);
}
/// The object of a hit for which `isObject` is true; null for a miss.
inline VxTObject* objectOf(VxHit hit) {
    return reinterpret_cast<VxTObject*>(hit);
}

/// A control in the viewer, or a part of one. Positions are in units of the tree's root (or of the
/// nearest object above with a coordinate system of its own), upwards and to the right. The
/// viewer's user-interface thread alone. An object is not owned by the tree: its destructor takes
/// it out.
///
/// Changes of the tree during a call: `drag` and the pen events may add, remove and destroy any
/// object, also the one that was called and those above it. For an object that has left the tree by
/// then, `leaveLocal` is not called. `draw` may do the same, except to the groups that the object
/// is in; an object that removes the NEXT one of its list is drawn a second time. `hit`,
/// `enterLocal`, `leaveLocal`, `toLocal`, `childChanged` and `setManager` may not change the tree.
class VxTObject : public VxTDraw {
public:
    enum State : std::uint32_t { kEnabled = 1, kVisible = 2 };
    enum Flags : std::uint32_t {
        kHasBounds = 1,
        kMovable = 2,   ///< setPosition is allowed
        kSizeable = 4,  ///< setSize is allowed
        kPressed = 8,
        kHovered = 16,
    };

    /// `objectName` is copied; it may be null.
    explicit VxTObject(const char* objectName);
    VxTObject(const VxTObject&) = delete;
    VxTObject& operator=(const VxTObject&) = delete;

    // The order of these functions is fixed.

    /// Whether a position hits the object, with a tolerance of `radius` on each axis. Sets `focus`.
    virtual VxHit hit(const VxPosition& where, const VxPosition& radius) = 0;
    virtual void draw() = 0;
    /// The pen has moved while it is down; nonzero if something has changed.
    virtual std::int32_t drag(const VxPosition& where) = 0;
    /// Enters and leaves the object's own coordinate system around a hit test or an event.
    virtual void enterLocal(const VxPosition& where, const VxPosition& radius);
    virtual void leaveLocal();
    /// Pen events. The result says whether to redraw.
    virtual std::int32_t penDown(const VxPosition& where);
    virtual std::int32_t penUp();
    virtual std::int32_t penEnter(const VxPosition& where);
    virtual std::int32_t penLeave();
    /// Draws the tool-tip, if there is one and the object is not pressed.
    virtual void drawTip(const VxPosition& where);
    /// A child's bounds have changed.
    virtual void childChanged(VxTObject* child);
    /// Converts a position to the object's own coordinate system.
    virtual void toLocal(VxPosition& out, const VxPosition& where);
    /// Takes the object out of its parent and its manager.
    virtual ~VxTObject();
    /// Do nothing unless the object is kSizeable, or kMovable.
    virtual void setSize(float width, float height);
    virtual void setPosition(float x, float y);
    virtual void setManager(VxTManager* newManager);
    virtual void setUiScale(float newScale);
    virtual void getMinimum(VxPosition& out);
    virtual void getMaximum(VxPosition& out);
    /// This object if it has exactly this name; else null.
    virtual VxTObject* findByName(const char* wanted);
    /// 1 if the child was added or removed; 0 for null, for a child that is there already or not
    /// there, and for objects without children. A child that is added leaves its old place in a
    /// tree first. An object can't be added to itself or to one below it (0).
    virtual std::int32_t addChild(VxTObject* child);
    virtual std::int32_t removeChild(VxTObject* child);
    /// Makes `child`, or this object if it is null, the next one on the way to the object that gets
    /// the pen's events. Returns it.
    virtual VxTObject* setFocus(VxTObject* child);

    void setState(std::uint32_t newState) { state = newState; }
    bool isEnabled() const { return (state & kEnabled) != 0; }
    bool isVisible() const { return (state & kVisible) != 0; }
    bool isPressed() const { return (flags & kPressed) != 0; }
    bool isHovered() const { return (flags & kHovered) != 0; }
    /// True for the object `subtree` and for everything below it.
    bool isWithin(const VxTObject& subtree) const;
    /// Asks the manager, if there is one, for a redraw.
    void requestRedraw();
    /// Adds the object to `newParent`, as `addChild` of the parent does, and tells the parent its
    /// bounds. Null takes the object out of its parent, or out of its manager's list. Afterwards no
    /// focus in the tree leads to it, and it is neither hovered nor pressed.
    void setParent(VxTObject* newParent);

    std::optional<std::string> name;
    std::optional<std::string> tip;
    VxTManager* manager = nullptr;
    VxTObject* parent = nullptr;
    /// The way to the object that gets the pen's events: this object at its end, the child where it
    /// goes on, null if this object was not hit.
    VxTObject* focus = nullptr;
    VxColour colour;
    /// The low corner of the bounds, and their size.
    VxPosition position;
    VxPosition size;
    std::uint32_t state = kEnabled | kVisible;
    float uiScale = 1.0f;
    /// Whether the global matrix applies to the object when it is drawn.
    std::uint32_t useGlobalMatrix = 0;
    std::uint32_t flags = kHasBounds | kMovable | kSizeable;

protected:
    /// Takes position and size from an extent.
    void storeBounds(const VxExtent& extent);
    /// The same, and tells the parent.
    void setBounds(const VxExtent& extent);
    void setFlag(Flags flag, bool on) { flags = on ? flags | flag : flags & ~flag; }

private:
    void leaveTree();
    /// Ends hovering and pressing, here and along the focus below.
    void leavePen();
    /// Clears the focus of this object, and of all objects above, and of their lists of children,
    /// whose focus leads here.
    void leaveFocus();
};

/// Tests one object: its state, then its bounds with the radius around them, then its `hit`. A miss
/// of `hit` clears the object's focus.
VxHit testObject(VxTObject& object, const VxPosition& position, const VxPosition& radius);

}  // namespace ruvex
