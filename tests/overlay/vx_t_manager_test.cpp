#include "overlay/vx_t_manager.h"

#include <gtest/gtest.h>
#include <limits>
#include <utility>

#include "overlay/vx_t_2d_axis_group.h"
#include "overlay/vx_t_group.h"
#include "tests/overlay/scripted_object.h"
#include "tests/support/watched_new.h"

namespace ruvex {
namespace {

using test::CallLog;
using test::childrenOf;
using test::ScriptedObject;
using test::sendPen;
using enum VxMessageId;

constexpr VxPosition kIn{5, 5}, kOtherIn{6, 6}, kOut{50, 50}, kOtherOut{60, 60};
constexpr std::uint32_t kPressed = VxTObject::kPressed, kHovered = VxTObject::kHovered;

class Manager : public testing::Test {
protected:
    Manager() { manager.addObject(&a); }

    bool redraw() const { return manager.managerFlags & VxTManager::kRedrawWanted; }

    /// Brings pen and object to a state, by messages, and forgets the calls.
    void prepare(VxPosition pen, bool isDown) {
        sendPen(manager, PenMoved, kOtherOut);
        sendPen(manager, PenUp, kOtherOut);
        sendPen(manager, PenMoved, pen);
        if (isDown) sendPen(manager, PenDown, pen);
        forgetCalls();
    }
    void forgetCalls() {
        log.clear();
        manager.managerFlags = 0;
    }

