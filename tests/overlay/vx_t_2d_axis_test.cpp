#include "overlay/vx_t_2d_axis.h"

#include <cmath>
#include <gtest/gtest.h>
#include <string>

#include "tests/overlay/scripted_object.h"

namespace ruvex {
namespace {

using Axis = VxT2DAxis;

/// Where a handle of an axis with the centre (0, 0), without scales and rotation, can be taken.
VxPosition placeOf(std::uint32_t handle) {
    switch (handle) {
        case Axis::kTranslateX:
            return {20, 0};
        case Axis::kTranslateY:
            return {0, -20};
        case Axis::kScaleUniform:
            return {37, 37};
        case Axis::kScaleX:
            return {-37, 10};
        case Axis::kScaleY:
            return {10, 37};
        case Axis::kRotate:
            return {32 * std::cos(0.3f), 32 * std::sin(0.3f)};
        case Axis::kAspect:
            return {37 + 10 * 0.70710678f, 37 + 10 * 0.70710678f};
        default:
            return {1, 1};
    }
}

TEST(Axis, StartsAsAnIdentityThatCannotBeMovedAsAnObject) {
    Axis axis("axis", 3);
    EXPECT_EQ(axis.name, "axis");
    EXPECT_EQ(axis.handles, 3u);
    EXPECT_EQ(axis.flags, 1u);
    EXPECT_EQ(axis.axisFlags, 1u);
    EXPECT_EQ(axis.activeHandle, 0u);
    EXPECT_EQ(axis.aspect, 0.0f);
    axis.rebuild();
    EXPECT_EQ(axis.matrix, VxMatrix());
    EXPECT_EQ(axis.inverse, VxMatrix());
    EXPECT_EQ(axis.axisFlags, 0u);
    EXPECT_EQ(axis.position, (VxPosition{-37, -37}));
    EXPECT_EQ(axis.size, (VxPosition{74, 74}));
    axis.setPosition(1, 1);
    axis.setSize(1, 1);
    EXPECT_EQ(axis.position, (VxPosition{-37, -37}));
}

TEST(Axis, WithTranslateHandlesOnlyTheCentreAndTheTwoAxesRespond) {
    Axis axis("axis", 3);
    const VxPosition radius{3, 3};
    const auto handleAt = [&](float x, float y) {
        axis.hit({x, y}, radius);
        return axis.activeHandle;
    };
    EXPECT_EQ(handleAt(0, 0), 3u);
    EXPECT_EQ(handleAt(5.9f, 0), 3u) << "the centre wins over the axes";
    EXPECT_EQ(handleAt(0, -5.9f), 3u);
    EXPECT_EQ(handleAt(6, 0), 1u);
    EXPECT_EQ(handleAt(0, 6), 2u);
    EXPECT_EQ(handleAt(-39.9f, 2.9f), 1u);
    EXPECT_EQ(handleAt(40, 0), 0u);
    EXPECT_EQ(handleAt(2.9f, 39.9f), 2u);
    EXPECT_EQ(handleAt(0, 40), 0u);
    EXPECT_EQ(handleAt(10, 3), 0u);
    for (const std::uint32_t other : {4, 8, 16, 32, 64}) {
        const VxPosition place = placeOf(other);
        EXPECT_EQ(handleAt(place.x, place.y), 0u) << other;
    }
}

TEST(Axis, EachHandleIsHitWhereItIs) {
    Axis axis("axis", 127);
    for (const std::uint32_t handle : {1, 2, 3, 4, 8, 16, 32, 64}) {
        EXPECT_EQ(axis.hit(placeOf(handle), {2, 2}), hitOn(axis));
        EXPECT_EQ(axis.activeHandle, handle);
        EXPECT_EQ(axis.focus, &axis);
    }
    EXPECT_EQ(axis.hit({60, -10}, {2, 2}), kMiss);
    EXPECT_EQ(axis.activeHandle, 0u);
    EXPECT_EQ(axis.focus, nullptr);
}

TEST(Axis, TheEdgesOfTheBoxEndBeforeItsCorners) {
    Axis axis("axis", Axis::kScaleX | Axis::kScaleY);
    for (const float side : {-1.0f, 1.0f}) {
        EXPECT_EQ(axis.hit({side * 37, side * 37}, {1, 1}), kMiss);
        axis.hit({side * 37, side * 36.9f}, {1, 1});
        EXPECT_EQ(axis.activeHandle, 8u);
        axis.hit({side * 36.9f, side * 37}, {1, 1});
        EXPECT_EQ(axis.activeHandle, 16u);
    }
}

TEST(Axis, TheAspectsHandleStaysAtTheCornerWithoutScaleHandles) {
    Axis axis("axis", 64);
    EXPECT_EQ(axis.hit({37, 37}, {1, 1}), hitOn(axis));
    axis.aspect = 0.5f;
    EXPECT_EQ(axis.hit({37, 18.5f}, {1, 1}), hitOn(axis));
    EXPECT_EQ(axis.hit({37, 37}, {1, 1}), kMiss);
    axis.aspect = -0.5f;
    EXPECT_EQ(axis.hit({18.5f, 37}, {1, 1}), hitOn(axis));
    axis.handles |= Axis::kScaleX;
    axis.aspect = 0.0f;
    axis.scaleUniform = 0.0f;
    EXPECT_EQ(axis.aspectHandle(), VxPosition{}) << "without a direction it is at the centre";
}

TEST(Axis, IsNotHitWithHitTestsOff) {
    Axis axis("axis", 127);
    axis.hit({}, {2, 2});
    axis.axisFlags |= Axis::kNoHitTest;
    EXPECT_EQ(axis.hit({}, {2, 2}), kMiss);
    EXPECT_EQ(axis.activeHandle, 0u);
}

TEST(Axis, AsksForARedrawWhenTheHandleUnderThePenChanges) {
    VxTManager manager;
    Axis axis("axis", 127);
    manager.addObject(&axis);
    const auto redrawAfter = [&](std::uint32_t handle) {
        manager.managerFlags = 0;
        axis.hit(placeOf(handle), {2, 2});
        return manager.managerFlags == VxTManager::kRedrawWanted;
    };
    EXPECT_TRUE(redrawAfter(1));
    EXPECT_FALSE(redrawAfter(1));
    EXPECT_TRUE(redrawAfter(2));
    axis.focus = nullptr;
    EXPECT_TRUE(redrawAfter(2));
}

TEST(Axis, TheCentreIsSetOnlyWithBothTranslateHandlesOrWhenAllAreShown) {
    for (std::uint32_t mask = 0; mask < 128; ++mask) {
        Axis axis("axis", mask);
        axis.rebuild();
        axis.setCentre(5, 7);
        const bool allowed = (mask & 3) == 3;
        EXPECT_EQ(axis.centre, (allowed ? VxPosition{5, 7} : VxPosition{})) << mask;
        EXPECT_EQ(axis.axisFlags, allowed ? 1u : 0u);
        axis.axisFlags = Axis::kShowsAll;
        axis.setCentre(6, 8);
        EXPECT_EQ(axis.centre, (VxPosition{6, 8})) << mask;
    }
}

TEST(Axis, ACentreThatIsTheSameChangesNothing) {
    test::CallLog log;
    Axis axis("axis", 3);
    axis.setCentre(5, 7);
    EXPECT_EQ(axis.position, (VxPosition{-32, -30})) << "the bounds follow";
    axis.rebuild();
    axis.setCentre(5, 7);
    EXPECT_EQ(axis.axisFlags, 0u);
}

TEST(Axis, TheExtentWithoutHandlesIsTheScaledCentre) {
    Axis axis("axis", 0);
    axis.centre = {10, -4};
    axis.setUiScale(2);
    EXPECT_EQ(axis.position, (VxPosition{20, -8}));
    EXPECT_EQ(axis.size, VxPosition{});
}

TEST(Axis, TheExtentOfTheAspectsHandleHasItsMarginAboveAndRightOnly) {
    Axis axis("axis", 64);
    EXPECT_EQ(axis.position, (VxPosition{40, 40}));
    EXPECT_EQ(axis.size, VxPosition{});
}

TEST(Axis, LengthsFollowTheScaleOfTheScreen) {
    Axis axis("axis", 3);
    axis.setUiScale(0.5f);
    EXPECT_EQ(axis.position, (VxPosition{-18.5f, -18.5f}));
    EXPECT_EQ(axis.hit({0, 20}, {1, 1}), kMiss);
    axis.setUiScale(2);
    EXPECT_EQ(axis.hit({0, 74}, {1, 1}), hitOn(axis));
    EXPECT_EQ(axis.boxCorner(), (VxPosition{74, 74}));
}

TEST(Axis, ARotateDragAcrossTheCutAddsTheSmallDifference) {
    for (const float direction : {1.0f, -1.0f}) {
        Axis axis("axis", Axis::kRotate);
        axis.activeHandle = Axis::kRotate;
        axis.penDown({-100, direction * 10});
        axis.drag({-100, direction * -10});
        const float step = 2 * std::atan(0.1f) * 180 / 3.14159265f;
        EXPECT_NEAR(axis.rotation, direction * step, 1e-3f);
        axis.drag({-100, direction * 10});
        EXPECT_NEAR(axis.rotation, 0.0f, 1e-3f) << "and back";
    }
}

TEST(Axis, AnAspectDragPastTheCentreTakesItToTheLimitOfItsSign) {
    for (const VxPosition pen : {VxPosition{-5, 20}, VxPosition{20, -5}, VxPosition{-1, -1}}) {
        for (const float aspect : {-0.3f, 0.0f, 0.3f}) {
            Axis axis("axis", Axis::kAspect);
            axis.aspect = aspect;
            axis.activeHandle = Axis::kAspect;
            axis.penDown({20, 20});
            axis.drag(pen);
            EXPECT_EQ(axis.aspect, aspect < 0 ? -1.0f : aspect > 0 ? 1.0f : 0.0f);
        }
    }
}

TEST(Axis, AnAspectDragSqueezesTheShorterSide) {
    Axis axis("axis", Axis::kAspect);
    axis.activeHandle = Axis::kAspect;
    axis.penDown({20, 20});
    axis.drag({20, 10});
    EXPECT_EQ(axis.aspect, 0.5f);
    EXPECT_EQ(axis.scaleFactors(), (VxPosition{1, 0.5f}));
    axis.drag({5, 20});
    EXPECT_EQ(axis.aspect, -0.75f);
    EXPECT_EQ(axis.scaleFactors(), (VxPosition{0.25f, 1}));
}

TEST(Axis, AScaleOfZeroDividesByZeroInADrag) {
    Axis axis("axis", 127);
    axis.scaleX = 0;
    axis.activeHandle = Axis::kScaleUniform;
    axis.penDown({10, 10});
    axis.drag({10, 10});
    EXPECT_TRUE(std::isinf(axis.scaleUniform));
    axis.activeHandle = Axis::kScaleY;
    axis.scaleUniform = 0;
    axis.drag({10, 0});
    EXPECT_TRUE(std::isnan(axis.scaleY));
    axis.hit({10, 10}, {3, 3});
    VxPosition local;
    axis.toLocal(local, {3, 4});
}

TEST(Axis, AScaleHandleOnTheFarSideOfANegativeScaleKeepsItsSign) {
    Axis axis("axis", Axis::kScaleX);
    axis.scaleX = -1;
    axis.hit({37, 0}, {3, 3});
    EXPECT_EQ(axis.flipped, 8u);
    axis.penDown({37, 0});
    axis.drag({74, 0});
    EXPECT_EQ(axis.scaleX, -2.0f);
    axis.hit({-74, 0}, {3, 3});
    EXPECT_EQ(axis.flipped, 0u);
}

/// The scales of an axis after a drag from its centre.
struct Scales {
    float x, y, uniform;
};

Scales scalesAfter(Axis::Handle handle, VxPosition to, float rotation = 0) {
    Axis axis("axis", 127);
    axis.rotation = rotation;
    axis.activeHandle = handle;
    axis.penDown({});
    axis.drag(to);
    return {axis.scaleX, axis.scaleY, axis.scaleUniform};
}

// The handles are 37 long: the scale is the pen's distance divided by 37.

TEST(Axis, AUniformScaleDragTakesTheLongerOfBothDirections) {
    EXPECT_EQ(scalesAfter(Axis::kScaleUniform, {74, 18.5f}).uniform, 2.0f);
    EXPECT_EQ(scalesAfter(Axis::kScaleUniform, {18.5f, 111}).uniform, 3.0f);
    EXPECT_EQ(scalesAfter(Axis::kScaleUniform, {-74, 37}).uniform, -2.0f);
    EXPECT_EQ(scalesAfter(Axis::kScaleUniform, {18.5f, -37}).uniform, -1.0f);
}

TEST(Axis, AUniformScaleDragMeasuresInTheOtherScales) {
    Axis axis("axis", 127);
    axis.scaleX = 4;
    axis.scaleY = 0.5f;
    axis.activeHandle = Axis::kScaleUniform;
    axis.penDown({});
    // (148, 37) in units of the scales is (37, 74).
    axis.drag({148, 37});
    EXPECT_EQ(axis.scaleUniform, 2.0f);
    EXPECT_EQ(axis.scaleX, 4.0f);
    EXPECT_EQ(axis.position, (VxPosition{-296, -37})) << "the bounds follow";
}

TEST(Axis, AUniformScaleDragTurnsTheSignOfTheSideThatIsFlipped) {
    for (const bool alongX : {true, false}) {
        Axis axis("axis", 127);
        axis.scaleX = axis.scaleY = -1;
        axis.hit({37, 37}, {1, 1});
        EXPECT_EQ(axis.activeHandle, 4u);
        EXPECT_EQ(axis.flipped, 8u + 16u);
        axis.penDown({37, 37});
        // (74, 37) in units of the scales is (-74, -37), and the sign of the longer is turned.
        axis.drag(alongX ? VxPosition{74, 37} : VxPosition{37, 111});
        EXPECT_EQ(axis.scaleUniform, alongX ? 2.0f : 3.0f);
    }
}

TEST(Axis, OnlyTheFlippedSideHasItsSignTurned) {
    Axis axis("axis", 127);
    axis.scaleX = -1;
    axis.hit({37, 37}, {1, 1});
    EXPECT_EQ(axis.flipped, 8u);
    axis.penDown({37, 37});
    axis.drag({74, 37});
    EXPECT_EQ(axis.scaleUniform, 2.0f) << "-74 along X, turned";
    axis.drag({37, 74});
    EXPECT_EQ(axis.scaleUniform, 2.0f) << "74 along Y";
    axis.drag({-74, 37});
    EXPECT_EQ(axis.scaleUniform, -2.0f) << "74 along X, turned";
}

TEST(Axis, AScaleDragAlongYDividesByTheUniformScale) {
    Axis axis("axis", 127);
    axis.scaleUniform = 2;
    axis.hit({10, 74}, {1, 1});
    EXPECT_EQ(axis.activeHandle, 16u);
    EXPECT_EQ(axis.flipped, 0u);
    axis.penDown({10, 74});
    axis.drag({500, 222});
    EXPECT_EQ(axis.scaleY, 3.0f);
    EXPECT_EQ(axis.scaleX, 1.0f);
    EXPECT_EQ(axis.position, (VxPosition{-74, -222})) << "the bounds follow";
    axis.penUp();
    axis.hit({10, -222}, {1, 1});
    EXPECT_EQ(axis.flipped, 16u);
    axis.penDown({10, -222});
    axis.drag({10, -111});
    EXPECT_EQ(axis.scaleY, 1.5f) << "from below the centre";
}

TEST(Axis, AScaleDragUnderARotationOf90DegreesTakesTheTurnedDirection) {
    // The X handle points up: the tree's (x, y) is (y, -x) of the box.
    const auto expectScales = [](Axis::Handle handle, VxPosition to, const Scales& expected) {
        const Scales scales = scalesAfter(handle, to, 90);
        EXPECT_NEAR(scales.x, expected.x, 1e-6f);
        EXPECT_NEAR(scales.y, expected.y, 1e-6f);
        EXPECT_NEAR(scales.uniform, expected.uniform, 1e-6f);
    };
    expectScales(Axis::kScaleX, {5, 74}, {2, 1, 1});
    expectScales(Axis::kScaleX, {5, -37}, {-1, 1, 1});
    expectScales(Axis::kScaleY, {-111, 5}, {1, 3, 1});
    expectScales(Axis::kScaleY, {37, 5}, {1, -1, 1});
    expectScales(Axis::kScaleUniform, {10, 74}, {1, 1, 2});
    expectScales(Axis::kScaleUniform, {-148, 10}, {1, 1, 4});
    expectScales(Axis::kScaleUniform, {148, 10}, {1, 1, -4});
}

TEST(Axis, APressWithoutAHandleDoesNothing) {
    Axis axis("axis", 127);
    EXPECT_EQ(axis.penDown({1, 2}), 0);
    EXPECT_FALSE(axis.isPressed());
    EXPECT_EQ(axis.lastPen, VxPosition{});
}

/// Writes down the axis's messages and how it was when they came.
class AxisListener final : public VxMessageHandler {
public:
    explicit AxisListener(Axis& sender) : axis_(sender) { connect(this, &sender); }

