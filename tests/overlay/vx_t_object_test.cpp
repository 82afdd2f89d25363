#include "overlay/vx_t_object.h"

#include <cfloat>
#include <gtest/gtest.h>
#include <limits>

#include "tests/overlay/scripted_object.h"

namespace ruvex {
namespace {

using test::CallLog;
using test::ScriptedObject;

class Object : public testing::Test {
protected:
    CallLog log;
    ScriptedObject object{"a", log, {10, 20}, {30, 40}};
};

/// Writes down whose bounds have changed, and takes any child.
class Parent final : public ScriptedObject {
public:
    using ScriptedObject::ScriptedObject;
    ~Parent() override {
        if (taken) taken->setParent(nullptr);
    }
    void childChanged(VxTObject* child) override { changed.push_back(child); }
    std::int32_t addChild(VxTObject* child) override {
        if (!accepts) return 0;
        taken = child;
        return 1;
    }

    std::vector<VxTObject*> changed;
    VxTObject* taken = nullptr;
    bool accepts = true;
};

TEST_F(Object, StartsEnabledVisibleAndWithoutATree) {
    const ScriptedObject fresh(nullptr, log, {}, {});
    EXPECT_FALSE(fresh.name);
    EXPECT_FALSE(fresh.tip);
    EXPECT_EQ(fresh.manager, nullptr);
    EXPECT_EQ(fresh.parent, nullptr);
    EXPECT_EQ(fresh.focus, nullptr);
    EXPECT_EQ(fresh.colour, (VxColour{1, 1, 1}));
    EXPECT_EQ(fresh.state, 3u);
    EXPECT_EQ(fresh.flags, 7u);
    EXPECT_EQ(fresh.uiScale, 1.0f);
    EXPECT_EQ(fresh.useGlobalMatrix, 0u);
}

TEST_F(Object, CopiesItsName) {
    char text[] = "box";
    const ScriptedObject named(text, log);
    text[0] = 'f';
    EXPECT_EQ(named.name, "box");
}

TEST_F(Object, PenEventsSetAndClearTheirFlags) {
    const std::uint32_t before = object.flags;
    EXPECT_EQ(object.VxTObject::penDown({}), 1);
    EXPECT_EQ(object.flags, before | 8u);
    EXPECT_EQ(object.VxTObject::penEnter({}), 1);
    EXPECT_EQ(object.flags, before | 24u);
    EXPECT_EQ(object.VxTObject::penUp(), 1);
    EXPECT_EQ(object.flags, before | 16u);
    EXPECT_EQ(object.VxTObject::penLeave(), 1);
    EXPECT_EQ(object.flags, before);
}

TEST_F(Object, MovesAndChangesItsSizeAndTellsTheParent) {
    Parent parent("parent", log);
    object.setParent(&parent);
    parent.changed.clear();
    object.setPosition(1, 2);
    object.setSize(3, 4);
    EXPECT_EQ(object.position, (VxPosition{1, 2}));
    EXPECT_EQ(object.size, (VxPosition{3, 4}));
    EXPECT_EQ(parent.changed, (std::vector<VxTObject*>{&object, &object}));
}

TEST_F(Object, IgnoresMovesAndSizesThatItsFlagsForbid) {
    Parent parent("parent", log);
    object.setParent(&parent);
    parent.changed.clear();
    object.flags = VxTObject::kSizeable;
    object.setPosition(1, 2);
    EXPECT_EQ(object.position, (VxPosition{10, 20}));
    object.flags = VxTObject::kMovable;
    object.setSize(3, 4);
    EXPECT_EQ(object.size, (VxPosition{30, 40}));
    EXPECT_TRUE(parent.changed.empty());
}

TEST_F(Object, AParentThatRefusesIsNotStored) {
    Parent parent("parent", log);
    parent.accepts = false;
    object.setParent(&parent);
    EXPECT_EQ(object.parent, nullptr);
    EXPECT_TRUE(parent.changed.empty());
    parent.accepts = true;
    object.setParent(&parent);
    EXPECT_EQ(object.parent, &parent);
    EXPECT_EQ(parent.changed, std::vector<VxTObject*>{&object});
}

TEST_F(Object, HasNoChildrenAndIsItsOwnFocus) {
    ScriptedObject other("b", log);
    EXPECT_EQ(object.addChild(&other), 0);
    EXPECT_EQ(object.removeChild(&other), 0);
    other.setParent(&object);
    EXPECT_EQ(other.parent, nullptr);
    EXPECT_EQ(object.setFocus(&other), &other);
    EXPECT_EQ(object.focus, &other);
    EXPECT_EQ(object.setFocus(nullptr), &object);
    EXPECT_EQ(object.focus, &object);
}

TEST_F(Object, IsFoundByItsExactName) {
    EXPECT_EQ(object.findByName("a"), &object);
    EXPECT_EQ(object.findByName("A"), nullptr);
    EXPECT_EQ(object.findByName("ab"), nullptr);
    EXPECT_EQ(object.findByName(""), nullptr);
    EXPECT_EQ(object.findByName(nullptr), nullptr);
    object.name.reset();
    EXPECT_EQ(object.findByName("a"), nullptr);
}

TEST_F(Object, AnswersWithTheWidestLimits) {
    VxPosition low{1, 1}, high, local;
    object.getMinimum(low);
    object.getMaximum(high);
    EXPECT_EQ(low, VxPosition{});
    EXPECT_EQ(high, (VxPosition{FLT_MAX, FLT_MAX}));
    object.toLocal(local, {13, 25});
    EXPECT_EQ(local, (VxPosition{3, 5}));
    object.setUiScale(2.5f);
    EXPECT_EQ(object.uiScale, 2.5f);
}

TEST_F(Object, AsksForARedrawOnlyWithAManager) {
    object.requestRedraw();
    VxTManager manager;
    manager.addObject(&object);
    manager.managerFlags = 0;
    object.requestRedraw();
    EXPECT_EQ(manager.managerFlags, VxTManager::kRedrawWanted);
}

TEST_F(Object, IsHitInItsBoundsWithTheRadiusAround) {
    // Bounds 10..40, 20..60; radius 2, 3.
    struct Case {
        VxPosition position;
        bool hit;
    };
    const Case cases[] = {
        {{25, 40}, true},
        {{8, 17}, true},
        {{42, 63}, true},
        {{8, 63}, true},
        {{7.99f, 40}, false},
        {{7, 40}, false},
        {{25, 16}, false},
        {{42.01f, 40}, false},
        {{25, 64}, false},
        {{42, 17}, true},
        {{std::numeric_limits<float>::quiet_NaN(), 40}, false},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(testObject(object, c.position, {2, 3}), c.hit ? hitOn(object) : kMiss)
            << test::textOf(c.position);
    }
}

TEST_F(Object, WithoutBoundsIsAskedEverywhere) {
    object.flags &= ~VxTObject::kHasBounds;
    EXPECT_EQ(testObject(object, {-1000, 1000}, {}), hitOn(object));
}

TEST_F(Object, IsHitOnlyIfVisibleAndEnabled) {
    for (const std::uint32_t state : {0u, 1u, 2u, 3u}) {
        log.clear();
        object.setState(state);
        EXPECT_EQ(testObject(object, {25, 40}, {}), state == 3 ? hitOn(object) : kMiss);
        EXPECT_EQ(log, state == 3 ? CallLog{"a hit"} : CallLog{}) << state;
    }
}

TEST_F(Object, AMissOfItsHitClearsTheFocusAndOneOfItsBoundsDoesNot) {
    object.focus = &object;
    EXPECT_EQ(testObject(object, {1000, 40}, {}), kMiss);
    EXPECT_EQ(object.focus, &object);
    object.hitResult = kMiss;
    EXPECT_EQ(testObject(object, {25, 40}, {}), kMiss);
    EXPECT_EQ(object.focus, nullptr);
}

/// Writes down the way in and out of its coordinate system.
class Ways final : public ScriptedObject {
public:
    Ways(CallLog& callLog) : ScriptedObject("w", callLog), ways(callLog) {}
    void enterLocal(const VxPosition& where, const VxPosition& radius) override {
        ways.push_back("enter " + test::textOf(where) + " " + test::textOf(radius));
    }
    void leaveLocal() override { ways.push_back("leave"); }

    CallLog& ways;
};

TEST_F(Object, IsEnteredBeforeItsHitAndLeftAfterwards) {
    Ways ways(log);
    testObject(ways, {4, 5}, {1, 2});
    EXPECT_EQ(log, (CallLog{"enter 4,5 1,2", "w hit", "leave"}));
}

TEST(Hit, OnAnObjectIsToldByTheLow32Bits) {
    EXPECT_FALSE(isObject(kMiss));
    EXPECT_FALSE(isObject(kHitNothing));
    EXPECT_FALSE(isObject(0xFFFFFFFFu));
    EXPECT_TRUE(isObject(0xFFFFFFFEu));
    EXPECT_TRUE(isObject(1));
}

}  // namespace
}  // namespace ruvex