    CallLog log;
    VxTManager manager;
    ScriptedObject a{"a", log};
};

/// What one message does to the object `a` at (0, 0)-(10, 10).
struct MessageCase {
    VxMessageId id;
    bool isDown;    ///< before
    bool fromIn;    ///< whether the pen was over the object before
    bool toIn;      ///< whether it is now
    CallLog calls;  ///< in this order
    bool over;      ///< afterwards
    std::uint32_t flags;
    bool redrawWithoutTip;
};

const MessageCase kMessageCases[] = {
    {PenMoved, false, true, true, {"a penLeave", "a hit", "a penEnter"}, true, kHovered, false},
    {PenMoved, false, true, false, {"a penLeave"}, false, 0, true},
    {PenMoved, false, false, true, {"a hit", "a penEnter"}, true, kHovered, true},
    {PenMoved, false, false, false, {}, false, 0, false},
    {PenMoved, true, true, true, {"a drag"}, true, kPressed, true},
    {PenMoved, true, true, false, {"a drag"}, true, kPressed, true},
    {PenMoved, true, false, true, {}, false, 0, false},
    {PenMoved, true, false, false, {}, false, 0, false},
    {PenDown, false, true, true, {"a penLeave", "a hit", "a penDown"}, true, kPressed, true},
    {PenDown, false, true, false, {"a penLeave"}, false, 0, true},
    {PenDown, false, false, true, {"a hit", "a penDown"}, true, kPressed, true},
    {PenDown, false, false, false, {}, false, 0, false},
    {PenDown, true, true, true, {"a penLeave", "a hit", "a penDown"}, true, kPressed, true},
    {PenDown, true, true, false, {"a penLeave"}, false, kPressed, true},
    {PenDown, true, false, true, {"a hit", "a penDown"}, true, kPressed, true},
    {PenDown, true, false, false, {}, false, 0, false},
    {PenUp, true, true, true, {"a penUp", "a hit", "a penEnter"}, true, kHovered, true},
    {PenUp, true, true, false, {"a penUp"}, false, 0, true},
    {PenUp, true, false, true, {"a hit", "a penEnter"}, true, kHovered, true},
    {PenUp, true, false, false, {}, false, 0, false},
    {PenUp, false, true, true, {"a penUp", "a hit", "a penEnter"}, true, kHovered, true},
    {PenUp, false, true, false, {"a penUp"}, false, kHovered, true},
    {PenUp, false, false, true, {"a hit", "a penEnter"}, true, kHovered, true},
    {PenUp, false, false, false, {}, false, 0, false},
};

std::ostream& operator<<(std::ostream& out, const MessageCase& c) {
    return out << static_cast<int>(c.id) << (c.isDown ? ", down" : ", up") << ", from "
               << (c.fromIn ? "inside" : "outside") << " to " << (c.toIn ? "inside" : "outside");
}

TEST_F(Manager, EachMessageDoesWhatTheTableSays) {
    for (const MessageCase& c : kMessageCases) {
        for (const bool tips : {true, false}) {
            SCOPED_TRACE(testing::Message() << c << (tips ? ", with tips" : ", without tips"));
            manager.showTips = tips;
            prepare(c.fromIn ? kIn : kOut, c.isDown);
            sendPen(manager, c.id, c.toIn ? kOtherIn : kOtherOut);
            EXPECT_EQ(log, c.calls);
            EXPECT_EQ(manager.over, c.over ? &a : nullptr);
            EXPECT_EQ(manager.focus, c.over ? &a : nullptr);
            EXPECT_EQ(a.flags & (kPressed | kHovered), c.flags);
            const bool tipFollows = c.id == PenMoved && tips && c.over;
            EXPECT_EQ(redraw(), c.redrawWithoutTip || tipFollows);
            const bool downAfter = c.id == PenDown || (c.id == PenMoved && c.isDown);
            EXPECT_EQ(manager.isPenDown(), downAfter ? 1u : 0u);
            EXPECT_EQ(manager.managerFlags & ~1u, 0u);
        }
    }
}

/// A message that is sent inside another one, and whether the tool-tips are shown.
constexpr std::pair<VxMessageId, bool> kInnerMessages[] = {{PenMoved, true}, {PenDown, true},
                                                           {PenUp, true},    {PenMoved, false},
                                                           {PenDown, false}, {PenUp, false}};

TEST_F(Manager, AMessageInsideAnotherOnlyMovesThePen) {
    for (const MessageCase& c : kMessageCases) {
        if (c.calls.empty()) continue;
        for (const auto& [inner, tips] : kInnerMessages) {
            SCOPED_TRACE(testing::Message() << c << ", inner " << static_cast<int>(inner)
                                            << (tips ? ", with tips" : ", without tips"));
            manager.showTips = tips;
            prepare(c.fromIn ? kIn : kOut, c.isDown);
            int calls = 0;
            a.reaction = [&](const std::string&) {
                ++calls;
                const std::uint32_t before = manager.penFlags, flagsBefore = manager.managerFlags;
                const VxPosition to = c.toIn ? kIn : kOut;
                sendPen(manager, inner, to);
                EXPECT_EQ(manager.penPosition, to);
                EXPECT_EQ(manager.penFlags, before);
                EXPECT_EQ(manager.managerFlags, flagsBefore);
            };
            sendPen(manager, c.id, c.toIn ? kOtherIn : kOtherOut);
            a.reaction = nullptr;
            EXPECT_GT(calls, 0);
            EXPECT_EQ(log, c.calls);
            EXPECT_EQ(manager.over, c.over ? &a : nullptr);
            EXPECT_EQ(manager.focus, c.over ? &a : nullptr);
            EXPECT_EQ(a.flags & (kPressed | kHovered), c.flags);
            const bool tipFollows = c.id == PenMoved && tips && c.over;
            EXPECT_EQ(redraw(), c.redrawWithoutTip || tipFollows);
        }
    }
}

TEST_F(Manager, EventsThatChangeNothingAskForNoRedraw) {
    manager.showTips = false;
    a.eventResult = 0;
    for (const VxMessageId id : {PenDown, PenUp}) {
        prepare(kIn, id == PenUp);
        sendPen(manager, id, kIn);
        EXPECT_FALSE(redraw());
    }
    prepare(kIn, true);
    manager.managerFlags = VxTManager::kRedrawWanted;
    sendPen(manager, PenMoved, kOtherIn);
    EXPECT_FALSE(redraw()) << "a drag replaces the wish";
    manager.showTips = true;
    sendPen(manager, PenMoved, kOtherIn);
    EXPECT_TRUE(redraw()) << "the tip follows";
}

TEST_F(Manager, AMoveBelowTheThresholdKeepsTheObjectUnderThePen) {
    prepare({10.0f, 5.0f}, false);
    manager.pickRadius = {};
    EXPECT_EQ(manager.over, &a);
    sendPen(manager, PenMoved, {10.0009f, 5.0f});
    EXPECT_EQ(log, CallLog{});
    EXPECT_EQ(manager.over, &a) << "although the pen is outside now";
    EXPECT_EQ(manager.penPosition, (VxPosition{10.0009f, 5.0f}));
    EXPECT_TRUE(redraw()) << "the tip follows";
    sendPen(manager, PenMoved, {10.0009f, 5.002f});
    EXPECT_EQ(manager.over, nullptr);
}

TEST_F(Manager, TheThresholdIsOnEachAxisByItself) {
    manager.pickRadius = {};
    const float none = 0.0f, below = 0.0009f, above = 0.0011f;
    const VxPosition moves[] = {{above, none},  {-above, none}, {none, above},
                                {none, -above}, {below, below}, {-below, none}};
    for (const VxPosition move : moves) {
        prepare(kIn, false);
        sendPen(manager, PenMoved, {0.0f, 0.0f});
        forgetCalls();
        sendPen(manager, PenMoved, move);
        const bool picked = std::abs(move.x) > 0.001f || std::abs(move.y) > 0.001f;
        EXPECT_EQ(log.empty(), !picked) << test::textOf(move);
    }
}

TEST_F(Manager, AMovementThatIsNotANumberIsNotBelowTheThreshold) {
    const float none = std::numeric_limits<float>::quiet_NaN();
    for (const VxPosition to : {VxPosition{none, 5}, VxPosition{5, none}, VxPosition{none, none}}) {
        prepare(kIn, false);
        sendPen(manager, PenMoved, to);
        EXPECT_EQ(log.front(), "a penLeave");
        EXPECT_EQ(manager.over, nullptr);
        EXPECT_TRUE(redraw());
        forgetCalls();
        sendPen(manager, PenMoved, kIn);
        EXPECT_EQ(manager.over, &a) << "the pen comes back";
    }
}

TEST_F(Manager, RemembersPositionAndMovementOfThePen) {
    sendPen(manager, PenMoved, {3, 4});
    sendPen(manager, PenDown, {5, 1});
    VxPosition position, delta;
    manager.getPenPosition(position);
    manager.getPenDelta(delta);
    EXPECT_EQ(position, (VxPosition{5, 1}));
    EXPECT_EQ(delta, (VxPosition{2, -3}));
}

TEST_F(Manager, IgnoresOtherMessages) {
    for (const int id : {100, 104, 200, 201, 203}) {
        sendPen(manager, static_cast<VxMessageId>(id), kIn);
    }
    for (const VxMessageId id : {PenMoved, PenDown, PenUp}) {
        VxMessage none(id), number(id);
        number.setNumber(7);
        manager.handleMessage(&none, nullptr);
        manager.handleMessage(&number, nullptr);
    }
    EXPECT_EQ(log, CallLog{});
    EXPECT_EQ(manager.penPosition, VxPosition{});
    EXPECT_EQ(manager.penFlags, 0u);
    VxMessage other(PenDown);
    other.setPosition(kIn);
    other.dataType = VxDataType::PositionType7;
    manager.handleMessage(&other, nullptr);
    EXPECT_EQ(manager.over, &a);
}

TEST_F(Manager, AReleaseOutsideReachesThePressedObject) {
    ScriptedObject b("b", log, {40, 40}, {20, 20});
    manager.addObject(&b);
    prepare(kIn, true);
    sendPen(manager, PenUp, kOut);
    EXPECT_EQ(log, (CallLog{"a penUp", "b hit", "b penEnter"}));
    EXPECT_EQ(manager.over, &b);
}

TEST_F(Manager, APressLeavesTheOldObjectAndPicksAgain) {
    ScriptedObject b("b", log, {40, 40}, {20, 20});
    manager.addObject(&b);
    prepare(kIn, false);
    sendPen(manager, PenDown, kOut);
    EXPECT_EQ(log, (CallLog{"a penLeave", "b hit", "b penDown"}));
}

TEST_F(Manager, RendersInOrderAndDrawsTheTipBesideThePen) {
    ScriptedObject b("b", log, {40, 40}, {20, 20});
    manager.addObject(&b);
    prepare(kIn, false);
    manager.managerFlags = VxTManager::kRedrawWanted;
    manager.render();
    EXPECT_EQ(log, (CallLog{"a draw", "b draw", "a drawTip 13,13"}));
    EXPECT_FALSE(redraw());
    log.clear();
    manager.showTips = false;
    manager.render();
    EXPECT_EQ(log, (CallLog{"a draw", "b draw"}));
}

TEST_F(Manager, AddsAnObjectOnceAndTakesItFromItsOldPlace) {
    EXPECT_EQ(manager.addObject(nullptr), 0);
    EXPECT_EQ(manager.addObject(&a), 0);
    EXPECT_EQ(a.manager, &manager);
    VxTManager other;
    EXPECT_EQ(other.addObject(&a), 1);
    EXPECT_TRUE(manager.children.empty());
    EXPECT_EQ(a.manager, &other);
    EXPECT_EQ(manager.removeObject(&a), 0);
    EXPECT_EQ(other.removeObject(nullptr), 0);
    EXPECT_EQ(other.removeObject(&a), 1);
    EXPECT_EQ(a.manager, nullptr);
    EXPECT_TRUE(other.children.empty());
}

TEST_F(Manager, AddingAVisibleObjectAsksForARedraw) {
    manager.managerFlags = 0;
    ScriptedObject b("b", log);
    b.setState(VxTObject::kEnabled);
    manager.addObject(&b);
    EXPECT_FALSE(redraw());
    manager.removeObject(&b);
    b.setState(VxTObject::kVisible);
    manager.addObject(&b);
    EXPECT_TRUE(redraw());
}

TEST_F(Manager, NeitherAnInvisibleNorADisabledObjectIsHit) {
    for (const std::uint32_t state : {VxTObject::kEnabled, VxTObject::kVisible}) {
        prepare(kOut, false);
        a.setState(state);
        sendPen(manager, PenMoved, kIn);
        EXPECT_EQ(manager.over, nullptr);
        log.clear();
        manager.render();
        EXPECT_EQ(log, state == VxTObject::kVisible ? CallLog{"a draw"} : CallLog{});
        a.setState(VxTObject::kEnabled | VxTObject::kVisible);
    }
}

TEST_F(Manager, ASwallowingGroupKeepsThePenFromObjectsBelow) {
    VxTGroup group("group");
    ScriptedObject corner("corner", log), distant("distant", log, {90, 90});
    group.addChild(&corner);
    group.addChild(&distant);
    corner.setPosition(-40, -40);
    manager.addObject(&group);
    sendPen(manager, PenMoved, kIn);
    EXPECT_EQ(manager.over, nullptr);
    EXPECT_EQ(manager.focus, nullptr);
    EXPECT_EQ(log, CallLog{}) << "a lies below the group";
    group.groupFlags &= ~VxTGroup::kSwallowHits;
    sendPen(manager, PenMoved, kOtherIn);
    EXPECT_EQ(manager.over, &a);
}

TEST_F(Manager, AHitOfAllOnesOrOneLessIsNoObject) {
    for (const VxHit hit : {kHitNothing, kHitNothing - 1, VxHit{0xFFFFFFFFu}, VxHit{0xFFFFFFFEu}}) {
        a.hitResult = hit;
        sendPen(manager, PenDown, kIn);
        EXPECT_EQ(manager.over, nullptr);
    }
}

/// Has a coordinate system shifted by its `shift`, and writes down the way through it.
class ShiftedGroup final : public VxTGroup {
public:
    ShiftedGroup(const char* objectName, CallLog& callLog, VxPosition by)
        : VxTGroup(objectName), log(callLog), shift(by) {}
    void enterLocal(const VxPosition& where, const VxPosition& radius) override {
        log.push_back(*name + " enter " + test::textOf(where) + " " + test::textOf(radius));
    }
    void leaveLocal() override { log.push_back(*name + " leave"); }
    void toLocal(VxPosition& out, const VxPosition& where) override {
        out = {where.x - shift.x, where.y - shift.y};
    }

