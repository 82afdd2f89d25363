#include "overlay/vx_t_group.h"
#include "overlay/vx_t_manager.h"
#include "tests/drawing/drawing_test.h"

namespace ruvex {
namespace {

using test::IsEmpty;
using test::Picture;
using test::Shows;

/// A filled rectangle of one colour. Its last row and column are drawn too.
class Tile final : public VxTObject {
public:
    Tile(VxPosition corner, VxPosition extent, VxColour ink) : VxTObject("tile") {
        position = corner;
        size = extent;
        colour = ink;
    }
    VxHit hit(const VxPosition&, const VxPosition&) override {
        focus = this;
        return hitOn(*this);
    }
    void draw() override {
        setColour(colour);
        drawFilledRect(position.x - 0.5f, position.y - 0.5f, position.x + size.x + 0.5f,
                       position.y + size.y + 0.5f);
    }
    std::int32_t drag(const VxPosition&) override { return 0; }
};

class TreePicture : public test::DrawingTest {
protected:
    Picture rendered() {
        manager.render();
        return picture();
    }
    void sendMove(float x, float y) {
        VxMessage message(VxMessageId::PenMoved);
        message.setPosition({x, y});
        manager.handleMessage(&message, nullptr);
    }

    VxTManager manager;
    Tile red{{10, 10}, {30, 20}, paletteRed};
    Tile green{{30, 20}, {30, 20}, paletteGreen};
};

TEST_F(TreePicture, LaterObjectsCoverEarlierOnes) {
    manager.addObject(&red);
    manager.addObject(&green);
    EXPECT_THAT(rendered().at(35, 25), Shows(paletteGreen));
    EXPECT_THAT(rendered().at(15, 15), Shows(paletteRed));
    manager.removeObject(&red);
    manager.addObject(&red);
    EXPECT_THAT(rendered().at(35, 25), Shows(paletteRed));
}

TEST_F(TreePicture, DrawsDisabledObjectsAndNotHiddenOnes) {
    manager.addObject(&red);
    manager.addObject(&green);
    red.setState(VxTObject::kVisible);
    green.setState(VxTObject::kEnabled);
    const Picture drawn = rendered();
    EXPECT_THAT(drawn.at(15, 15), Shows(paletteRed)) << "disabled";
    EXPECT_THAT(drawn.at(55, 35), IsEmpty()) << "hidden";
    EXPECT_EQ(drawn.count(paletteGreen), 0);
}

TEST_F(TreePicture, AGroupHasAGreyBackgroundAsLargeAsItsChildren) {
    VxTGroup group("group");
    group.addChild(&red);
    group.addChild(&green);
    manager.addObject(&group);
    const Picture drawn = rendered();
    EXPECT_EQ(drawn.at(50, 12).red, 153);
    EXPECT_EQ(drawn.at(50, 12).green, 153);
    EXPECT_EQ(drawn.at(50, 12).blue, 153);
    EXPECT_THAT(drawn.at(12, 38), Shows(paletteGrey));
    EXPECT_THAT(drawn.at(35, 25), Shows(paletteGreen));
    EXPECT_THAT(drawn.at(15, 15), Shows(paletteRed));
    EXPECT_THAT(drawn.at(62, 12), IsEmpty());
    EXPECT_THAT(drawn.at(12, 42), IsEmpty());
    EXPECT_THAT(drawn.at(8, 12), IsEmpty());
}

TEST_F(TreePicture, AGroupMayHaveABackgroundOfItsOwnOrNone) {
    VxTGroup group("group");
    group.addChild(&red);
    group.addChild(&green);
    manager.addObject(&group);
    group.background = paletteBlue;
    group.groupFlags = VxTGroup::kDrawBackground;
    EXPECT_THAT(rendered().at(50, 12), Shows(paletteBlue));
    surface->clear(0, 0, 0);
    group.groupFlags = 0;
    EXPECT_THAT(rendered().at(50, 12), IsEmpty());
    EXPECT_THAT(rendered().at(15, 15), Shows(paletteRed));
}

TEST_F(TreePicture, AGroupDrawsItsChildrenInTheirOrderAndNoHiddenOne) {
    VxTGroup group("group");
    Tile hidden({70, 10}, {10, 10}, paletteBlue);
    hidden.setState(VxTObject::kEnabled);
    for (VxTObject* child : {&green, &red, &hidden}) group.addChild(child);
    manager.addObject(&group);
    const Picture drawn = rendered();
    EXPECT_THAT(drawn.at(35, 25), Shows(paletteRed));
    EXPECT_THAT(drawn.at(75, 15), Shows(paletteGrey)) << "a hidden child widens the background";
}

TEST_F(TreePicture, AHiddenGroupHidesItsChildren) {
    VxTGroup group("group");
    group.addChild(&red);
    manager.addObject(&group);
    group.setState(VxTObject::kEnabled);
    EXPECT_EQ(rendered().drawn(), 0);
}

TEST_F(TreePicture, TheTipOfTheObjectUnderThePenIsDrawnBesideThePen) {
    VxTDraw::currentFont = VxTDraw::createFont(wglGetCurrentDC());
    manager.addObject(&red);
    red.tip.emplace("!");
    sendMove(15, 15);
    ASSERT_EQ(manager.over, &red);
    EXPECT_GT(rendered().count(paletteText), 0);
    surface->clear(0, 0, 0);
    manager.showTips = false;
    EXPECT_EQ(rendered().count(paletteText), 0);
    VxTDraw::deleteFont(std::exchange(VxTDraw::currentFont, 0u));
}

}  // namespace
}  // namespace ruvex
