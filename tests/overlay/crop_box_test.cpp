// The crop box by itself, without a tool.

#include <gtest/gtest.h>

#include "overlay/vx_t_ds_crop.h"
#include "sdk/effect/content.h"
#include "sdk/properties/properties.h"

namespace ruvex {
namespace {

using R = VxTRectangle;

DSContent project(double userX, double userY, double worldY) {
    return {{kDSProjectUserSizeX, userX},
            {kDSProjectUserSizeY, userY},
            {kDSProjectWorldSizeX, userX},
            {kDSProjectWorldSizeY, worldY}};
}

VxRect limitsIn(const DSContent& content) {
    const DSContentScope scope(content);
    return VxTDsCrop().limits;
}

class CropBox : public testing::Test {
protected:
    CropBox() { box.setRect(40, 50, 160, 170); }

    std::uint32_t handleAt(float x, float y) {
        const VxHit hit = box.hit({x, y}, {4, 3});
        EXPECT_EQ(hit != kMiss, box.handle != 0);
        EXPECT_EQ(box.focus, box.handle != 0 ? &box : nullptr);
        return box.handle;
    }

    DSContent content = project(200, 300, 300);
    DSContentScope scope{content};
    VxTDsCrop box;
};

TEST_F(CropBox, BeginsAsTheUnitSquareWithTheFrameAsItsLimits) {
    const VxTDsCrop fresh;
    EXPECT_EQ(fresh.name, "Crop Box");
    EXPECT_EQ(fresh.rect, (VxRect{0, 0, 1, 1}));
    EXPECT_EQ(fresh.limits, (VxRect{0, 0, 200, 300}));
    EXPECT_EQ(fresh.limitFlags, R::kLimited);
    EXPECT_EQ(fresh.watched, &fresh);
    EXPECT_FALSE(fresh.tool);
}

TEST(CropBoxLimits, AreTheFrameInUserUnits) {
    EXPECT_EQ(limitsIn(project(720, 576, 528)), (VxRect{0, 0, 785, 576})) << "785.45";
    EXPECT_EQ(limitsIn(project(100.9, 60.9, 60.9)), (VxRect{0, 0, 100, 60}));
}

TEST(CropBoxLimits, AreEmptyWithoutAProject) {
    EXPECT_EQ(VxTDsCrop().limits, VxRect{});
    EXPECT_EQ(limitsIn({{kDSProjectUserSizeX, 720.0}}), (VxRect{0, 0, 720, 0}))
        << "an aspect that can't be read is 1";
}

TEST_F(CropBox, ItsBoundsAreTheLimits) {
    EXPECT_EQ(box.position, VxPosition{});
    EXPECT_EQ(box.size, (VxPosition{200, 300}));
    box.limits = {10, 20, 110, 220};
    box.setRect(-40, 50, 60, 900);
    EXPECT_EQ(box.rect, (VxRect{10, 50, 60, 220}));
    EXPECT_EQ(box.position, (VxPosition{10, 20}));
    EXPECT_EQ(box.size, (VxPosition{100, 200}));
}

TEST_F(CropBox, LinesAreTakenAnywhereAlongTheFrame) {
    EXPECT_EQ(handleAt(40, 100), R::kLeft);
    EXPECT_EQ(handleAt(43.9f, 299), R::kLeft) << "above the box";
    EXPECT_EQ(handleAt(160, -2.9f), R::kRight) << "within the radius below the frame";
    EXPECT_EQ(handleAt(160, -3), 0u);
    EXPECT_EQ(handleAt(160, 303), 0u);
    EXPECT_EQ(handleAt(1, 50), R::kBottom);
    EXPECT_EQ(handleAt(203.9f, 170), R::kTop);
    EXPECT_EQ(handleAt(204, 170), 0u);
}

TEST_F(CropBox, ACornerTakesTwoLines) {
    EXPECT_EQ(handleAt(160, 170), R::kRight | R::kTop);
    EXPECT_EQ(handleAt(41, 51), R::kLeft | R::kBottom);
}

TEST_F(CropBox, CannotBeMovedAsAWhole) {
    EXPECT_EQ(handleAt(100, 110), 0u) << "where a rectangle has its cross";
    EXPECT_FALSE(box.focus);
}

TEST_F(CropBox, ALineStopsAtTheOppositeLine) {
    box.handle = R::kLeft;
    box.penDown({40, 0});
    box.drag({199, 0});
    EXPECT_EQ(box.rect, (VxRect{160, 50, 160, 170}));
    box.drag({300, 0});
    EXPECT_EQ(box.rect, (VxRect{160, 50, 160, 170}));
}

TEST_F(CropBox, ALineStopsAtTheFrame) {
    box.handle = R::kRight | R::kTop;
    box.penDown({160, 170});
    box.drag({500, 500});
    EXPECT_EQ(box.rect, (VxRect{40, 50, 200, 300}));
}

TEST_F(CropBox, CollapsedOnTheLeftBorderItCannotBeOpenedByItsRightLine) {
    box.setRect(0, 50, 0, 170);
    EXPECT_EQ(handleAt(1, 100), R::kLeft) << "the left line hides the right one";
    box.penDown({1, 100});
    box.drag({60, 100});
    EXPECT_EQ(box.rect, (VxRect{0, 50, 0, 170})) << "and can't pass it";
}

TEST_F(CropBox, APenThatComesBackIntoTheFrameMovesTheLineAtOnce) {
    box.handle = R::kLeft;
    box.penDown({40, 0});
    box.drag({-60, 0});
    EXPECT_EQ(box.rect.x0, 0);
    box.drag({-50, 0});
    EXPECT_EQ(box.rect.x0, 10) << "by what the pen has come back, far from the line";
}

TEST_F(CropBox, WithoutAToolNothingIsReadOrWritten) {
    const VxRect before = box.rect;
    box.readProperties();
    box.timeChanged(1.0);
    box.handle = R::kLeft;
    box.writeProperties();
    EXPECT_EQ(box.propertyChanged(GUID_AllProperties, nullptr), 0);
    EXPECT_EQ(box.rect, before);
}

/// Notes which of its functions are called.
class NotingObject final : public VxTDsObject {
public:
    std::int32_t propertyChanged(const GUID&, const DSVARIANT*) override { return 0; }
    void timeChanged(double) override {}
    void writeProperties() override { ++writes; }
    void readProperties() override { ++reads; }

