#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <random>

#include "overlay/vx_t_2d_axis_group.h"
#include "overlay/vx_t_group.h"
#include "tests/overlay/scripted_object.h"
#include "tests/overlay/twins/tree_twin.h"

namespace ruvex {
namespace {

using test::focusPath;
using test::sendPen;
using test::TreeTwin;

constexpr int kNodes = 200;

/// Is hit in an ellipse.
class Ellipse final : public VxTObject {
public:
    explicit Ellipse(const TreeTwin::Box& ellipse) : VxTObject(nullptr), box(ellipse) {
        position = {box.left, box.bottom};
        size = {box.right - box.left, box.top - box.bottom};
    }
    VxHit hit(const VxPosition& where, const VxPosition&) override {
        if (!TreeTwin::inEllipse(box, where.x, where.y)) return kMiss;
        focus = this;
        return hitOn(*this);
    }
    void draw() override {}
    std::int32_t drag(const VxPosition& where) override {
        dragged = where;
        return 1;
    }

    TreeTwin::Box box;
    VxPosition dragged;
};

/// A random tree and its twin. All coordinates are whole numbers, so that both have the same sums.
class RandomTree {
public:
    explicit RandomTree(std::uint32_t seed) : random(seed) {
        for (int i = 0; i < kNodes; ++i) addNode();
    }

    int number(int low, int high) { return std::uniform_int_distribution(low, high)(random); }

    std::vector<VxTObject*> objectsOf(const std::vector<const TreeTwin*>& path) const {
        std::vector<VxTObject*> found;
        for (const TreeTwin* twin : path) found.push_back(objects.at(twin));
        return found;
    }

    std::mt19937 random;
    std::vector<std::unique_ptr<TreeTwin>> top;
    std::map<const TreeTwin*, VxTObject*> objects;
    std::vector<std::unique_ptr<VxTObject>> owned;
    VxTManager manager;

private:
    void addNode() {
        auto twin = std::make_unique<TreeTwin>();
        const int kind = number(0, 9);
        twin->kind = kind < 2   ? TreeTwin::Kind::Group
                     : kind < 4 ? TreeTwin::Kind::Shifted
                                : TreeTwin::Kind::Leaf;
        twin->visible = number(0, 19) > 0;
        twin->enabled = number(0, 19) > 0;
        VxTObject* const object = makeObject(*twin);
        object->setState((twin->enabled ? 1u : 0u) | (twin->visible ? 2u : 0u));
        objects[twin.get()] = object;
        place(std::move(twin), object);
    }

    VxTObject* makeObject(TreeTwin& twin) {
        if (twin.kind == TreeTwin::Kind::Leaf) {
            const auto x = static_cast<float>(number(-100, 100));
            const auto y = static_cast<float>(number(-100, 100));
            twin.box = {x, x + static_cast<float>(number(1, 25)), y,
                        y + static_cast<float>(number(1, 25))};
            twin.boxed = number(0, 29) > 0;
            owned.push_back(std::make_unique<Ellipse>(twin.box));
            if (!twin.boxed) owned.back()->flags &= ~VxTObject::kHasBounds;
        } else if (twin.kind == TreeTwin::Kind::Group) {
            twin.blocks = number(0, 14) == 0;
            auto group = std::make_unique<VxTGroup>("group");
            if (!twin.blocks) group->groupFlags &= ~VxTGroup::kSwallowHits;
            owned.push_back(std::move(group));
        } else {
            twin.shiftX = static_cast<float>(number(-30, 30));
            twin.shiftY = static_cast<float>(number(-30, 30));
            auto group = std::make_unique<VxT2DAxisGroup>("shifted", VxT2DAxis::kCentre);
            group->groupFlags = 0;
            group->setCentre(twin.shiftX, twin.shiftY);
            owned.push_back(std::move(group));
        }
        return owned.back().get();
    }

    /// Below a group that is there, or at the top.
    void place(std::unique_ptr<TreeTwin> twin, VxTObject* object) {
        if (!groups.empty() && number(0, 5) > 0) {
            TreeTwin* const above =
                groups[static_cast<std::size_t>(number(0, static_cast<int>(groups.size()) - 1))];
            object->setParent(objects.at(above));
            above->children.push_back(std::move(twin));
            remember(*above->children.back());
        } else {
            manager.addObject(object);
            top.push_back(std::move(twin));
            remember(*top.back());
        }
    }

    void remember(TreeTwin& twin) {
        if (twin.kind != TreeTwin::Kind::Leaf) groups.push_back(&twin);
    }

    std::vector<TreeTwin*> groups;
};

TEST(TreeProperty, PickingFindsWhatAPlainSearchFinds) {
    int leaves = 0, blocked = 0, empty = 0, deep = 0;
    for (std::uint32_t seed = 1; seed <= 30; ++seed) {
        RandomTree tree(seed);
        for (int i = 0; i < 400; ++i) {
            const auto x = static_cast<float>(tree.number(-140, 140));
            const auto y = static_cast<float>(tree.number(-140, 140));
            const auto radius = static_cast<float>(tree.number(0, 4));
            tree.manager.pickRadius = {radius, radius};
            sendPen(tree.manager, i % 2 ? VxMessageId::PenDown : VxMessageId::PenUp, {x, y});
            const TreeTwin::Found found = TreeTwin::findBelow(tree.top, x, y, radius);
            const auto expected = tree.objectsOf(found.path);
            ASSERT_EQ(focusPath(tree.manager), expected)
                << "seed " << seed << ", " << x << "," << y;
            ASSERT_EQ(tree.manager.over, expected.empty() ? nullptr : expected.back());
            (found.blocked ? blocked : found.any() ? leaves : empty) += 1;
            if (found.path.size() > 3) ++deep;
        }
    }
    EXPECT_GT(leaves, 500);
    EXPECT_GT(blocked, 100);
    EXPECT_GT(empty, 500);
    EXPECT_GT(deep, 50);
}

/// A position in the coordinates of the object above `leaf`.
VxPosition inCoordinatesOf(const VxTObject& leaf, VxPosition position) {
    for (const VxTObject* node = leaf.parent; node; node = node->parent) {
        if (const auto* group = dynamic_cast<const VxT2DAxisGroup*>(node)) {
            position = {position.x - group->centre.x, position.y - group->centre.y};
        }
    }
    return position;
}

TEST(TreeProperty, ADragArrivesInTheCoordinatesOfTheObject) {
    int drags = 0;
    for (std::uint32_t seed = 1; seed <= 10; ++seed) {
        RandomTree tree(seed);
        for (int i = 0; i < 300; ++i) {
            const VxPosition pen{static_cast<float>(tree.number(-140, 140)),
                                 static_cast<float>(tree.number(-140, 140))};
            const VxPosition next{pen.x + 7, pen.y - 3};
            sendPen(tree.manager, VxMessageId::PenDown, pen);
            auto* const leaf = dynamic_cast<Ellipse*>(tree.manager.over);
            if (!leaf) continue;
            sendPen(tree.manager, VxMessageId::PenMoved, next);
            ASSERT_EQ(leaf->dragged, inCoordinatesOf(*leaf, next));
            ASSERT_EQ(VxTDraw::matrixStack.depth(), 0);
            ++drags;
        }
    }
    EXPECT_GT(drags, 200);
}

}  // namespace
}  // namespace ruvex
