#include "overlay/vx_t_rectangle.h"
#include "tests/drawing/centred_picture.h"

namespace ruvex {
namespace {

using test::CentredPicture;
using test::IsEmpty;
using test::Shows;
using Rectangle = VxTRectangle;

/// The rectangle lies around the origin.
constexpr int kHalfWidth = 60, kHalfHeight = 40;
constexpr std::uint32_t kAway = 0, kHovered = VxTObject::kHovered, kPressed = VxTObject::kPressed;
constexpr std::uint32_t kAllLines[] = {Rectangle::kLeft, Rectangle::kRight, Rectangle::kBottom,
                                       Rectangle::kTop,  Rectangle::kMoveX, Rectangle::kMoveY};

CentredPicture pictureOfRectangle(std::uint32_t activeHandles, std::uint32_t flags) {
    Rectangle rectangle("rectangle", -kHalfWidth, -kHalfHeight, kHalfWidth, kHalfHeight);
    rectangle.handle = activeHandles;
    rectangle.flags |= flags;
    return CentredPicture(rectangle);
}

/// The pixels of a handle's line, without its ends and without the other lines.
std::string lineOf(const CentredPicture& picture, std::uint32_t handle) {
    switch (handle) {
        case Rectangle::kLeft:
            return picture.column(-kHalfWidth, -35, 36);
        case Rectangle::kRight:
            return picture.column(kHalfWidth, -35, 36);
        case Rectangle::kBottom:
            return picture.row(-kHalfHeight, -55, 56);
        case Rectangle::kTop:
            return picture.row(kHalfHeight, -55, 56);
        case Rectangle::kMoveX:
            return picture.row(0, -18, -2) + picture.row(0, 3, 19);
        default:
            return picture.column(0, -18, -2) + picture.column(0, 3, 19);
    }
}

/// Which of red and white are in a line. Where two dashes meet, smooth lines have a mixture.
std::string coloursOf(const std::string& line) {
    std::string colours;
    for (const char colour : {'r', 'w'}) {
        if (line.find(colour) != std::string::npos) colours += colour;
    }
    return colours;
}

TEST(RectanglePicture, ShowsItsEdgesAndACrossOf20InRed) {
    const auto picture = pictureOfRectangle(0, kAway);
    for (const std::uint32_t handle : kAllLines) {
        const std::string line = lineOf(picture, handle);
        EXPECT_EQ(line, std::string(line.size(), 'r')) << handle;
    }
    EXPECT_THAT(picture.at(kHalfWidth, 0), Shows(VxColour{0.7f, 0.0f, 0.0f}));
    for (const float side : {-1.0f, 1.0f}) {
        EXPECT_THAT(picture.at(side * 22, 0), IsEmpty()) << "the arm ends at 20";
        EXPECT_THAT(picture.at(0, side * 22), IsEmpty());
        EXPECT_THAT(picture.at(side * (kHalfWidth + 2), 10), IsEmpty()) << "outside";
        EXPECT_THAT(picture.at(side * (kHalfWidth - 2), 10), IsEmpty()) << "inside";
        EXPECT_THAT(picture.at(10, side * (kHalfHeight + 2)), IsEmpty());
        EXPECT_THAT(picture.at(10, side * (kHalfHeight - 2)), IsEmpty());
    }
}

TEST(RectanglePicture, AnActiveHandleNeedsThePenToBeSeen) {
    for (const std::uint32_t active : kAllLines) {
        EXPECT_EQ(pictureOfRectangle(active, kAway).count(paletteWhite), 0) << active;
    }
}

TEST(RectanglePicture, TheActiveHandleUnderThePenIsRedAndWhite) {
    for (const std::uint32_t active : kAllLines) {
        const auto picture = pictureOfRectangle(active, kHovered);
        for (const std::uint32_t handle : kAllLines) {
            EXPECT_EQ(coloursOf(lineOf(picture, handle)), handle == active ? "rw" : "r")
                << handle << ", active " << active;
        }
    }
}

TEST(RectanglePicture, ThePressedHandleIsWhite) {
    for (const std::uint32_t active : kAllLines) {
        const auto picture = pictureOfRectangle(active, kPressed);
        for (const std::uint32_t handle : kAllLines) {
            const std::string line = lineOf(picture, handle);
            EXPECT_EQ(line, std::string(line.size(), handle == active ? 'w' : 'r'))
                << handle << ", active " << active;
        }
    }
}

TEST(RectanglePicture, ACornerHasTwoActiveEdges) {
    constexpr std::uint32_t kCorner = Rectangle::kLeft | Rectangle::kTop;
    for (const std::uint32_t flags : {kHovered, kPressed}) {
        const auto picture = pictureOfRectangle(kCorner, flags);
        for (const std::uint32_t handle : kAllLines) {
            const std::string active = flags == kHovered ? "rw" : "w";
            EXPECT_EQ(coloursOf(lineOf(picture, handle)), handle & kCorner ? active : "r");
        }
    }
}

TEST(RectanglePicture, ItsLinesAreSmooth) {
    Rectangle rectangle("rectangle", -30.5f, -40, 30, 40);
    const CentredPicture picture(rectangle);
    // The left edge lies between two columns of pixels, and both show a part of it.
    for (const float x : {-31.0f, -30.0f}) {
        EXPECT_GT(picture.at(x, 10).red, 30);
        EXPECT_LT(picture.at(x, 10).red, 150);
    }
    EXPECT_THAT(picture.at(30, 10), Shows(paletteRed));
}

TEST(RectanglePicture, HasTheColourThatItIsGiven) {
    Rectangle rectangle("rectangle", -kHalfWidth, -kHalfHeight, kHalfWidth, kHalfHeight);
    rectangle.colour = paletteGreen;
    const CentredPicture picture(rectangle);
    EXPECT_THAT(picture.at(kHalfWidth, 10), Shows(paletteGreen));
    EXPECT_THAT(picture.at(10, 0), Shows(paletteGreen));
    EXPECT_EQ(picture.count(paletteRed), 0);
}

}  // namespace
}  // namespace ruvex
