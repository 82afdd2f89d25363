#include "stages/scan_line_adder.h"

#include <gtest/gtest.h>

#include "tests/imaging/support/canvas.h"
#include "tests/imaging/support/workers.h"

namespace ruvex::test {
namespace {

template <class P>
class ScanLines : public testing::Test {};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(ScanLines, FramePixels);

template <class P>
void fillWith(Canvas<P>& canvas, typename P::Component value) {
    for (P& pixel : canvas.memory) pixel = {{value, value, value, value}};
}

TYPED_TEST(ScanLines, APeriodRisesFromAQuarter) {
    Canvas<TypeParam> canvas(3, 8);
    fillWith(canvas, 100);
    VxScanLineAdder<TypeParam> adder;
    adder.lineWidth = 3;
    adder.process(canvas.texture, canvas.texture);
    const int wanted[] = {25, 50, 75};
    for (int y = 0; y < 8; ++y) {
        const auto c = static_cast<typename TypeParam::Component>(wanted[y % 3]);
        EXPECT_EQ(canvas.at(1, y), (TypeParam{{c, c, c, c}})) << "row " << y << ", alpha as well";
    }
}

TYPED_TEST(ScanLines, AWidthOfOneOrLessChangesNothing) {
    for (const int width : {1, 0, -7}) {
        Random random(1);
        Canvas<TypeParam> canvas(4, 5);
        canvas.scribble(random);
        const auto before = canvas.memory;
        VxScanLineAdder<TypeParam> adder;
        adder.lineWidth = width;
        adder.process(canvas.texture, canvas.texture);
        EXPECT_EQ(firstDifference(canvas.memory, before), "");
    }
}

TEST(ScanLinesS214, DarkOvershootIsDimmedTowardsZero) {
    Canvas<RgbaS214> canvas(1, 2);
    canvas.at(0, 0) = {{-101, -3, 32767, -32768}};
    VxScanLineAdder<RgbaS214> adder;
    adder.lineWidth = 2;
    adder.process(canvas.texture, canvas.texture);
    EXPECT_EQ(canvas.at(0, 0), (RgbaS214{{-25, 0, 8191, -8192}}));
}

// One pixel worked out by itself.
template <class P>
P dimmedTwin(const P& pixel, int y, int width) {
    const float factor =
        width > 1 ? static_cast<float>(y % width) / static_cast<float>(width) * 0.75f + 0.25f
                  : 1.0f;
    P result;
    for (int k = 0; k < 4; ++k) {
        result.c[k] = static_cast<typename P::Component>(static_cast<float>(pixel.c[k]) * factor);
    }
    return result;
}

TYPED_TEST(ScanLines, EveryPixelIsTheTwinsForAnyWindowAndWorkers) {
    Random random(77);
    for (int i = 0; i < cases(400); ++i) {
        Canvas<TypeParam> canvas(random.whole(1, 19), random.whole(1, 23), {1, random.chance(30)});
        canvas.scribble(random);
        const int width = random.whole(-1, 30);
        const int left = random.whole(0, canvas.width() - 1);
        const int right = random.whole(left, canvas.width() - 1);
        const int top = random.whole(0, canvas.height() - 1);
        const int bottom = random.whole(top, canvas.height() - 1);
        auto wanted = canvas.memory;
        for (int y = top; y <= bottom; ++y) {
            for (int x = left; x <= right; ++x) {
                TypeParam& to = wanted[canvas.indexOf(x, y)];
                to = dimmedTwin(to, y, width);
            }
        }
        const Workers workers(random.whole(1, 9));
        VxScanLineAdder<TypeParam> adder;
        adder.lineWidth = width;
        adder.setWindow(left, top, right, bottom);
        adder.process(canvas.texture, canvas.texture);
        ASSERT_EQ(firstDifference(canvas.memory, wanted), "") << "case " << i;
    }
}

}  // namespace
}  // namespace ruvex::test
