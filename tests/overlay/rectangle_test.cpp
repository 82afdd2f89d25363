// The rectangle: what the pen takes, what it moves, and what is told.

#include <gtest/gtest.h>
#include <vector>

#include "overlay/vx_t_group.h"
#include "overlay/vx_t_manager.h"
#include "overlay/vx_t_rectangle.h"

namespace ruvex {
namespace {

using R = VxTRectangle;

/// Notes the messages of a rectangle, and its corners and flags when they arrive.
class RectangleLog final : public VxMessageHandler {
public:
    explicit RectangleLog(VxTRectangle& rectangle) : rectangle_(rectangle) {
        connect(this, &rectangle);
    }
    void handleMessage(VxMessage* message, VxMessageSender* sender) override {
        EXPECT_EQ(sender, &rectangle_);
        EXPECT_EQ(message->dataType, VxDataType::None);
        ids.push_back(message->id);
        rects.push_back(rectangle_.rect);
        pressed.push_back(rectangle_.isPressed());
        pens.push_back(rectangle_.lastPen);
    }

    std::vector<VxMessageId> ids;
    std::vector<VxRect> rects;
    std::vector<bool> pressed;
    std::vector<VxPosition> pens;

private:
    VxTRectangle& rectangle_;
};

class Rectangle : public testing::Test {
protected:
    /// The handles that a position takes.
    std::uint32_t handleAt(float x, float y) {
        const VxHit hit = box.hit({x, y}, radius);
        EXPECT_EQ(hit != kMiss, box.handle != 0);
        EXPECT_EQ(box.focus, box.handle != 0 ? &box : nullptr);
        if (hit != kMiss) {
            EXPECT_EQ(hit, hitOn(box));
        }
        return box.handle;
    }
    /// Presses with these handles, moves by a delta, and releases.
    void dragBy(std::uint32_t handle, VxPosition delta) {
        box.handle = handle;
        box.penDown({7, 9});
        box.drag({7 + delta.x, 9 + delta.y});
        box.penUp();
    }
    void limitTo(const VxRect& limits) {
        box.limits = limits;
        box.limitFlags |= R::kLimited;
    }

