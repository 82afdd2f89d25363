#include "overlay/vx_t_2d_axis_group.h"

#include <cfloat>
#include <cmath>
#include <gtest/gtest.h>
#include <memory>

#include "tests/overlay/scripted_object.h"

namespace ruvex {
namespace {

using test::CallLog;
using test::childrenOf;
using test::ScriptedObject;
using test::sendPen;
using ListedObjects = std::vector<const VxTObject*>;

class AxisGroup : public testing::Test {
protected:
    void addTo(bool toFixed, VxTObject& child) {
        group.addToFixed = toFixed;
        EXPECT_EQ(group.addChild(&child), 1);
    }

    std::vector<float> childBounds() const {
        return {group.childBounds[0], group.childBounds[1], group.childBounds[2],
                group.childBounds[3]};
    }

    const std::vector<float> kNoBounds{FLT_MAX, -FLT_MAX, FLT_MAX, -FLT_MAX};
    CallLog log;
    VxT2DAxisGroup group{"group", VxT2DAxis::kCentre};
    ScriptedObject a{"a", log, {100, 50}}, b{"b", log, {-60, -80}, {5, 5}};
};

TEST_F(AxisGroup, StartsWithItsAxisAndWithoutChildren) {
    EXPECT_EQ(group.groupFlags, 1u);
    EXPECT_FALSE(group.drawGlobal);
    EXPECT_FALSE(group.addToFixed);
    EXPECT_EQ(childBounds(), kNoBounds);
    EXPECT_EQ(group.position, (VxPosition{-37, -37}));
    EXPECT_EQ(group.flags, 1u);
}

TEST_F(AxisGroup, AddsToOneOfItsLists) {
    VxTManager manager;
    manager.addObject(&group);
    addTo(false, a);
    addTo(true, b);
    EXPECT_EQ(childrenOf(group.transformed), ListedObjects{&a});
    EXPECT_EQ(childrenOf(group.fixed), ListedObjects{&b});
    for (const VxTObject* child : {&a, &b}) {
        EXPECT_EQ(child->parent, &group);
        EXPECT_EQ(child->manager, &manager);
    }
    for (const bool toFixed : {false, true}) {
        group.addToFixed = toFixed;
        EXPECT_EQ(group.addChild(&a), 0);
        EXPECT_EQ(group.addChild(&b), 0);
    }
    EXPECT_EQ(group.addChild(nullptr), 0);
    EXPECT_EQ(group.addChild(&group), 0);
}

TEST_F(AxisGroup, RemovesFromBothLists) {
    VxTManager manager;
    manager.addObject(&group);
    addTo(false, a);
    addTo(true, b);
    EXPECT_EQ(group.removeChild(&a), 1);
    EXPECT_EQ(group.removeChild(&a), 0);
    EXPECT_EQ(a.parent, nullptr);
    EXPECT_EQ(a.manager, nullptr);
    EXPECT_EQ(childBounds(), (std::vector<float>{-60, -55, -80, -75}));
    b.setParent(nullptr);
    EXPECT_TRUE(group.fixed.children.empty());
    EXPECT_EQ(b.manager, nullptr);
    EXPECT_EQ(childBounds(), kNoBounds);
    EXPECT_EQ(group.position, (VxPosition{-37, -37}));
    EXPECT_EQ(group.removeChild(nullptr), 0);
}

TEST_F(AxisGroup, BothWaysOfAddingLeaveTheSameTree) {
    for (const bool addFirst : {true, false}) {
        if (addFirst) {
            group.addChild(&a);
            a.setParent(&group);
        } else {
            a.setParent(&group);
            group.addChild(&a);
        }
        EXPECT_EQ(childrenOf(group.transformed), ListedObjects{&a});
        EXPECT_EQ(a.parent, &group);
        EXPECT_EQ(childBounds(), (std::vector<float>{100, 110, 50, 60}));
        group.removeChild(&a);
    }
}

TEST_F(AxisGroup, ItsExtentHasTheChildrenUnderTheTransform) {
    addTo(false, a);
    EXPECT_EQ(group.position, (VxPosition{-37, -37}));
    EXPECT_EQ(group.size, (VxPosition{147, 97})) << "to 110, 60";
    addTo(true, b);
    EXPECT_EQ(group.position, (VxPosition{-60, -80}));
    group.setCentre(10, 20);
    EXPECT_EQ(group.position, (VxPosition{-50, -60}));
    EXPECT_EQ(group.size, (VxPosition{170, 140})) << "to 120, 80";
    group.scaleUniform = 2;
    group.setCentre(0, 0);
    EXPECT_EQ(group.position, (VxPosition{-120, -160}));
    b.setPosition(0, 0);
    EXPECT_EQ(group.position, (VxPosition{-37, -37}));
    EXPECT_EQ(group.size, (VxPosition{257, 157}));
}

TEST_F(AxisGroup, ItsBoundsFollowADrag) {
    addTo(false, a);
    group.hit({0, 0}, {3, 3});
    group.penDown({0, 0});
    group.drag({1000, 0});
    EXPECT_EQ(group.position, (VxPosition{963, -37}));
    EXPECT_EQ(group.size, (VxPosition{147, 97}));
}

TEST_F(AxisGroup, HasNoBoundsIfAChildHasNone) {
    addTo(false, a);
    b.flags &= ~VxTObject::kHasBounds;
    addTo(true, b);
    EXPECT_EQ(group.flags & 1u, 0u);
    EXPECT_EQ(childBounds(), kNoBounds);
    EXPECT_EQ(group.position, (VxPosition{-37, -37}));
    b.flags |= VxTObject::kHasBounds;
    group.childChanged(nullptr);
    EXPECT_EQ(group.flags & 1u, 0u) << "no child, no look";
    group.childChanged(&b);
    EXPECT_EQ(group.flags & 1u, 1u);
    EXPECT_EQ(childBounds(), (std::vector<float>{-60, 110, -80, 60}));
}

TEST_F(AxisGroup, TellsItsParentOfItsBounds) {
    VxT2DAxisGroup outer("outer", VxT2DAxis::kCentre);
    outer.addChild(&group);
    group.addChild(&a);
    EXPECT_EQ(outer.size, (VxPosition{147, 97}));
    outer.removeChild(&group);
}

TEST_F(AxisGroup, HitsChildrenInTheCoordinatesOfTheTransform) {
    addTo(false, a);
    group.handles = 127;
    group.rotation = 90;
    group.scaleX = -0.5f;
    group.scaleY = 4;
    group.groupFlags = 0;
    group.setCentre(1000, 2000);
    // The middle of a, (105, 55): scaled (-52.5, 220), turned (-220, -52.5).
    EXPECT_EQ(group.hit({780, 1947.5f}, {0, 0}), hitOn(a));
    EXPECT_EQ(group.focus, &a);
    EXPECT_EQ(group.transformed.focus, &a);
    EXPECT_EQ(group.hit({780, 1940}, {0, 0}), kMiss) << "x is 120";
    EXPECT_EQ(group.focus, nullptr);
    // The radius is in these coordinates too: 6 on x is 12.
    EXPECT_EQ(group.hit({780, 1940}, {6, 0}), hitOn(a));
}

TEST_F(AxisGroup, HitsTransformedChildrenThenFixedOnesThenItsAxis) {
    ScriptedObject low("low", log, {-10, -10}, {20, 20}), high("high", log, {-10, -10}, {20, 20});
    addTo(true, low);
    addTo(false, high);
    const VxPosition pen{1, 1}, radius{3, 3};
    EXPECT_EQ(group.hit(pen, radius), hitOn(high));
    high.hitResult = kMiss;
    EXPECT_EQ(group.hit(pen, radius), hitOn(low));
    EXPECT_EQ(group.focus, &low);
    low.hitResult = kMiss;
    EXPECT_EQ(group.hit(pen, radius), hitOn(group));
    EXPECT_EQ(group.focus, &group);
    EXPECT_EQ(group.activeHandle, 3u);
    group.groupFlags = 0;
    EXPECT_EQ(group.hit(pen, radius), kMiss);
    EXPECT_EQ(group.focus, nullptr);
}

TEST_F(AxisGroup, AHitOnNothingIsHandedBack) {
    ScriptedObject low("low", log, {-10, -10}, {20, 20}), high("high", log, {-10, -10}, {20, 20});
    addTo(true, low);
    addTo(false, high);
    high.hitResult = kHitNothing;
    EXPECT_EQ(group.hit({1, 1}, {3, 3}), kHitNothing) << "neither low nor the axis is asked";
    EXPECT_EQ(group.focus, nullptr);
    high.hitResult = kMiss;
    low.hitResult = kHitNothing;
    EXPECT_EQ(group.hit({1, 1}, {3, 3}), kHitNothing);
}

TEST_F(AxisGroup, SetsTheFocusOfTheListThatHasTheChild) {
    addTo(false, a);
    addTo(true, b);
    EXPECT_EQ(group.setFocus(&a), &a);
    EXPECT_EQ(group.transformed.focus, &a);
    EXPECT_EQ(group.fixed.focus, nullptr);
    EXPECT_EQ(group.setFocus(&b), &b);
    EXPECT_EQ(group.fixed.focus, &b);
    EXPECT_EQ(group.focus, &b);
    EXPECT_EQ(group.setFocus(nullptr), &group);
    EXPECT_EQ(group.fixed.focus, &group);
}

TEST_F(AxisGroup, EntersItsTransformOnTheGlobalStack) {
    VxMatrixStack& stack = VxTDraw::matrixStack;
    group.setCentre(10, 20);
    group.scaleUniform = 2;
    const int depth = stack.depth();
    group.enterLocal({}, {});
    EXPECT_EQ(stack.depth(), depth + 1);
    EXPECT_EQ(stack.top(), (VxMatrix{{{2, 0, 0}, {0, 2, 0}, {10, 20, 1}}}));
    VxT2DAxisGroup inner("inner", VxT2DAxis::kCentre);
    inner.setCentre(1, 1);
    inner.enterLocal({}, {});
    EXPECT_EQ(stack.top(), (VxMatrix{{{2, 0, 0}, {0, 2, 0}, {12, 22, 1}}})) << "under the outer";
    inner.leaveLocal();
    group.leaveLocal();
    EXPECT_EQ(stack.depth(), depth);
    EXPECT_EQ(stack.top(), VxMatrix());
}

TEST_F(AxisGroup, EventsReachChildrenInTheirCoordinatesAndLeaveTheStackAsItWas) {
    VxTManager manager;
    VxT2DAxisGroup outer("outer", VxT2DAxis::kCentre);
    outer.groupFlags = group.groupFlags = 0;
    addTo(true, a);
    outer.addChild(&group);
    manager.addObject(&outer);
    outer.setCentre(1000, 0);
    group.setCentre(0, 500);
    a.logsPositions = true;
    int depthInside = 0;
    a.reaction = [&](const std::string&) { depthInside = VxTDraw::matrixStack.depth(); };
    sendPen(manager, VxMessageId::PenDown, {1105, 555});
    EXPECT_EQ(manager.over, &a);
    EXPECT_EQ(log.back(), "a penDown 105,55");
    EXPECT_EQ(depthInside, 2);
    EXPECT_EQ(VxTDraw::matrixStack.depth(), 0);
    manager.removeObject(&outer);
}

/// More groups in one another than the global matrix stack has entries. Each moves by 1 along X.
class DeepAxisGroups : public testing::Test {
protected:
    DeepAxisGroups() {
        for (int level = 0; level < kLevels; ++level) {
            groups.push_back(std::make_unique<VxT2DAxisGroup>("group", VxT2DAxis::kCentre));
            groups.back()->groupFlags = 0;
            groups.back()->addToFixed = true;
        }
        groups.back()->addChild(&leaf);
        for (std::size_t level = groups.size() - 1; level > 0; --level) {
            groups[level - 1]->addChild(groups[level].get());
        }
        for (const auto& group : groups) group->setCentre(1, 0);
        manager.addObject(groups.front().get());
        leaf.logsPositions = true;
        leaf.reaction = [this](const std::string&) {
            depthInside = VxTDraw::matrixStack.depth();
            matrixInside = VxTDraw::matrixStack.top();
        };
    }
    ~DeepAxisGroups() override { VxTDraw::matrixStack = {}; }

