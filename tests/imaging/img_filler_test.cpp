#include "imaging/img_filler.h"

#include <gtest/gtest.h>

#include "tests/imaging/support/canvas.h"
#include "tests/imaging/support/workers.h"

namespace ruvex {
namespace {

using test::Canvas;

constexpr Rgba8 kPicture{{1, 1, 1, 1}};
constexpr Rgba8 kColour{{9, 8, 7, 6}};

// The picture as text, rows from 0 up: '.' kept, '#' filled, '0' cleared, '?' neither.
std::string drawing(Canvas<Rgba8>& canvas) {
    std::string text;
    for (std::int32_t row = 0; row < canvas.height(); ++row) {
        for (std::int32_t column = 0; column < canvas.width(); ++column) {
            const Rgba8 pixel = canvas.at(column, row);
            text += pixel == kPicture ? '.' : pixel == kColour ? '#' : pixel == Rgba8{} ? '0' : '?';
        }
        text += '\n';
    }
    return text;
}

class ImgFiller : public testing::Test {
protected:
    void SetUp() override {
        map_.memory.assign(map_.memory.size(), kPicture);
        filler_.fillColour = kColour;
    }
    void keep(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom) {
        filler_.useInside = true;
        filler_.insideLeft = left;
        filler_.insideTop = top;
        filler_.insideRight = right;
        filler_.insideBottom = bottom;
    }
    std::string filled() {
        filler_.process(map_.texture);
        return drawing(map_);
    }

    Canvas<Rgba8> map_{6, 5, {1, false}};
    VxImgFiller<Rgba8> filler_;
};

TEST_F(ImgFiller, WithoutARectangleTheWholeWindowIsFilled) {
    filler_.setWindow(1, 1, 3, 2);
    EXPECT_EQ(filled(), "......\n.###..\n.###..\n......\n......\n");
}

TEST_F(ImgFiller, OutsideTheRectangleIsFilled) {
    for (std::int32_t count = 1; count <= 9; ++count) {
        const test::Workers workers(count);
        SetUp();
        keep(2, 1, 4, 3);
        EXPECT_EQ(filled(), "######\n##..##\n##..##\n######\n######\n");
    }
}

TEST_F(ImgFiller, ARectangleLargerThanTheWindowKeepsEverything) {
    keep(-5, -5, 50, 50);
    EXPECT_EQ(filled(), "......\n......\n......\n......\n......\n");
}

TEST_F(ImgFiller, ARectangleAtTheEndsOf32BitsIsDefined) {
    keep(INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX);
    EXPECT_EQ(filled(), "......\n......\n......\n......\n......\n");
    filler_.setWindow(0, 2, 5, 4);
    keep(0, INT32_MIN, 0, INT32_MIN);
    EXPECT_EQ(filled(), "......\n......\n######\n######\n######\n");
}

TEST_F(ImgFiller, ARectangleBesideTheWindowKeepsNothing) {
    keep(10, 0, 20, 5);
    EXPECT_EQ(filled(), "######\n######\n######\n######\n######\n");
}

TEST_F(ImgFiller, ARectangleIsInImageSpace) {
    map_.texture.x.offset = 100;
    map_.texture.y.offset = -2;
    keep(101, -2, 106, 1);
    EXPECT_EQ(filled(), "#.....\n#.....\n#.....\n######\n######\n");
}

TEST_F(ImgFiller, TheWindowLimitsTheFillAndIsRestored) {
    filler_.setWindow(1, 1, 4, 3);
    keep(2, 2, 3, 3);
    EXPECT_EQ(filled(), "......\n.####.\n.#.##.\n.####.\n......\n");
    std::int32_t left, top, right, bottom;
    filler_.getWindow(left, top, right, bottom);
    EXPECT_EQ(left, 1);
    EXPECT_EQ(top, 1);
    EXPECT_EQ(right, 4);
    EXPECT_EQ(bottom, 3);
    EXPECT_FALSE(filler_.pop()) << "nothing is left on the stack";
}

TEST_F(ImgFiller, ZeroClearsWhateverTheColour) {
    filler_.zero = true;
    keep(2, 1, 4, 3);
    EXPECT_EQ(filled(), "000000\n00..00\n00..00\n000000\n000000\n");
}

TEST_F(ImgFiller, AFieldIsEverySecondRow) {
    filler_.fieldMode = 1;
    keep(2, 1, 4, 3);
    EXPECT_EQ(filled(), "######\n......\n##..##\n......\n######\n");
    SetUp();
    filler_.fieldMode = 2;
    EXPECT_EQ(filled(), "......\n##..##\n......\n######\n......\n");
}

TEST_F(ImgFiller, AStopLeavesTheWindowAsItWas) {
    struct Stopping : VxImgFiller<Rgba8> {
        void postPass() override { interrupt->interrupted = 1; }
    } filler;
    InterruptionRecord record;
    filler.interrupt = &record;
    filler.useInside = true;
    filler.insideLeft = filler.insideTop = 2;
    filler.insideRight = filler.insideBottom = 4;
    filler.fillColour = kColour;
    filler.process(map_.texture);
    EXPECT_EQ(drawing(map_), "######\n######\n......\n......\n......\n");
    EXPECT_EQ(filler.y0, 0);
    EXPECT_EQ(filler.y1, 5);
    EXPECT_FALSE(filler.pop());
}

}  // namespace
}  // namespace ruvex