    VxPosition radius{3, 2};
    R box{"Box", 10, 20, 110, 220};
};

TEST_F(Rectangle, BeginsRedUnlimitedAndWithSortedCorners) {
    EXPECT_EQ(box.colour, paletteRed);
    EXPECT_EQ(box.limitFlags, 0u);
    const R swapped("Box", 110, 220, 10, 20);
    EXPECT_EQ(swapped.rect, (VxRect{10, 20, 110, 220}));
    EXPECT_EQ(swapped.position, (VxPosition{10, 20}));
    EXPECT_EQ(swapped.size, (VxPosition{100, 200}));
}

TEST_F(Rectangle, LimitsClampTheCornersButNotTheBounds) {
    limitTo({0, 0, 100, 100});
    box.setRect(150, -20, -50, 60);
    EXPECT_EQ(box.rect, (VxRect{0, 0, 100, 60}));
    EXPECT_EQ(box.position, (VxPosition{-50, -20}));
    EXPECT_EQ(box.size, (VxPosition{200, 80}));
}

TEST_F(Rectangle, WithoutLimitsNothingIsClamped) {
    box.limits = {0, 0, 1, 1};
    box.setRect(-5, -6, 7, 8);
    EXPECT_EQ(box.rect, (VxRect{-5, -6, 7, 8}));
}

TEST_F(Rectangle, TheRadiusAroundAnEdgeIsOpen) {
    EXPECT_EQ(handleAt(12.9f, 100), R::kLeft);
    EXPECT_EQ(handleAt(13, 100), 0u);
    EXPECT_EQ(handleAt(107, 100), 0u);
    EXPECT_EQ(handleAt(107.1f, 100), R::kRight);
    EXPECT_EQ(handleAt(60, 21.9f), R::kBottom);
    EXPECT_EQ(handleAt(60, 22), 0u);
    EXPECT_EQ(handleAt(60, 218.1f), R::kTop);
    EXPECT_EQ(handleAt(60, 222), 0u);
}

TEST_F(Rectangle, EdgesEndAtTheCornersAndTheRadius) {
    EXPECT_EQ(handleAt(10, 221.9f), R::kLeft | R::kTop);
    EXPECT_EQ(handleAt(10, 222), 0u);
    EXPECT_EQ(handleAt(112.9f, 20), R::kRight | R::kBottom);
    EXPECT_EQ(handleAt(113, 20), 0u);
}

TEST_F(Rectangle, OfACollapsedBoxTheLeftAndTheTopEdgeAreTaken) {
    box.setRect(50, 50, 50, 50);
    EXPECT_EQ(handleAt(50, 50), R::kLeft | R::kTop);
}

TEST_F(Rectangle, TheCrossMovesTheBox) {
    EXPECT_EQ(handleAt(60, 120), R::kMoveX | R::kMoveY);
    EXPECT_EQ(handleAt(75, 120), R::kMoveX);
    EXPECT_EQ(handleAt(60, 105), R::kMoveY);
    EXPECT_EQ(handleAt(82.9f, 120), R::kMoveX);
    EXPECT_EQ(handleAt(83, 120), 0u);
    EXPECT_EQ(handleAt(75, 122), 0u);
}

TEST_F(Rectangle, BothArmsOfTheCrossAreLengthenedByTheRadiusInX) {
    EXPECT_EQ(handleAt(60, 142.9f), R::kMoveY) << "not by the 2 units of the radius in Y";
    EXPECT_EQ(handleAt(60, 143), 0u);
    EXPECT_EQ(handleAt(62.9f, 130), R::kMoveY);
    EXPECT_EQ(handleAt(63, 130), 0u);
}

TEST_F(Rectangle, AnEdgeHidesTheCross) {
    box.setRect(50, 50, 56, 56);
    EXPECT_EQ(handleAt(51, 53), R::kLeft);
}

TEST_F(Rectangle, AnotherHandleAsksForARedraw) {
    VxTManager manager;
    manager.addObject(&box);
    const auto redraws = [&](float x, float y) {
        manager.managerFlags = 0;
        box.hit({x, y}, radius);
        return (manager.managerFlags & VxTManager::kRedrawWanted) != 0;
    };
    EXPECT_TRUE(redraws(10, 100));
    EXPECT_FALSE(redraws(11, 120)) << "the same edge";
    EXPECT_TRUE(redraws(110, 100));
    EXPECT_FALSE(redraws(300, 300)) << "a miss";
    EXPECT_TRUE(redraws(110, 100)) << "after a miss";
}

TEST_F(Rectangle, EdgesStopAtTheOppositeEdge) {
    dragBy(R::kLeft, {500, 40});
    EXPECT_EQ(box.rect, (VxRect{110, 20, 110, 220}));
    dragBy(R::kRight, {-30, 0});
    EXPECT_EQ(box.rect, (VxRect{110, 20, 110, 220}));
    dragBy(R::kTop, {0, -500});
    EXPECT_EQ(box.rect, (VxRect{110, 20, 110, 20}));
    dragBy(R::kBottom, {0, 30});
    EXPECT_EQ(box.rect, (VxRect{110, 20, 110, 20}));
}

TEST_F(Rectangle, ACornerMovesTwoEdges) {
    dragBy(R::kRight | R::kBottom, {5, -6});
    EXPECT_EQ(box.rect, (VxRect{10, 14, 115, 220}));
}

TEST_F(Rectangle, OfBothEdgesOfAnAxisTheLowOneMoves) {
    dragBy(R::kLeft | R::kRight | R::kBottom | R::kTop, {5, 6});
    EXPECT_EQ(box.rect, (VxRect{15, 26, 110, 220}));
}

TEST_F(Rectangle, TheCrossMovesBothEdges) {
    dragBy(R::kMoveX, {5, 6});
    EXPECT_EQ(box.rect, (VxRect{15, 20, 115, 220}));
    dragBy(R::kMoveY, {5, 6});
    EXPECT_EQ(box.rect, (VxRect{15, 26, 115, 226}));
}

TEST_F(Rectangle, LimitsCutAMoveAndKeepTheSize) {
    limitTo({0, 0, 120, 230});
    dragBy(R::kMoveX | R::kMoveY, {50, 50});
    EXPECT_EQ(box.rect, (VxRect{20, 30, 120, 230}));
    dragBy(R::kMoveX | R::kMoveY, {-50, -50});
    EXPECT_EQ(box.rect, (VxRect{0, 0, 100, 200}));
}

TEST_F(Rectangle, TellsTheBeginTheChangesAndTheEnd) {
    RectangleLog log(box);
    box.handle = R::kLeft;
    EXPECT_EQ(box.penDown({7, 9}), 1);
    EXPECT_EQ(box.drag({7, 50}), 0) << "along the edge: nothing moves";
    EXPECT_EQ(box.drag({8, 50}), 1);
    EXPECT_EQ(box.penUp(), 1);
    EXPECT_EQ(log.ids, (std::vector{VxMessageId::DragBegins, VxMessageId::ValueChanged,
                                    VxMessageId::DragEnded}));
    EXPECT_EQ(log.rects[1], (VxRect{11, 20, 110, 220})) << "after the change";
    EXPECT_EQ(log.pressed, (std::vector{false, true, true})) << "the base comes last";
    EXPECT_EQ(log.pens[0], VxPosition{}) << "before the pen's position is stored";
    EXPECT_FALSE(box.isPressed());
}

TEST_F(Rectangle, StepsAreRelative) {
    limitTo({0, 0, 120, 230});
    box.handle = R::kLeft;
    box.penDown({10, 100});
    box.drag({-90, 100});
    EXPECT_EQ(box.rect.x0, 0);
    box.drag({-70, 100});
    EXPECT_EQ(box.rect.x0, 20) << "the line does not wait until the pen is back at it";
}

TEST_F(Rectangle, TellsItsParentOfNewBounds) {
    VxTGroup group("Group");
    group.addChild(&box);
    box.setRect(0, 0, 5, 6);
    EXPECT_EQ(group.position, (VxPosition{0, 0}));
    EXPECT_EQ(group.size, (VxPosition{5, 6}));
}

}  // namespace
}  // namespace ruvex
