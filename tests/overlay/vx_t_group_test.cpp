#include "overlay/vx_t_group.h"

#include <gtest/gtest.h>

#include "tests/overlay/scripted_object.h"

namespace ruvex {
namespace {

using test::CallLog;
using test::childrenOf;
using test::ScriptedObject;
using Objects = std::vector<const VxTObject*>;

class Group : public testing::Test {
protected:
    CallLog log;
    VxTGroup group{"group"};
    ScriptedObject a{"a", log, {10, 20}}, b{"b", log, {-5, 30}, {2, 100}};
};

TEST_F(Group, HasThreeFlagsAndCanNeitherBeMovedNorSized) {
    EXPECT_EQ(group.groupFlags, 7u);
    EXPECT_EQ(group.background, paletteGrey);
    EXPECT_EQ(group.flags, 1u);
    EXPECT_EQ(group.state, 3u);
    EXPECT_EQ(group.name, "group");
    group.setPosition(1, 2);
    group.setSize(3, 4);
    EXPECT_EQ(group.position, VxPosition{});
    EXPECT_EQ(group.size, VxPosition{});
}

TEST_F(Group, HasNoPenEventsOfItsOwn) {
    const std::uint32_t before = group.flags;
    EXPECT_EQ(group.drag({}), 0);
    EXPECT_EQ(group.penDown({}), 0);
    EXPECT_EQ(group.penUp(), 0);
    EXPECT_EQ(group.penEnter({}), 0);
    EXPECT_EQ(group.penLeave(), 0);
    EXPECT_EQ(group.flags, before);
    VxPosition local;
    group.position = {3, 3};
    group.toLocal(local, {7, 8});
    EXPECT_EQ(local, (VxPosition{7, 8}));
}

TEST_F(Group, RefusesNullDuplicatesAndItself) {
    VxTGroup inner("inner");
    EXPECT_EQ(group.addChild(nullptr), 0);
    EXPECT_EQ(group.addChild(&group), 0);
    EXPECT_EQ(group.addChild(&inner), 1);
    EXPECT_EQ(group.addChild(&inner), 0);
    EXPECT_EQ(inner.addChild(&group), 0) << "inner is below group";
    EXPECT_EQ(group.removeChild(&a), 0);
    EXPECT_EQ(group.removeChild(nullptr), 0);
    EXPECT_EQ(childrenOf(group), Objects{&inner});
}

TEST_F(Group, AChildKnowsItsParentWhicheverOfThePairIsCalled) {
    VxTManager manager;
    manager.addObject(&group);
    for (const bool addFirst : {true, false}) {
        for (VxTObject* child : {&a, &b}) {
            if (addFirst) {
                EXPECT_EQ(group.addChild(child), 1);
                child->setParent(&group);
            } else {
                child->setParent(&group);
                EXPECT_EQ(group.addChild(child), 0);
            }
            EXPECT_EQ(child->parent, &group);
            EXPECT_EQ(child->manager, &manager);
        }
        EXPECT_EQ(childrenOf(group), (Objects{&a, &b}));
        EXPECT_EQ(group.position, (VxPosition{-5, 20}));
        EXPECT_EQ(group.size, (VxPosition{25, 110}));
        EXPECT_EQ(group.flags, 1u);
        for (VxTObject* child : {&a, &b}) {
            child->setParent(nullptr);
            EXPECT_EQ(child->parent, nullptr);
            EXPECT_EQ(child->manager, nullptr);
        }
        EXPECT_TRUE(group.children.empty());
    }
}

TEST_F(Group, TakesTheBoundsOfTheFirstChildAndWidensThemForOthers) {
    group.addChild(&a);
    EXPECT_EQ(group.position, (VxPosition{10, 20}));
    EXPECT_EQ(group.size, (VxPosition{10, 10}));
    group.addChild(&b);
    EXPECT_EQ(group.position, (VxPosition{-5, 20}));
    EXPECT_EQ(group.size, (VxPosition{25, 110}));
    group.removeChild(&a);
    EXPECT_EQ(group.position, (VxPosition{-5, 30}));
    EXPECT_EQ(group.size, (VxPosition{2, 100}));
    group.removeChild(&b);
    EXPECT_EQ(group.position, VxPosition{});
    EXPECT_EQ(group.size, VxPosition{});
    EXPECT_EQ(group.flags, 1u) << "an empty group has bounds";
}

TEST_F(Group, AfterAddingItHasBoundsIfTheLastChildHasAndAfterAChangeIfAllHave) {
    a.flags = VxTObject::kMovable;
    group.addChild(&a);
    EXPECT_EQ(group.flags & 1u, 0u);
    group.addChild(&b);
    EXPECT_EQ(group.flags & 1u, 1u);
    b.setPosition(0, 0);
    EXPECT_EQ(group.flags & 1u, 0u) << "a has none";
}

TEST_F(Group, PassesChangesOnToItsParent) {
    VxTGroup outer("outer");
    group.setParent(&outer);
    a.setParent(&group);
    EXPECT_EQ(outer.position, (VxPosition{10, 20}));
    a.setPosition(-100, 0);
    EXPECT_EQ(group.position, (VxPosition{-100, 0}));
    EXPECT_EQ(outer.position, (VxPosition{-100, 0}));
    a.setSize(1, 2);
    EXPECT_EQ(outer.size, (VxPosition{1, 2}));
}

TEST_F(Group, AddingAChildWidensTheBoundsOfAllGroupsAbove) {
    VxTGroup middle("middle"), top("top");
    top.addChild(&middle);
    middle.addChild(&group);
    group.addChild(&a);
    for (const VxTGroup* each : {&group, &middle, &top}) {
        EXPECT_EQ(each->position, (VxPosition{10, 20})) << *each->name;
        EXPECT_EQ(each->size, (VxPosition{10, 10})) << *each->name;
    }
    group.addChild(&b);
    for (const VxTGroup* each : {&group, &middle, &top}) {
        EXPECT_EQ(each->position, (VxPosition{-5, 20})) << *each->name;
        EXPECT_EQ(each->size, (VxPosition{25, 110})) << *each->name;
    }
    ScriptedObject boundless("boundless", log);
    boundless.flags &= ~VxTObject::kHasBounds;
    group.addChild(&boundless);
    EXPECT_EQ(top.flags & VxTObject::kHasBounds, 0u);
}

TEST_F(Group, TellsItsParentWhenItIsEmptied) {
    VxTGroup outer("outer");
    outer.addChild(&group);
    group.addChild(&a);
    group.addChild(&b);
    group.clear();
    EXPECT_TRUE(group.children.empty());
    EXPECT_EQ(a.parent, nullptr);
    EXPECT_EQ(b.parent, nullptr);
    EXPECT_EQ(group.size, VxPosition{});
    EXPECT_EQ(outer.size, VxPosition{});
}

TEST_F(Group, SwallowsHitsOnItsEmptyAreaOnlyWithItsFlag) {
    group.addChild(&a);
    group.focus = &a;
    EXPECT_EQ(group.hit({0, 0}, {}), kHitNothing);
    EXPECT_EQ(group.focus, nullptr);
    group.groupFlags &= ~VxTGroup::kSwallowHits;
    EXPECT_EQ(group.hit({0, 0}, {}), kMiss);
    EXPECT_EQ(group.hit({15, 25}, {}), hitOn(a));
    EXPECT_EQ(group.focus, &a);
    a.hitResult = kHitNothing;
    EXPECT_EQ(group.hit({15, 25}, {}), kHitNothing);
    EXPECT_EQ(group.focus, nullptr);
}

TEST_F(Group, SetsBothItsFocuses) {
    group.addChild(&a);
    EXPECT_EQ(group.setFocus(&a), &a);
    EXPECT_EQ(group.VxTObject::focus, &a);
    EXPECT_EQ(group.VxTContainer::focus, &a);
    EXPECT_EQ(group.setFocus(nullptr), &group);
    EXPECT_EQ(group.VxTContainer::focus, &group);
}

TEST_F(Group, HandsItsManagerOn) {
    VxTGroup outer("outer");
    outer.addChild(&group);
    group.addChild(&a);
    {
        VxTManager manager;
        manager.addObject(&outer);
        EXPECT_EQ(a.manager, &manager);
        group.addChild(&b);
        EXPECT_EQ(b.manager, &manager);
        outer.setParent(nullptr);
        EXPECT_EQ(b.manager, nullptr);
        manager.addObject(&outer);
    }
    EXPECT_EQ(outer.manager, nullptr);
    EXPECT_EQ(a.manager, nullptr);
    EXPECT_EQ(a.parent, &group) << "the group stays whole";
}

TEST_F(Group, AChildIsInOneListAtATime) {
    VxTGroup other("other");
    VxTManager manager;
    group.addChild(&a);
    a.setParent(&other);
    EXPECT_TRUE(group.children.empty());
    EXPECT_EQ(childrenOf(other), Objects{&a});
    EXPECT_EQ(manager.addObject(&a), 1);
    EXPECT_TRUE(other.children.empty());
    EXPECT_EQ(a.parent, nullptr);
    EXPECT_EQ(a.manager, &manager);
    EXPECT_EQ(childrenOf(manager), Objects{&a});
    EXPECT_EQ(group.addChild(&a), 1);
    EXPECT_TRUE(manager.children.empty());
    EXPECT_EQ(a.manager, nullptr) << "the group has none";
    EXPECT_EQ(childrenOf(group), Objects{&a});
}

TEST_F(Group, IsWithinItselfAndEverythingAbove) {
    VxTGroup outer("outer");
    outer.addChild(&group);
    group.addChild(&a);
    EXPECT_TRUE(a.isWithin(a));
    EXPECT_TRUE(a.isWithin(outer));
    EXPECT_FALSE(outer.isWithin(a));
    EXPECT_FALSE(b.isWithin(outer));
}

/// Draws its background into the log instead.
class Backed final : public VxTGroup {
public:
    explicit Backed(CallLog& callLog) : VxTGroup("backed"), log(callLog) {}
    void drawBackground() override { log.push_back("background"); }

    CallLog& log;
};

TEST_F(Group, DrawsItsBackgroundBelowItsChildren) {
    Backed backed(log);
    backed.addChild(&a);
    backed.addChild(&b);
    backed.draw();
    EXPECT_EQ(log, (CallLog{"background", "a draw", "b draw"}));
    log.clear();
    backed.groupFlags &= ~VxTGroup::kDrawBackground;
    backed.draw();
    EXPECT_EQ(log, (CallLog{"a draw", "b draw"}));
}

}  // namespace
}  // namespace ruvex