    static constexpr int kLevels = 40;
    CallLog log;
    VxTManager manager;
    std::vector<std::unique_ptr<VxT2DAxisGroup>> groups;
    ScriptedObject leaf{"leaf", log, {100, 50}};
    int depthInside = 0;
    VxMatrix matrixInside;
};

TEST_F(DeepAxisGroups, ReachALeafThroughAFullMatrixStack) {
    sendPen(manager, VxMessageId::PenDown, {145, 55});
    EXPECT_EQ(manager.over, &leaf);
    EXPECT_EQ(log.back(), "leaf penDown 105,55");
    EXPECT_EQ(depthInside, 31);
    // The last levels share the top entry.
    EXPECT_EQ(matrixInside, (VxMatrix{{{1, 0, 0}, {0, 1, 0}, {kLevels, 0, 1}}}));
    EXPECT_EQ(VxTDraw::matrixStack.depth(), 0);
    EXPECT_EQ(VxTDraw::matrixStack.top(), VxMatrix());
}

TEST_F(DeepAxisGroups, TakeMoreEntriesFromTheMatrixStackThanTheyPut) {
    for (int i = 0; i < 5; ++i) VxTDraw::pushMatrix();
    VxPosition local;
    for (const auto& group : groups) group->enterLocal(local, local);
    EXPECT_EQ(VxTDraw::matrixStack.depth(), 31) << "26 of 40 found room";
    EXPECT_EQ(VxTDraw::popMatrix().m[2][0], 25) << "the matrix of 25 groups";
    VxTDraw::pushMatrix();
    for (const auto& group : groups) group->leaveLocal();
    EXPECT_EQ(VxTDraw::matrixStack.depth(), 0) << "the 5 from before are gone";
    EXPECT_EQ(VxTDraw::matrixStack.top(), VxMatrix());
}

TEST_F(AxisGroup, HandsItsManagerToBothLists) {
    addTo(false, a);
    addTo(true, b);
    {
        VxTManager manager;
        group.setManager(&manager);
        EXPECT_EQ(a.manager, &manager);
        EXPECT_EQ(b.manager, &manager);
        group.setManager(nullptr);
    }
    EXPECT_EQ(b.manager, nullptr);
}

TEST_F(AxisGroup, LeavesItsChildrenWithoutAParentWhenItDies) {
    {
        VxTManager manager;
        VxT2DAxisGroup dying("dying", VxT2DAxis::kCentre);
        manager.addObject(&dying);
        dying.addChild(&a);
        dying.addToFixed = true;
        dying.addChild(&b);
    }
    EXPECT_EQ(a.parent, nullptr);
    EXPECT_EQ(b.parent, nullptr);
    EXPECT_EQ(b.manager, nullptr);
}

}  // namespace
}  // namespace ruvex
