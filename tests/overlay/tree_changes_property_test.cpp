#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <random>

#include "overlay/vx_t_2d_axis_group.h"
#include "overlay/vx_t_group.h"
#include "tests/overlay/scripted_object.h"

namespace ruvex {
namespace {

std::ptrdiff_t timesListed(const VxTContainer& list, const VxTObject& object) {
    const auto children = test::childrenOf(list);
    return std::count(children.begin(), children.end(), &object);
}

std::ptrdiff_t timesBelow(const VxTObject& parent, const VxTObject& object) {
    if (const auto* group = dynamic_cast<const VxTGroup*>(&parent)) {
        return timesListed(*group, object);
    }
    const auto* axis = dynamic_cast<const VxT2DAxisGroup*>(&parent);
    return axis ? timesListed(axis->transformed, object) + timesListed(axis->fixed, object) : 0;
}

/// Adds, moves, removes and destroys random objects of a tree.
class ChangingTree {
public:
    explicit ChangingTree(std::uint32_t seed) : random_(seed) {}

    void change() {
        if (objects.size() < 40) objects.push_back(makeObject());
        VxTObject& a = *objects[below(objects.size())];
        VxTObject& b = *objects[below(objects.size())];
        switch (below(7)) {
            case 0:
                a.setParent(&b);
                break;
            case 1:
                b.addChild(&a);
                break;
            case 2:
                manager.addObject(&a);
                break;
            case 3:
                a.setParent(nullptr);
                break;
            case 4:
                b.removeChild(&a);
                break;
            case 5:
                manager.fallback = a.manager ? &a : nullptr;
                break;
            default:
                objects.erase(objects.begin() + static_cast<std::ptrdiff_t>(below(objects.size())));
        }
    }

    void movePen() {
        const auto x = static_cast<float>(below(20));
        test::sendPen(manager, static_cast<VxMessageId>(101 + below(3)), {x, 0});
    }

    /// Each object is in exactly the list that it names.
    void checkLists() const {
        for (const auto& object : objects) {
            const bool isTop = !object->parent && object->manager;
            ASSERT_EQ(timesListed(manager, *object), isTop ? 1 : 0);
            for (const auto& other : objects) {
                const bool isParent = object->parent == other.get();
                ASSERT_EQ(timesBelow(*other, *object), isParent ? 1 : 0);
                ASSERT_TRUE(!isParent || object->manager == other->manager);
            }
        }
    }

    /// What the manager knows is in its tree.
    void checkPen() const {
        ASSERT_TRUE(!manager.over || manager.over->manager == &manager);
        ASSERT_TRUE(!manager.fallback || manager.fallback->manager == &manager);
        for (const VxTObject* node : test::focusPath(manager)) ASSERT_EQ(node->manager, &manager);
    }

    VxTManager manager;
    std::vector<std::unique_ptr<VxTObject>> objects;

private:
    std::size_t below(std::size_t count) { return random_() % count; }

    std::unique_ptr<VxTObject> makeObject() {
        const std::size_t kind = below(4);
        if (kind == 0) return std::make_unique<VxTGroup>("group");
        if (kind > 1) return std::make_unique<VxT2DAxis>("axis", VxT2DAxis::kCentre);
        auto group = std::make_unique<VxT2DAxisGroup>("axes", VxT2DAxis::kCentre);
        group->addToFixed = below(2) == 0;
        return group;
    }

    std::mt19937 random_;
};

TEST(TreeProperty, ListsParentsAndFocusAgreeAfterRandomChanges) {
    for (std::uint32_t seed = 1; seed <= 8; ++seed) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        ChangingTree tree(seed);
        for (int step = 0; step < 300 && !testing::Test::HasFatalFailure(); ++step) {
            tree.change();
            tree.checkLists();
            tree.checkPen();
            tree.movePen();
            tree.checkPen();
            ASSERT_EQ(VxTDraw::matrixStack.depth(), 0);
        }
    }
}

}  // namespace
}  // namespace ruvex
