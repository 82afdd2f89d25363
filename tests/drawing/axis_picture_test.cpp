#include <algorithm>

#include "overlay/vx_t_2d_axis_group.h"
#include "tests/drawing/centred_picture.h"

namespace ruvex {
namespace {

using test::CentredPicture;
using test::IsEmpty;
using test::Pixel;
using test::Shows;
using Axis = VxT2DAxis;

/// How the pen stands to the axis.
enum class Pen : std::uint32_t { Away = 0, Down = VxTObject::kPressed, Over = VxTObject::kHovered };

constexpr std::uint32_t kAllHandles =
    Axis::kCentre | Axis::kAnyScale | Axis::kRotate | Axis::kAspect;

/// An axis at the origin with these handles alone, twice as large as by default. Its handles are 74
/// pixels long, the arc's radius is 64 pixels.
CentredPicture pictureOf(std::uint32_t handles, std::uint32_t active = 0, Pen pen = Pen::Away,
                         const VxColour& behind = test::kEmpty) {
    VxT2DAxis axis("axis", handles);
    axis.setUiScale(2.0f);
    axis.activeHandle = active;
    axis.flags |= static_cast<std::uint32_t>(pen);
    return CentredPicture(axis, behind);
}

TEST(AxisPicture, TranslateAxesRunFrom3To37OnBothSides) {
    const auto picture = pictureOf(Axis::kCentre);
    EXPECT_THAT(picture.at(0, 0), IsEmpty());
    for (const float side : {-1.0f, 1.0f}) {
        EXPECT_THAT(picture.at(side * 4, 0), IsEmpty());
        EXPECT_THAT(picture.at(0, side * 4), IsEmpty());
        EXPECT_THAT(picture.at(side * 8, 0), Shows(paletteRed));
        EXPECT_THAT(picture.at(0, side * 8), Shows(paletteRed));
        EXPECT_THAT(picture.at(side * 72, 0), Shows(paletteRed));
        EXPECT_THAT(picture.at(0, side * 72), Shows(paletteRed));
        EXPECT_THAT(picture.at(side * 77, 0), IsEmpty());
        EXPECT_THAT(picture.at(0, side * 77), IsEmpty());
    }
}

TEST(AxisPicture, TranslateAxesHaveHeadsOf10By3) {
    const auto picture = pictureOf(Axis::kCentre);
    for (const float side : {-1.0f, 1.0f}) {
        for (const float beside : {-2.0f, 2.0f}) {
            EXPECT_THAT(picture.at(side * 57, beside), Shows(paletteRed));
            EXPECT_THAT(picture.at(beside, side * 57), Shows(paletteRed));
            EXPECT_THAT(picture.at(side * 70, beside), IsEmpty()) << "the tip";
            EXPECT_THAT(picture.at(side * 51, beside), IsEmpty()) << "behind the head";
        }
    }
}

TEST(AxisPicture, TheTranslateAxisUnderThePenShowsWhite) {
    const auto hovered = pictureOf(Axis::kCentre, Axis::kTranslateX, Pen::Over);
    EXPECT_THAT(hovered.at(58, 1), Shows(paletteRed)) << "inside the head";
    EXPECT_THAT(hovered.at(54, 2), Shows(paletteWhite)) << "its outline";
    EXPECT_NE(hovered.row(0, 8, 50).find('r'), std::string::npos) << "the dashes";
    EXPECT_NE(hovered.row(0, 8, 50).find('w'), std::string::npos) << "the gaps";
    EXPECT_THAT(hovered.at(2, 54), Shows(paletteRed)) << "the other axis";

    const auto pressed = pictureOf(Axis::kCentre, Axis::kTranslateY, Pen::Down);
    EXPECT_THAT(pressed.at(1, 58), Shows(paletteWhite));
    EXPECT_THAT(pressed.at(0, 20), Shows(paletteWhite));
    EXPECT_THAT(pressed.at(20, 0), Shows(paletteRed)) << "the other axis";

    const auto both = pictureOf(Axis::kCentre, Axis::kCentre, Pen::Down);
    EXPECT_THAT(both.at(20, 0), Shows(paletteWhite));
    EXPECT_THAT(both.at(0, 20), Shows(paletteWhite));
    EXPECT_EQ(both.count(paletteRed), 0);
}

TEST(AxisPicture, TranslateAxesAreHiddenWithoutHitTest) {
    VxT2DAxis axis("axis", Axis::kCentre);
    axis.axisFlags |= Axis::kNoHitTest;
    EXPECT_EQ(CentredPicture(axis).drawn(), 0);
}

TEST(AxisPicture, TheScaleBoxIsBlueAtTheHandlesLength) {
    for (const std::uint32_t handle : {Axis::kScaleUniform, Axis::kScaleX, Axis::kScaleY}) {
        const auto picture = pictureOf(handle);
        for (const float side : {-74.0f, 74.0f}) {
            EXPECT_THAT(picture.at(side, 30), Shows(paletteBlue));
            EXPECT_THAT(picture.at(30, side), Shows(paletteBlue));
            EXPECT_THAT(picture.at(side, 77), IsEmpty());
        }
        EXPECT_THAT(picture.at(30, 30), IsEmpty());
    }
}

TEST(AxisPicture, TheEdgesUnderThePenShowWhite) {
    struct Case {
        std::uint32_t active;
        bool sidesToo, topToo;
    };
    for (const Case& edges : {Case{Axis::kScaleUniform, true, true},
                              Case{Axis::kScaleX, true, false}, Case{Axis::kScaleY, false, true}}) {
        const auto pressed = pictureOf(Axis::kAnyScale, edges.active, Pen::Down);
        const auto hovered = pictureOf(Axis::kAnyScale, edges.active, Pen::Over);
        for (const float side : {-74.0f, 74.0f}) {
            for (const float along : {-40.0f, 3.0f, 41.0f}) {
                EXPECT_THAT(pressed.at(side, along),
                            Shows(edges.sidesToo ? paletteWhite : paletteBlue));
                EXPECT_THAT(pressed.at(along, side),
                            Shows(edges.topToo ? paletteWhite : paletteBlue));
            }
            const std::string row = hovered.row(static_cast<int>(side), -50, 50);
            EXPECT_EQ(row.find('w') != std::string::npos, edges.topToo);
            EXPECT_NE(row.find('b'), std::string::npos);
            const std::string column = hovered.column(static_cast<int>(side), -50, 50);
            EXPECT_EQ(column.find('w') != std::string::npos, edges.sidesToo);
            EXPECT_NE(column.find('b'), std::string::npos);
        }
    }
}

TEST(AxisPicture, TheScaleBoxFollowsScaleAndRotationAndNotTheAspect) {
    VxT2DAxis axis("axis", Axis::kAnyScale);
    axis.scaleX = 2.0f;
    axis.aspect = 0.5f;
    axis.rotation = 90.0f;
    const CentredPicture turned(axis);
    EXPECT_THAT(turned.at(37, 10), Shows(paletteBlue));
    EXPECT_THAT(turned.at(10, 74), Shows(paletteBlue));
    EXPECT_THAT(turned.at(74, 10), IsEmpty());
}

TEST(AxisPicture, TheArcHasItsHeadsAtItsEnds) {
    const auto picture = pictureOf(Axis::kRotate);
    EXPECT_THAT(picture.at(30, 0), Shows(paletteGreen)) << "the radial line";
    EXPECT_THAT(picture.at(67, 0), IsEmpty());
    EXPECT_GT(picture.at(64, 0).green, 100) << "the arc";
    // The tips are at 2 * 22.627417, the heads lead 20 pixels away along (1, -1.414).
    for (const float side : {-1.0f, 1.0f}) {
        EXPECT_GT(picture.at(46, side * 44).green, 50) << "near the tip";
        EXPECT_THAT(picture.at(52, side * 35), Shows(paletteGreen)) << "inside";
        EXPECT_THAT(picture.at(55, side * 35), Shows(paletteGreen)) << "inside, at its edge";
        EXPECT_THAT(picture.at(57, side * 37), IsEmpty()) << "outside of its edge";
        EXPECT_THAT(picture.at(42, side * 49), IsEmpty()) << "beyond the tip";
        EXPECT_THAT(picture.at(45, side * 35), IsEmpty()) << "beside it";
    }
    EXPECT_THAT(picture.at(-64, 0), IsEmpty());
    EXPECT_THAT(picture.at(0, 64), IsEmpty());
}

TEST(AxisPicture, TheArcUnderThePenShowsWhite) {
    const auto hovered = pictureOf(Axis::kRotate, Axis::kRotate, Pen::Over);
    EXPECT_THAT(hovered.at(52, 35), Shows(paletteGreen)) << "inside the head";
    EXPECT_NE(hovered.row(0, 4, 60).find('g'), std::string::npos);
    EXPECT_NE(hovered.row(0, 4, 60).find('w'), std::string::npos);
    EXPECT_GT(hovered.count(paletteWhite), 20);

    const auto pressed = pictureOf(Axis::kRotate, Axis::kRotate, Pen::Down);
    EXPECT_THAT(pressed.at(52, 35), Shows(paletteWhite));
    EXPECT_THAT(pressed.at(52, -35), Shows(paletteWhite));
    EXPECT_NE(pressed.row(0, 4, 60).find('g'), std::string::npos) << "the lines stay stippled";
    EXPECT_NE(pressed.row(0, 4, 60).find('w'), std::string::npos);
}

TEST(AxisPicture, TheAspectHandleIsADotOnALine) {
    // Without a handle to scale by it is at (74, 74); with one 20 pixels further out.
    const auto picture = pictureOf(Axis::kAspect);
    EXPECT_THAT(picture.at(74, 74), Shows(paletteBlue));
    EXPECT_THAT(picture.at(76, 74), Shows(paletteBlue));
    EXPECT_GT(picture.at(40, 40).blue, 150) << "the line";
    EXPECT_GT(picture.at(41, 40).blue, 20) << "it is smooth";
    EXPECT_LT(picture.at(41, 40).blue, 200);
    EXPECT_THAT(picture.at(81, 81), IsEmpty());
    EXPECT_THAT(pictureOf(Axis::kAspect | Axis::kScaleX).at(88, 88), Shows(paletteBlue));
}

TEST(AxisPicture, TheAspectHandleUnderThePenIsWhiteWithGuides) {
    for (const Pen pen : {Pen::Over, Pen::Down}) {
        const auto picture = pictureOf(Axis::kAspect, Axis::kAspect, pen);
        EXPECT_THAT(picture.at(74, 74), Shows(paletteWhite));
        EXPECT_GT(picture.at(40, 40).red, 150) << "the line";
        const std::string guide = picture.row(0, 4, 33);
        EXPECT_NE(guide.find('b'), std::string::npos) << guide;
        EXPECT_NE(guide.find('w'), std::string::npos) << guide;
        const std::string upwards = picture.column(0, 4, 33);
        EXPECT_NE(upwards.find('b'), std::string::npos) << upwards;
        EXPECT_NE(upwards.find('w'), std::string::npos) << upwards;
        EXPECT_THAT(picture.at(36, 0), IsEmpty()) << "guides are 34 pixels long";
        EXPECT_THAT(picture.at(0, 36), IsEmpty());
    }
    EXPECT_THAT(pictureOf(Axis::kAspect).at(20, 0), IsEmpty()) << "no guides";
    EXPECT_THAT(pictureOf(Axis::kAspect).at(0, 20), IsEmpty());
}

TEST(AxisPicture, TheDotStandsWhereNothingTranslates) {
    EXPECT_THAT(pictureOf(0).at(0, 0), Shows(paletteGreen));
    EXPECT_THAT(pictureOf(0).at(2, 0), Shows(paletteGreen));
    EXPECT_THAT(pictureOf(0).at(6, 0), IsEmpty());
    EXPECT_THAT(pictureOf(Axis::kScaleX).at(0, 0), Shows(paletteBlue));
    EXPECT_THAT(pictureOf(Axis::kTranslateX).at(0, 0), IsEmpty());
    VxT2DAxis all("axis", 0);
    all.axisFlags |= Axis::kShowsAll;
    EXPECT_THAT(CentredPicture(all).at(-1, 1), IsEmpty()) << "no dot";
    EXPECT_THAT(CentredPicture(all).at(0, 20), Shows(paletteRed));
    EXPECT_THAT(CentredPicture(all).at(37, 20), Shows(paletteBlue));
    EXPECT_THAT(CentredPicture(all).at(27, 17), Shows(paletteGreen));
}

/// The darkest blue or green around a dot, 4 pixels from its middle: 153 or more without a dark
/// outline, since the dot is blue, green or white, and grey lies behind it.
int darkestAround(const CentredPicture& picture, float x, float y, int Pixel::*channel) {
    int darkest = 255;
    for (const float side : {-4.0f, 4.0f}) {
        darkest =
            std::min({darkest, picture.at(x + side, y).*channel, picture.at(x, y + side).*channel});
    }
    return darkest;
}

TEST(AxisPicture, DotsHaveADarkOutlineThatIsWhiteOnTheActiveAspectHandle) {
    constexpr int kDarker = 120, kGrey = 152;
    const auto overGrey = [](std::uint32_t handles, std::uint32_t active = 0) {
        return pictureOf(handles, active, Pen::Away, paletteGrey);
    };
    EXPECT_LT(darkestAround(overGrey(0), 0, 0, &Pixel::green), kDarker);
    EXPECT_LT(darkestAround(overGrey(Axis::kScaleX), 0, 0, &Pixel::blue), kDarker);
    EXPECT_LT(darkestAround(overGrey(Axis::kAspect), 74, 74, &Pixel::blue), kDarker);
    const auto active = overGrey(Axis::kAspect, Axis::kAspect);
    EXPECT_GE(darkestAround(active, 74, 74, &Pixel::blue), kGrey);
    EXPECT_GE(darkestAround(active, 74, 74, &Pixel::red), kGrey);
}

TEST(AxisPicture, IsDrawnAtItsCentreAsFarAsTheHandlesAllow) {
    VxT2DAxis both("axis", Axis::kCentre);
    both.centre = {20, 30};
    EXPECT_THAT(CentredPicture(both).at(20 + 10, 30), Shows(paletteRed));
    VxT2DAxis alongX("axis", Axis::kTranslateX);
    alongX.centre = {20, 30};
    EXPECT_THAT(CentredPicture(alongX).at(20 + 10, 0), Shows(paletteRed));
}

TEST(AxisPicture, DrawsUnderTheGlobalMatrixIfItUsesIt) {
    VxT2DAxis axis("axis", Axis::kCentre);
    VxTDraw::matrixStack.multiply({{{1, 0, 0}, {0, 1, 0}, {50, 40, 1}}});
    EXPECT_THAT(CentredPicture(axis).at(20, 0), Shows(paletteRed));
    axis.useGlobalMatrix = 1;
    EXPECT_THAT(CentredPicture(axis).at(70, 40), Shows(paletteRed));
    VxTDraw::matrixStack = {};
}

TEST(AxisPicture, AScaleOfZeroIsDrawnWithoutAnError) {
    for (const float aspect : {-1.0f, 0.0f, 1.0f}) {
        for (const std::uint32_t active : {Axis::kNoHandle, Axis::kAspect, Axis::kScaleUniform}) {
            VxT2DAxisGroup axis("axis", kAllHandles);
            axis.scaleX = axis.scaleY = 0.0f;
            axis.aspect = aspect;
            axis.activeHandle = active;
            axis.flags |= VxTObject::kPressed;
            EXPECT_GT(CentredPicture(axis).drawn(), 0);
            axis.scaleUniform = 0.0f;
            axis.setUiScale(0.0f);
            const CentredPicture nothingLeft(axis);
        }
    }
}

TEST(AxisPicture, ShowsItsNameInTheTextsColourOverBlack) {
    VxT2DAxis axis("!", Axis::kTranslateX);
    EXPECT_EQ(CentredPicture(axis).count(paletteText), 0);
    axis.axisFlags |= Axis::kShowName;
    // The character has pixels from 2 to the right of its beginning, on its base line and above.
    const CentredPicture named(axis, paletteGrey);
    EXPECT_THAT(named.at(5 + 2, 5), Shows(paletteText));
    EXPECT_THAT(named.at(3 + 2, 3), Shows(test::kEmpty));
    EXPECT_THAT(named.at(3 + 2, 5), Shows(test::kEmpty));
    EXPECT_THAT(named.at(5 + 2, 3), Shows(paletteGrey));
}

// Objects under the transform of an axis.

/// A white square of 10 units from its centre to each side.
class Square final : public VxTObject {
public:
    Square() : VxTObject("square") {}
    VxHit hit(const VxPosition&, const VxPosition&) override { return kMiss; }
    void draw() override {
        pushTransform();
        if (useGlobalMatrix) loadMatrixIntoGl();
        setColour(paletteWhite);
        drawFilledRect(-10.5f, -10.5f, 10.5f, 10.5f);
        popTransform();
    }
    std::int32_t drag(const VxPosition&) override { return 0; }
};

class AxisGroupPicture : public testing::Test {
protected:
    AxisGroupPicture() {
        group.centre = {30, 20};
        group.scaleX = 3.0f;
        group.rotation = 90.0f;
        group.groupFlags = 0;
        group.axisFlags |= Axis::kMatricesOutdated;
    }

