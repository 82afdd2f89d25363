// The root of a tree of on-screen controls.

#pragma once

#include "overlay/vx_t_container.h"

namespace ruvex {

/// Receives the pen's messages, decides which object is under the pen, and hands the events to it.
/// Needs no viewer and, but for `render`, no OpenGL. May be destroyed before or after its objects,
/// but not while it handles a message or renders.
class VxTManager : public VxMessageHandler, public VxTContainer {
public:
    enum PenFlags : std::uint32_t { kPenDown = 1 };
    enum ManagerFlags : std::uint32_t {
        kRedrawWanted = 1,
        kHandling = 2,  ///< a message is being handled; others that arrive meanwhile do nothing
        kPicking = 4,
    };

    VxTManager() = default;
    ~VxTManager() override;

    /// Handles PenMoved, PenDown and PenUp with a position; other messages are ignored. A message
    /// that arrives while another is handled only sets `penPosition` and `penDelta`. `sender` is
    /// not used and may be null. Allocates nothing.
    void handleMessage(VxMessage* message, VxMessageSender* sender) override;
    virtual void getPenPosition(VxPosition& out);
    virtual void getPenDelta(VxPosition& out);
    virtual std::uint32_t isPenDown();
    /// Draws all objects and the tip of the one under the pen.
    virtual void render();

    /// Adds an object at the top level, after taking it out of where it was. 1; 0 for null and for
    /// an object that is listed.
    std::int32_t addObject(VxTObject* object);
    /// Takes an object of the top level out. 1; 0 for null and for one that is not listed.
    std::int32_t removeObject(VxTObject* object);
    /// Forgets an object, and everything below it, that leaves the tree: `over` and `fallback` are
    /// not in it, and the manager's focus does not lead to it. Called by the object, while it still
    /// has its parent.
    void forget(VxTObject& object);

    /// The object under the pen after the last pick.
    VxTObject* over = nullptr;
    /// Gets the pen where nothing is hit. An object of this tree, or null.
    VxTObject* fallback = nullptr;
    VxPosition penPosition;
    VxPosition penDelta;
    VxPosition pickRadius{3.0f, 3.0f};
    std::uint32_t penFlags = 0;
    std::uint32_t managerFlags = 0;
    bool showTips = true;

private:
    class Step;
    using PositionEvent = std::int32_t (VxTObject::*)(const VxPosition&);
    using PlainEvent = std::int32_t (VxTObject::*)();

    void penMoved();
    void hover();
    void pressPen();
    void releasePen();
    void wantRedraw(bool wanted);
    /// Sets `over` and the focus by a hit test at the pen.
    void pick();
    void pickFallback();
    /// Calls the event at the end of the focus, with the pen's position in the coordinates there.
    /// 0 if the focus leads nowhere.
    std::int32_t routeDown(PositionEvent event);
    std::int32_t routeDown(VxTObject* object, const VxPosition& position, PositionEvent event);
    /// The same for an event without a position.
    std::int32_t toLeaf(PlainEvent event);
    bool focusLeadsTo(const VxTObject& object) const;

    /// The last object that the present event has entered; null outside of an event.
    Step* innermost_ = nullptr;
};

}  // namespace ruvex
