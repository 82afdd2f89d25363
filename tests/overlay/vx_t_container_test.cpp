#include "overlay/vx_t_container.h"

#include <algorithm>
#include <array>
#include <cfloat>
#include <gtest/gtest.h>

#include "overlay/vx_t_group.h"
#include "overlay/vx_t_manager.h"
#include "tests/overlay/scripted_object.h"

namespace ruvex {
namespace {

using test::CallLog;
using test::childrenOf;
using test::ScriptedObject;
using Objects = std::vector<const VxTObject*>;
using Extent = std::array<float, 4>;

class Container : public testing::Test {
protected:
    Container() {
        for (VxTObject* object : {&a, &b, &c}) container.add(object);
    }
    ~Container() override {
        // The objects do not know the list.
        for (VxTObject* object : {&a, &b, &c}) container.remove(object);
    }

    Extent bounds() {
        float extent[4];
        result = container.getBounds(extent);
        return {extent[0], extent[1], extent[2], extent[3]};
    }

    CallLog log;
    VxTContainer container;
    ScriptedObject a{"a", log}, b{"b", log, {5, 5}}, c{"c", log, {-20, 30}, {1, 2}};
    BoundsState result{};
};

TEST_F(Container, RefusesNullAndDuplicates) {
    EXPECT_EQ(container.add(nullptr), 0);
    EXPECT_EQ(container.add(&a), 0);
    EXPECT_EQ(childrenOf(container), (Objects{&a, &b, &c}));
    EXPECT_EQ(container.remove(nullptr), 0);
    EXPECT_EQ(container.remove(&b), 1);
    EXPECT_EQ(container.remove(&b), 0);
    EXPECT_EQ(childrenOf(container), (Objects{&a, &c}));
    EXPECT_EQ(container.find(&b), nullptr);
    EXPECT_EQ(container.find(nullptr), nullptr);
    EXPECT_EQ(container.find(&c), &c);
}

TEST_F(Container, TheBoundsStateIsThatOfTheObjectAddedLast) {
    EXPECT_EQ(VxTContainer().boundsState, BoundsState::NoChildren);
    a.flags &= ~VxTObject::kHasBounds;
    for (VxTObject* object : {&a, &b}) container.remove(object);
    container.add(&a);
    EXPECT_EQ(container.boundsState, BoundsState::SomeWithout);
    container.add(&b);
    EXPECT_EQ(container.boundsState, BoundsState::AllHave) << "although a has none";
    bounds();
    EXPECT_EQ(container.boundsState, BoundsState::SomeWithout);
}

TEST_F(Container, ItsBoundsCoverAllChildrenWithBounds) {
    EXPECT_EQ(bounds(), (Extent{-20, 15, 0, 32}));
    EXPECT_EQ(result, BoundsState::AllHave);
    c.flags = 0;
    EXPECT_EQ(bounds(), (Extent{0, 15, 0, 15}));
    EXPECT_EQ(result, BoundsState::SomeWithout);
    EXPECT_EQ(container.boundsState, BoundsState::SomeWithout);
    a.flags = b.flags = 0;
    EXPECT_EQ(bounds(), (Extent{FLT_MAX, -FLT_MAX, FLT_MAX, -FLT_MAX}));
    EXPECT_EQ(result, BoundsState::SomeWithout);
    container.clear();
    EXPECT_EQ(bounds(), Extent{});
    EXPECT_EQ(result, BoundsState::NoChildren);
}

TEST_F(Container, DrawsVisibleChildrenInOrderDisabledOnesToo) {
    a.setState(VxTObject::kVisible);
    b.setState(VxTObject::kEnabled);
    container.drawAll();
    EXPECT_EQ(log, (CallLog{"a draw", "c draw"}));
}

TEST_F(Container, ADrawnChildMayRemoveItself) {
    for (ScriptedObject* object : {&a, &b, &c}) {
        object->reaction = [this, object](const std::string&) { container.remove(object); };
    }
    container.drawAll();
    EXPECT_EQ(log, (CallLog{"a draw", "b draw", "c draw"}));
    EXPECT_TRUE(container.children.empty());
}

TEST_F(Container, ADrawnChildThatRemovesTheNextOneIsDrawnAgain) {
    a.reaction = [this](const std::string&) { container.remove(&b); };
    container.drawAll();
    EXPECT_EQ(log, (CallLog{"a draw", "a draw", "c draw"}));
}

TEST_F(Container, ADrawnChildMayAddAnotherOrEmptyTheList) {
    ScriptedObject late("late", log);
    c.reaction = [&](const std::string&) { container.add(&late); };
    container.drawAll();
    EXPECT_EQ(log, (CallLog{"a draw", "b draw", "c draw"})) << "late came behind the last";
    log.clear();
    b.reaction = [&](const std::string&) { container.clear(); };
    container.drawAll();
    EXPECT_EQ(log, (CallLog{"a draw", "b draw"}));
}

TEST_F(Container, TheTopChildIsHit) {
    EXPECT_EQ(container.hitChildren({7, 7}, {}), hitOn(b));
    EXPECT_EQ(container.focus, &b);
    EXPECT_EQ(log, CallLog{"b hit"}) << "those below are not asked";
    EXPECT_EQ(container.hitChildren({2, 2}, {}), hitOn(a));
    EXPECT_EQ(container.focus, &a);
    EXPECT_EQ(container.hitChildren({200, 2}, {}), kMiss);
    EXPECT_EQ(container.focus, nullptr);
}

TEST_F(Container, AHitOnNothingEndsTheSearchWithoutAFocus) {
    b.hitResult = kHitNothing;
    EXPECT_EQ(container.hitChildren({7, 7}, {}), kHitNothing);
    EXPECT_EQ(container.focus, nullptr);
    EXPECT_EQ(log, CallLog{"b hit"});
    b.hitResult = 0xFFFFFFFFu;
    EXPECT_EQ(container.hitChildren({7, 7}, {}), 0xFFFFFFFFu);
    EXPECT_EQ(container.focus, nullptr);
    b.hitResult = kHitNothing - 1;
    EXPECT_EQ(container.hitChildren({7, 7}, {}), kHitNothing - 1);
    EXPECT_EQ(container.focus, &b);
}

TEST_F(Container, ForgetsTheFocusOnARemovedChild) {
    container.hitChildren({7, 7}, {});
    container.remove(&a);
    EXPECT_EQ(container.focus, &b);
    container.remove(&b);
    EXPECT_EQ(container.focus, nullptr);
}

TEST_F(Container, GivesAllChildrenAManager) {
    VxTManager manager;
    container.setManagerForAll(&manager);
    EXPECT_EQ(a.manager, &manager);
    EXPECT_EQ(c.manager, &manager);
    container.setManagerForAll(nullptr);
    EXPECT_EQ(a.manager, nullptr);
}

/// Says how many of it there are.
class Counted final : public ScriptedObject {
public:
    Counted(CallLog& callLog, int& living) : ScriptedObject("counted", callLog), living_(living) {
        ++living_;
    }
    ~Counted() override { --living_; }

private:
    int& living_;
};

/// Says, when it dies, whether another object still has a parent or a manager.
class Witness final : public ScriptedObject {
public:
    using ScriptedObject::ScriptedObject;
    ~Witness() override {
        if (other) *otherWasInATree = other->parent || other->manager;
    }

