#include <algorithm>
#include <gtest/gtest.h>
#include <memory>

#include "overlay/vx_t_2d_axis_group.h"
#include "overlay/vx_t_group.h"
#include "tests/overlay/scripted_object.h"

namespace ruvex {
namespace {

using test::CallLog;
using test::ScriptedObject;
using test::sendPen;
using enum VxMessageId;

constexpr VxPosition kInside{5, 5}, kAlsoInside{6, 6};

/// Manager, group (that pushes on the global matrix stack), group, object.
struct Tree {
    Tree() {
        manager = std::make_unique<VxTManager>();
        outer = std::make_unique<VxT2DAxisGroup>("outer", VxT2DAxis::kCentre);
        inner = std::make_unique<VxTGroup>("inner");
        object = std::make_unique<ScriptedObject>("object", log);
        outer->groupFlags = 0;
        inner->addChild(object.get());
        outer->addChild(inner.get());
        manager->addObject(outer.get());
        manager->fallback = object.get();
    }

    void destroy(int which) {
        if (which == 0) manager.reset();
        if (which == 1) outer.reset();
        if (which == 2) inner.reset();
        if (which == 3) object.reset();
    }

    /// What is left of the tree knows nothing of what is gone.
    void check() const {
        const VxTManager* const root = outer && inner && object ? nullptr : manager.get();
        if (root) {
            EXPECT_EQ(root->over, nullptr);
            EXPECT_EQ(root->fallback, nullptr);
            EXPECT_EQ(root->focus, nullptr);
        }
        if (manager) {
            EXPECT_EQ(test::childrenOf(*manager).size(), outer ? 1u : 0u);
        }
        if (outer) {
            EXPECT_EQ(outer->manager, manager.get());
            EXPECT_EQ(test::childrenOf(outer->transformed).size(), inner ? 1u : 0u);
        }
        if (inner) {
            EXPECT_EQ(inner->parent, outer.get());
            EXPECT_EQ(inner->manager, outer ? manager.get() : nullptr);
            EXPECT_EQ(test::childrenOf(*inner).size(), object ? 1u : 0u);
        }
        if (object) {
            EXPECT_EQ(object->parent, inner.get());
            EXPECT_EQ(object->manager, inner && outer ? manager.get() : nullptr);
        }
    }