    CallLog& log;
    VxPosition shift;
};

class DeepTree : public Manager {
protected:
    DeepTree() {
        manager.removeObject(&a);
        a.flags &= ~VxTObject::kHasBounds;
        a.logsPositions = true;
        inner.addChild(&a);
        outer.addChild(&inner);
        manager.addObject(&outer);
        manager.pickRadius = {1, 2};
    }

    ShiftedGroup outer{"outer", log, {100, 0}}, inner{"inner", log, {0, 10}};
};

TEST_F(DeepTree, AnEventGoesDownTheFocusThroughAllCoordinateSystems) {
    sendPen(manager, PenMoved, {1, 1});
    forgetCalls();
    sendPen(manager, PenDown, {2, 3});
    EXPECT_EQ(log,
              (CallLog{"a penLeave", "outer enter 2,3 1,2", "inner enter 2,3 1,2", "a hit",
                       "inner leave", "outer leave", "outer enter 2,3 1,2", "inner enter -98,3 1,2",
                       "a penDown -98,-7", "inner leave", "outer leave"}));
    EXPECT_EQ(manager.over, &a);
    EXPECT_EQ(manager.focus, &outer);
    EXPECT_EQ(outer.focus, &inner);
    EXPECT_EQ(inner.focus, &a);
    log.clear();
    sendPen(manager, PenMoved, {4, 4});
    EXPECT_EQ(log, (CallLog{"outer enter 4,4 1,2", "inner enter -96,4 1,2", "a drag -96,-6",
                            "inner leave", "outer leave"}));
    EXPECT_TRUE(redraw());
}

TEST_F(DeepTree, AFocusThatLeadsNowhereGetsNoEvent) {
    manager.showTips = false;
    sendPen(manager, PenDown, {2, 3});
    inner.focus = nullptr;
    forgetCalls();
    sendPen(manager, PenMoved, {3, 3});
    EXPECT_EQ(log, (CallLog{"outer enter 3,3 1,2", "outer leave"}));
    EXPECT_FALSE(redraw());
    a.hitResult = kMiss;
    log.clear();
    sendPen(manager, PenUp, {3, 3});
    EXPECT_EQ(std::count(log.begin(), log.end(), "a penUp"), 0);
}

TEST_F(DeepTree, TheFallbackGetsThePenWhereNothingIsHit) {
    manager.fallback = &a;
    a.hitResult = kMiss;
    sendPen(manager, PenDown, {200, 30});
    EXPECT_EQ(manager.over, &a);
    EXPECT_EQ(a.focus, &a);
    EXPECT_EQ(inner.focus, &a);
    EXPECT_EQ(outer.focus, &inner);
    EXPECT_EQ(manager.focus, &outer);
    EXPECT_EQ(log.end()[-3], "a penDown 100,20");
}

TEST_F(DeepTree, AHiddenOrDisabledFallbackDoesNotGetThePen) {
    manager.fallback = &a;
    for (const std::uint32_t state : {0u, 1u, 2u}) {
        a.setState(state);
        sendPen(manager, PenDown, {200, 30});
        EXPECT_EQ(manager.over, nullptr);
    }
}

TEST_F(DeepTree, AnObjectThatIsHitComesBeforeTheFallback) {
    ScriptedObject b("b", log, {40, 40}, {20, 20});
    manager.addObject(&b);
    manager.fallback = &a;
    sendPen(manager, PenDown, {50, 50});
    EXPECT_EQ(manager.over, &b);
}

TEST(TreeMemory, PicksAndDragsAllocateNothing) {
    VxTManager manager;
    VxT2DAxisGroup outer("outer", VxT2DAxis::kCentre);
    VxTGroup group("group");
    VxT2DAxis axis("axis", 127);
    group.addChild(&axis);
    outer.addChild(&group);
    manager.addObject(&outer);
    const test::FailingNew watched(0);
    for (int round = 0; round < 20; ++round) {
        const float x = static_cast<float>(5 * round);
        sendPen(manager, PenMoved, {x, 30});
        sendPen(manager, PenDown, {x, 0});
        sendPen(manager, PenMoved, {x + 2, 3});
        sendPen(manager, PenUp, {x + 2, 3});
    }
    EXPECT_EQ(watched.allocations(), 0u);
    EXPECT_NE(axis.centre, VxPosition{}) << "something was dragged";
}

}  // namespace
}  // namespace ruvex