    const VxTObject* other = nullptr;
    bool* otherWasInATree = nullptr;
};

TEST(OwningContainer, TakesAllChildrenOutOfTheTreeBeforeItDeletesTheFirst) {
    CallLog log;
    VxTManager manager;
    VxTGroup group("group");
    bool wasInATree = true;
    {
        auto* const first = new Witness("first", log);
        auto* const second = new Witness("second", log);
        first->other = second;
        first->otherWasInATree = &wasInATree;
        manager.addObject(&group);
        group.addChild(first);
        group.addChild(second);
    }
    group.ownsChildren = true;
    group.clear();
    EXPECT_FALSE(wasInATree);
    EXPECT_TRUE(group.children.empty());
    EXPECT_EQ(group.VxTContainer::focus, nullptr);
}

TEST(OwningContainer, DeletesItsChildrenOnlyIfItOwnsThem) {
    CallLog log;
    int living = 0;
    {
        VxTContainer owner;
        owner.ownsChildren = true;
        owner.add(new Counted(log, living));
        owner.add(new Counted(log, living));
        EXPECT_EQ(living, 2);
    }
    EXPECT_EQ(living, 0);
    Counted kept(log, living);
    {
        VxTContainer list;
        list.add(&kept);
    }
    EXPECT_EQ(living, 1);
}

}  // namespace
}  // namespace ruvex