    int writes = 0;
    int reads = 0;
};

TEST(BoundObject, WritesAtTheEndOfADragOfTheWatchedSenderAlone) {
    VxTRectangle watched("Watched", 0, 0, 1, 1);
    VxTRectangle other("Other", 0, 0, 1, 1);
    NotingObject object;
    NotingObject dependent;
    object.watched = &watched;
    object.addDependent(dependent);
    connect(&object, &watched);
    connect(&object, &other);
    const auto send = [](VxTRectangle& sender, VxMessageId id) {
        VxMessage message(id);
        sender.send(message);
    };
    send(other, VxMessageId::DragEnded);
    send(watched, VxMessageId::DragBegins);
    send(watched, VxMessageId::ValueChanged);
    EXPECT_EQ(object.writes, 0);
    send(watched, VxMessageId::DragEnded);
    EXPECT_EQ(object.writes, 1);
    EXPECT_EQ(dependent.reads, 1);
    send(watched, VxMessageId::DragCancelled);
    EXPECT_EQ(object.writes, 2);
    EXPECT_EQ(dependent.reads, 2);
    EXPECT_EQ(object.reads + dependent.writes, 0);
}

TEST(BoundObject, EitherSideOfADependencyMayGoFirst) {
    NotingObject object;
    {
        NotingObject dependent;
        object.addDependent(dependent);
    }
    EXPECT_TRUE(object.dependents.empty());
    NotingObject dependent;
    {
        NotingObject source;
        source.addDependent(dependent);
    }
    VxTRectangle watched("Watched", 0, 0, 1, 1);
    object.watched = &watched;
    connect(&object, &watched);
    watched.penUp();
    EXPECT_EQ(object.writes, 1);
    EXPECT_EQ(dependent.reads, 0);
}

}  // namespace
}  // namespace ruvex
