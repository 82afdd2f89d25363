// A tree of boxes that is searched in the plainest way.

#pragma once

#include <algorithm>
#include <memory>
#include <optional>
#include <vector>

namespace ruvex::test {

/// A leaf is an ellipse in its box. A group has the box of its children. A shifted group has its
/// own coordinates, and its box also covers the cross of its axis. All of x and y are in the
/// coordinates of the node above.
struct TreeTwin {
    enum class Kind { Leaf, Group, Shifted };

    struct Box {
        float left = 0, right = 0, bottom = 0, top = 0;
    };

    /// What is below a position: the nodes from the top down to the leaf; or nothing, with or
    /// without an area in the way.
    struct Found {
        std::vector<const TreeTwin*> path;
        bool blocked = false;
        bool any() const { return blocked || !path.empty(); }
    };

    Kind kind = Kind::Leaf;
    bool visible = true, enabled = true;
    bool boxed = true;    ///< of a leaf: is only looked at in its box
    bool blocks = false;  ///< of a group: its empty area hides what is below
    Box box;              ///< of a leaf
    float shiftX = 0, shiftY = 0;
    std::vector<std::unique_ptr<TreeTwin>> children;

    bool hasBox() const {
        if (kind == Kind::Leaf) return boxed;
        return std::all_of(children.begin(), children.end(),
                           [](const auto& child) { return child->hasBox(); });
    }

    Box wholeBox() const {
        if (kind == Kind::Leaf) return box;
        std::optional<Box> all;
        for (const auto& child : children) {
            const Box other = child->wholeBox();
            if (!all) all = other;
            all = Box{std::min(all->left, other.left), std::max(all->right, other.right),
                      std::min(all->bottom, other.bottom), std::max(all->top, other.top)};
        }
        if (kind == Kind::Group) return all.value_or(Box{});
        Box cross{-37, 37, -37, 37};
        if (all) {
            cross = {std::min(all->left, cross.left), std::max(all->right, cross.right),
                     std::min(all->bottom, cross.bottom), std::max(all->top, cross.top)};
        }
        return {cross.left + shiftX, cross.right + shiftX, cross.bottom + shiftY,
                cross.top + shiftY};
    }

    /// Whether a pen of this radius touches the ellipse.
    static bool inEllipse(const Box& box, float x, float y) {
        const float u = (2 * x - box.left - box.right) / (box.right - box.left);
        const float v = (2 * y - box.bottom - box.top) / (box.top - box.bottom);
        return u * u + v * v <= 1;
    }

    Found find(float x, float y, float radius) const {
        if (!visible || !enabled) return {};
        if (hasBox()) {
            const Box area = wholeBox();
            if (x < area.left - radius || x > area.right + radius) return {};
            if (y < area.bottom - radius || y > area.top + radius) return {};
        }
        if (kind == Kind::Leaf) return inEllipse(box, x, y) ? Found{{this}} : Found{};
        Found found = findBelow(children, x - shiftX, y - shiftY, radius);
        if (!found.path.empty()) found.path.insert(found.path.begin(), this);
        if (!found.any()) found.blocked = blocks;
        return found;
    }

    static Found findBelow(const std::vector<std::unique_ptr<TreeTwin>>& nodes, float x, float y,
                           float radius) {
        Found found;
        for (std::size_t i = nodes.size(); i > 0 && !found.any(); --i) {
            found = nodes[i - 1]->find(x, y, radius);
        }
        return found;
    }
};

}  // namespace ruvex::test
