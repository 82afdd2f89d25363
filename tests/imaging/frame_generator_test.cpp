#include "imaging/frame_generator.h"

#include <gtest/gtest.h>

#include "tests/imaging/support/canvas.h"
#include "tests/imaging/support/workers.h"

namespace ruvex {
namespace {

using test::Canvas;

constexpr RgbaS214 kDeepColour{{-1, 2, 16384, 32767}};

template <class P>
std::size_t countOf(const Canvas<P>& canvas, const P& pixel) {
    return static_cast<std::size_t>(std::count(canvas.memory.begin(), canvas.memory.end(), pixel));
}

TEST(ColouredFrameGenerator, FillsTheWholeMapAndNothingElse) {
    for (std::int32_t count = 1; count <= 9; ++count) {
        const test::Workers workers(count);
        Canvas<RgbaS214> map(7, 5, {2, count % 2 == 0});
        ColouredFrameGenerator<RgbaS214> generator;
        generator.colour = kDeepColour;
        generator.process(&map.texture);
        EXPECT_EQ(countOf(map, kDeepColour), 35u);
        EXPECT_EQ(map.at(6, 4), kDeepColour);
    }
}

TEST(ColouredFrameGenerator, FillsItsWindow) {
    Canvas<RgbaS214> map(7, 5);
    map.texture.x.offset = 10;
    ColouredFrameGenerator<RgbaS214> generator;
    generator.colour = kDeepColour;
    generator.setWindow(12, 1, 13, 3);
    generator.process(&map.texture);
    EXPECT_EQ(countOf(map, kDeepColour), 6u);
    EXPECT_EQ(map.at(2, 1), kDeepColour);
    EXPECT_EQ(map.at(3, 3), kDeepColour);
}

TEST(ColouredFrameGenerator, ZeroClearsWhateverTheColour) {
    Canvas<RgbaS214> map(7, 5, {0, false});
    map.memory.assign(map.memory.size(), kDeepColour);
    ColouredFrameGenerator<RgbaS214> generator;
    generator.colour = kDeepColour;
    generator.zero = true;
    generator.process(&map.texture);
    EXPECT_EQ(countOf(map, RgbaS214{}), 35u);
}

TEST(ColouredFrameGenerator, FillsOneField) {
    Canvas<RgbaS214> map(7, 5);
    ColouredFrameGenerator<RgbaS214> generator;
    generator.colour = kDeepColour;
    generator.setFieldMode(1);
    generator.process(&map.texture);
    EXPECT_EQ(countOf(map, kDeepColour), 21u);
    EXPECT_EQ(map.at(0, 1), RgbaS214{});
    EXPECT_EQ(map.at(0, 4), kDeepColour);
}

TEST(ColouredFrameGenerator, NamesAMapThatItCannotFill) {
    ColouredFrameGenerator<Rgba8> generator;
    VxTexture<Rgba8> empty;
    testing::internal::CaptureStderr();
    generator.process(nullptr);
    generator.process(&empty);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Map passed into Generator::process is NULL\n"
              "Map passed into Generator::process is bogus\n");
}

}  // namespace
}  // namespace ruvex