    CallLog log;
    std::unique_ptr<VxTManager> manager;
    std::unique_ptr<VxT2DAxisGroup> outer;
    std::unique_ptr<VxTGroup> inner;
    std::unique_ptr<ScriptedObject> object;
};

TEST(TreeLifetime, ManagerGroupsAndObjectDieInAnyOrder) {
    int order[] = {0, 1, 2, 3};
    do {
        Tree tree;
        sendPen(*tree.manager, PenMoved, kInside);
        sendPen(*tree.manager, PenDown, kInside);
        ASSERT_EQ(tree.manager->over, tree.object.get());
        for (const int which : order) {
            SCOPED_TRACE(testing::Message()
                         << order[0] << order[1] << order[2] << order[3] << ", now " << which);
            tree.destroy(which);
            tree.check();
            if (tree.manager) {
                sendPen(*tree.manager, PenMoved, kAlsoInside);
                sendPen(*tree.manager, PenUp, kInside);
                tree.manager->fallback = nullptr;
            }
        }
    } while (std::next_permutation(std::begin(order), std::end(order)));
}

/// No focus of a group and of its lists leads anywhere.
void expectNoFocus(const Tree& tree) {
    if (tree.inner) {
        EXPECT_EQ(tree.inner->focus, nullptr);
        EXPECT_EQ(tree.inner->VxTContainer::focus, nullptr);
    }
    if (tree.outer) {
        EXPECT_EQ(tree.outer->focus, nullptr);
        EXPECT_EQ(tree.outer->transformed.focus, nullptr);
        EXPECT_EQ(tree.outer->fixed.focus, nullptr);
    }
}

/// What an object's handler does to the tree.
enum class Deed {
    RemoveSelf,
    RemoveParent,
    RemoveTop,
    DestroySelf,
    DestroyAllFromBelow,
    DestroyAllFromAbove,
    RemoveTopAndDestroyAll,
    MoveToTheTop
};

void doTo(Tree& tree, Deed deed) {
    switch (deed) {
        case Deed::RemoveSelf:
            tree.object->setParent(nullptr);
            break;
        case Deed::RemoveParent:
            tree.outer->removeChild(tree.inner.get());
            break;
        case Deed::RemoveTop:
            tree.manager->removeObject(tree.outer.get());
            break;
        case Deed::DestroySelf:
            tree.object.reset();
            break;
        case Deed::DestroyAllFromBelow:
            for (const int which : {3, 2, 1}) tree.destroy(which);
            break;
        case Deed::RemoveTopAndDestroyAll:
            tree.manager->removeObject(tree.outer.get());
            for (const int which : {3, 2, 1}) tree.destroy(which);
            break;
        case Deed::DestroyAllFromAbove:
            for (const int which : {1, 2, 3}) tree.destroy(which);
            break;
        case Deed::MoveToTheTop:
            tree.manager->addObject(tree.object.get());
            break;
    }
}

constexpr Deed kDeeds[] = {Deed::RemoveSelf,          Deed::RemoveParent,
                           Deed::RemoveTop,           Deed::DestroySelf,
                           Deed::DestroyAllFromBelow, Deed::DestroyAllFromAbove,
                           Deed::MoveToTheTop,        Deed::RemoveTopAndDestroyAll};

/// Moves, presses, drags and releases the pen.
void useThePen(VxTManager& manager) {
    sendPen(manager, PenMoved, kInside);
    sendPen(manager, PenMoved, kAlsoInside);
    sendPen(manager, PenDown, kInside);
    sendPen(manager, PenMoved, kAlsoInside);
    sendPen(manager, PenUp, kInside);
}

TEST(TreeLifetime, AHandlerMayRemoveOrDestroyItsObjectAndAllAbove) {
    for (const Deed deed : kDeeds) {
        for (const char* const call : {"penEnter", "penLeave", "penDown", "drag", "penUp"}) {
            SCOPED_TRACE(testing::Message() << call << ", deed " << static_cast<int>(deed));
            Tree tree;
            bool done = false;
            tree.object->reaction = [&](const std::string& name) {
                if (done || name != call) return;
                done = true;
                doTo(tree, deed);
                EXPECT_EQ(tree.manager->over, nullptr);
                EXPECT_EQ(tree.manager->focus, nullptr);
            };
            const int depth = VxTDraw::matrixStack.depth();
            useThePen(*tree.manager);
            EXPECT_TRUE(done);
            EXPECT_EQ(VxTDraw::matrixStack.depth(), depth);
            EXPECT_EQ(VxTDraw::matrixStack.top(), VxMatrix());
            EXPECT_EQ(tree.manager->managerFlags & ~1u, 0u);
            useThePen(*tree.manager);
            const bool isThere = deed == Deed::MoveToTheTop;
            EXPECT_EQ(tree.manager->over, isThere ? tree.object.get() : nullptr);
        }
    }
}

TEST(TreeLifetime, RemovalForgetsThePressedAndTheHoveredObject) {
    for (const Deed deed : kDeeds) {
        for (const bool pressed : {false, true}) {
            Tree tree;
            tree.manager->fallback = nullptr;
            sendPen(*tree.manager, PenMoved, kInside);
            if (pressed) sendPen(*tree.manager, PenDown, kInside);
            ASSERT_EQ(tree.manager->over, tree.object.get());
            doTo(tree, deed);
            EXPECT_EQ(tree.manager->over, nullptr);
            EXPECT_EQ(tree.manager->focus, nullptr);
            if (deed == Deed::RemoveSelf || deed == Deed::MoveToTheTop) {
                EXPECT_EQ(tree.object->focus, nullptr);
                expectNoFocus(tree);
            }
            if (tree.object) {
                EXPECT_FALSE(tree.object->isHovered());
                EXPECT_FALSE(tree.object->isPressed());
            }
            tree.log.clear();
            sendPen(*tree.manager, PenMoved, kAlsoInside);
            if (pressed) {
                EXPECT_EQ(tree.log, CallLog{}) << "the drag has lost its object";
            }
        }
    }
}

TEST(TreeLifetime, RemovalOfAnObjectBesideTheFocusKeepsIt) {
    Tree tree;
    ScriptedObject other("other", tree.log, {100, 100});
    tree.inner->addChild(&other);
    sendPen(*tree.manager, PenDown, kInside);
    other.setParent(nullptr);
    EXPECT_EQ(tree.manager->over, tree.object.get());
    EXPECT_EQ(tree.manager->fallback, tree.object.get());
    tree.log.clear();
    sendPen(*tree.manager, PenMoved, kAlsoInside);
    EXPECT_EQ(tree.log, CallLog{"object drag"});
}

TEST(TreeLifetime, RemovalWithoutAManagerClearsTheFocusOfTheGroups) {
    Tree tree;
    tree.manager.reset();
    EXPECT_EQ(testObject(*tree.outer, kInside, {}), hitOn(*tree.object));
    EXPECT_EQ(tree.outer->focus, tree.inner.get());
    EXPECT_EQ(tree.outer->transformed.focus, tree.inner.get());
    EXPECT_EQ(tree.inner->VxTContainer::focus, tree.object.get());
    tree.object.reset();
    expectNoFocus(tree);
}

TEST(TreeLifetime, RemovalClearsTheFocusOfAllKindsOfLists) {
    for (const bool toFixed : {false, true}) {
        CallLog log;
        VxTGroup top("top"), low("low");
        VxT2DAxisGroup axis("axis", VxT2DAxis::kCentre);
        ScriptedObject object("object", log);
        axis.groupFlags = 0;
        axis.addToFixed = toFixed;
        top.addChild(&axis);
        axis.addChild(&low);
        low.addChild(&object);
        EXPECT_EQ(testObject(top, kInside, {}), hitOn(object));
        EXPECT_EQ(top.VxTContainer::focus, &axis);
        EXPECT_EQ((toFixed ? axis.fixed : axis.transformed).focus, &low);
        object.setParent(nullptr);
        EXPECT_EQ(top.VxTContainer::focus, nullptr);
        EXPECT_EQ(top.focus, nullptr);
        EXPECT_EQ(axis.fixed.focus, nullptr);
        EXPECT_EQ(axis.transformed.focus, nullptr);
        EXPECT_EQ(low.VxTContainer::focus, nullptr);
    }
}

TEST(TreeLifetime, AnObjectThatMovesToAnotherManagerIsNeitherHoveredNorPressedThere) {
    for (const VxMessageId last : {PenMoved, PenDown}) {
        for (const bool takesGroup : {false, true}) {
            Tree tree;
            sendPen(*tree.manager, PenMoved, kInside);
            sendPen(*tree.manager, last, kAlsoInside);
            ASSERT_TRUE(tree.object->isHovered() || tree.object->isPressed());
            VxTManager other;
            other.addObject(takesGroup ? static_cast<VxTObject*>(tree.inner.get())
                                       : tree.object.get());
            EXPECT_EQ(tree.object->manager, &other);
            EXPECT_FALSE(tree.object->isHovered());
            EXPECT_FALSE(tree.object->isPressed());
        }
    }
}

TEST(TreeLifetime, ADrawnObjectMayDestroyItselfAndItsSiblings) {
    CallLog log;
    VxTManager manager;
    VxTGroup group("group");
    group.groupFlags = 0;
    auto first = std::make_unique<ScriptedObject>("first", log);
    auto second = std::make_unique<ScriptedObject>("second", log);
    auto third = std::make_unique<ScriptedObject>("third", log);
    for (VxTObject* child : {first.get(), second.get(), third.get()}) group.addChild(child);
    manager.addObject(&group);
    second->reaction = [&](const std::string&) {
        first.reset();
        second.reset();
    };
    manager.render();
    EXPECT_EQ(log, (CallLog{"first draw", "second draw", "third draw"}));
    EXPECT_EQ(test::childrenOf(group).size(), 1u);
}

}  // namespace
}  // namespace ruvex