    void handleMessage(VxMessage* message, VxMessageSender* sender) override {
        EXPECT_EQ(sender, &axis_);
        EXPECT_EQ(message->dataType, VxDataType::Number);
        entries.push_back(std::to_string(static_cast<int>(message->id)) + " handle " +
                          std::to_string(message->number()) +
                          (axis_.isPressed() ? " pressed" : "") + ", pen " +
                          test::textOf(axis_.lastPen) + ", centre " + test::textOf(axis_.centre));
    }

    std::vector<std::string> entries;

private:
    Axis& axis_;
};

TEST(Axis, TellsOfADragBeforeItBeginsAtEachStepAndBeforeItEnds) {
    Axis axis("axis", 3);
    AxisListener listener(axis);
    axis.hit({1, 1}, {3, 3});
    axis.penDown({1, 1});
    axis.drag({4, 6});
    axis.drag({4, 6});
    axis.penUp();
    EXPECT_EQ(listener.entries,
              (std::vector<std::string>{"200 handle 3, pen 0,0, centre 0,0",
                                        "201 handle 3 pressed, pen 4,6, centre 3,5",
                                        "201 handle 3 pressed, pen 4,6, centre 3,5",
                                        "202 handle 3 pressed, pen 4,6, centre 3,5"}));
    EXPECT_EQ(axis.activeHandle, 0u);
    EXPECT_FALSE(axis.isPressed());
}

TEST(Axis, TheMessagesNameTheHandle) {
    for (const std::uint32_t handle : {1, 2, 3, 4, 8, 16, 32, 64}) {
        Axis axis("axis", 127);
        AxisListener listener(axis);
        axis.hit(placeOf(handle), {2, 2});
        axis.penDown(placeOf(handle));
        axis.drag({10, 10});
        axis.penUp();
        ASSERT_EQ(listener.entries.size(), 3u);
        for (const char* const id : {"200", "201", "202"}) {
            const std::string start = id + (" handle " + std::to_string(handle));
            EXPECT_TRUE(listener.entries[static_cast<std::size_t>(id[2] - '0')].starts_with(start));
        }
    }
}

TEST(Axis, ADragWithoutAHandleStillTells) {
    Axis axis("axis", 127);
    axis.rebuild();
    AxisListener listener(axis);
    EXPECT_EQ(axis.drag({4, 6}), 1);
    EXPECT_EQ(listener.entries.size(), 1u);
    EXPECT_EQ(axis.axisFlags, 1u);
}

TEST(Axis, AMessagesHandlerMayTakeTheAxisOutOfTheTree) {
    VxTManager manager;
    Axis axis("axis", 3);
    manager.addObject(&axis);
    class Remover final : public VxMessageHandler {
    public:
        explicit Remover(Axis& axis) : axis_(axis) { connect(this, &axis); }
        void handleMessage(VxMessage*, VxMessageSender*) override { axis_.setParent(nullptr); }

    private:
        Axis& axis_;
    } remover(axis);
    test::sendPen(manager, VxMessageId::PenDown, {1, 1});
    test::sendPen(manager, VxMessageId::PenMoved, {9, 9});
    EXPECT_EQ(axis.manager, nullptr);
    EXPECT_EQ(manager.over, nullptr);
    EXPECT_EQ(axis.centre, VxPosition{});
}

TEST(Axis, LeavingForgetsTheHandle) {
    Axis axis("axis", 3);
    axis.hit({1, 1}, {3, 3});
    EXPECT_EQ(axis.penEnter({1, 1}), 1);
    EXPECT_TRUE(axis.isHovered());
    EXPECT_EQ(axis.penLeave(), 1);
    EXPECT_FALSE(axis.isHovered());
    EXPECT_EQ(axis.activeHandle, 0u);
}

TEST(Axis, TheTipSaysWhatTheHandleDoes) {
    Axis axis("axis", 127);
    char text[Axis::kTipSize];
    axis.activeHandle = 3;
    EXPECT_FALSE(axis.getTipText(text)) << "without a tip";
    axis.tip = "centre";
    const std::pair<std::uint32_t, const char*> cases[] = {
        {1, "Translates the centre."}, {2, "Translates the centre."}, {3, "Translates the centre."},
        {4, "Scales the centre."},     {8, "Scales the centre."},     {16, "Scales the centre."},
        {24, "Scales the centre."},    {32, "Rotates the centre."},   {64, "Aspects the centre."}};
    for (const auto& [handle, expected] : cases) {
        axis.activeHandle = handle;
        ASSERT_TRUE(axis.getTipText(text));
        EXPECT_STREQ(text, expected);
    }
    for (const std::uint32_t handle : {0, 5, 128}) {
        axis.activeHandle = handle;
        EXPECT_FALSE(axis.getTipText(text)) << handle;
    }
    axis.activeHandle = 3;
    axis.tip = std::string(300, 'x');
    ASSERT_TRUE(axis.getTipText(text));
    EXPECT_EQ(std::string(text), "Translates the " + std::string(240, 'x'));
    axis.penDown({});
    EXPECT_FALSE(axis.getTipText(text)) << "while it is pressed";
}

}  // namespace
}  // namespace ruvex