    /// The square becomes 60 high and 20 wide, around (30, 20).
    void expectTransformed() {
        const CentredPicture picture(group);
        EXPECT_THAT(picture.at(30, 20 + 30), Shows(paletteWhite));
        EXPECT_THAT(picture.at(30 + 9, 20 - 30), Shows(paletteWhite));
        EXPECT_THAT(picture.at(30 + 12, 20), IsEmpty());
        EXPECT_THAT(picture.at(30, 20 + 33), IsEmpty());
        EXPECT_EQ(VxTDraw::matrixStack.depth(), 0);
    }

    VxT2DAxisGroup group{"group", kAllHandles};
    Square square;
};

TEST_F(AxisGroupPicture, DrawsTransformedChildrenInItsCoordinates) {
    group.addChild(&square);
    expectTransformed();
}

TEST_F(AxisGroupPicture, FixedChildrenApplyTheGlobalMatrixThemselves) {
    group.addToFixed = true;
    group.addChild(&square);
    square.useGlobalMatrix = 1;
    expectTransformed();
    square.useGlobalMatrix = 0;
    EXPECT_THAT(CentredPicture(group).at(0, 0), Shows(paletteWhite));
    EXPECT_THAT(CentredPicture(group).at(30, 20), IsEmpty());
}

TEST_F(AxisGroupPicture, DrawsItsAxisOnlyIfItHasOne) {
    EXPECT_EQ(CentredPicture(group).drawn(), 0);
    group.groupFlags = VxT2DAxisGroup::kHasAxis;
    EXPECT_THAT(CentredPicture(group).at(30 + 10, 20), Shows(paletteRed));
}

TEST_F(AxisGroupPicture, DrawsItsAxisUnderTheGlobalMatrixIfThatIsSet) {
    group.groupFlags = VxT2DAxisGroup::kHasAxis;
    VxTDraw::matrixStack.multiply({{{1, 0, 0}, {0, 1, 0}, {-80, 0, 1}}});
    EXPECT_THAT(CentredPicture(group).at(30 + 10, 20), Shows(paletteRed));
    group.drawGlobal = true;
    EXPECT_THAT(CentredPicture(group).at(30 + 10 - 80, 20), Shows(paletteRed));
    VxTDraw::matrixStack = {};
}

TEST_F(AxisGroupPicture, TransformsAsFarAsItsHandlesAllow) {
    VxT2DAxisGroup translating("group", Axis::kCentre);
    translating.centre = {30, 20};
    translating.scaleX = 3.0f;
    translating.rotation = 45.0f;
    translating.groupFlags = 0;
    translating.addChild(&square);
    const CentredPicture picture(translating);
    EXPECT_THAT(picture.at(30 + 10, 20 + 10), Shows(paletteWhite)) << "neither turned nor scaled";
    EXPECT_THAT(picture.at(30 + 12, 20), IsEmpty());
}

}  // namespace
}  // namespace ruvex
