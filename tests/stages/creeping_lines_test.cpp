#include "stages/creeping_lines.h"

#include <gtest/gtest.h>
#include <set>
#include <utility>
#include <vector>

#include "tests/stages/support/television.h"

namespace ruvex::test {
namespace {

template <class P>
class Lines : public testing::Test {};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(Lines, FramePixels);

using Dots = std::set<std::pair<int, int>>;  // row and column

// A black picture with the lines of a black-and-white set, which never paint black.
template <class P>
Dots dotsOf(const SignalParameters& signal, int width, int height,
            const std::vector<Span>& shares) {
    Canvas<P> canvas(width, height);
    for (const Span& rows : shares) drawCreepingLines(signal, canvas.texture, rows, nullptr);
    Dots dots;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            if (!(canvas.at(x, y) == P{})) dots.insert({y, x});
        }
    }
    return dots;
}

SignalParameters lineSignal(int width, int height, float degrees) {
    SignalParameters signal = perfectSignal(width, height);
    signal.tvType = TvType::BlackAndWhite;
    signal.breakup = 0.9f;
    signal.lineThreshold = 0.5f;
    signal.lineAngle = degrees * 3.1415927f / 180.0f;
    return signal;
}

TYPED_TEST(Lines, UpToTheThresholdThereIsNoLine) {
    SignalParameters signal = lineSignal(60, 40, 30);
    for (const float level : {0.0f, 0.4f, 0.5f}) {
        signal.breakup = level;
        EXPECT_TRUE(dotsOf<TypeParam>(signal, 60, 40, {{0, 40}}).empty()) << level;
    }
    signal.breakup = 0.6f;
    EXPECT_FALSE(dotsOf<TypeParam>(signal, 60, 40, {{0, 40}}).empty());
}

TYPED_TEST(Lines, ATwentiethOfADegreeOffAnAxisDrawsLines) {
    for (const float angle : {0.0008726647f, 1.571669f, 3.1424656f, 4.7132616f}) {
        SignalParameters signal = lineSignal(60, 40, 0);
        signal.lineAngle = angle;
        signal.lineSpacing = 5.0f;
        EXPECT_FALSE(dotsOf<TypeParam>(signal, 60, 40, {{0, 40}}).empty()) << angle;
    }
}

TYPED_TEST(Lines, CloserLinesAreOnlyMore) {
    SignalParameters signal = lineSignal(90, 60, 30);
    std::size_t before = 0;
    for (const float spacing : {20.0f, 5.0f, 1.0f, 0.25f}) {
        signal.lineSpacing = spacing;
        const std::size_t dots = dotsOf<TypeParam>(signal, 90, 60, {{0, 60}}).size();
        EXPECT_GT(dots, before) << spacing;
        before = dots;
    }
}

TYPED_TEST(Lines, AShallowLineHasADotInEveryThirdColumn) {
    SignalParameters signal = lineSignal(300, 40, 10);
    signal.lineSpacing = 2000.0f;
    std::vector<int> columns;
    for (int seed = 0; seed < 20 && columns.size() < 20; ++seed) {
        signal.seed = seed;
        columns.clear();
        for (const auto& [y, x] : dotsOf<TypeParam>(signal, 300, 40, {{0, 40}}))
            columns.push_back(x);
    }
    ASSERT_GE(columns.size(), 20u);
    std::sort(columns.begin(), columns.end());
    for (std::size_t i = 1; i < columns.size(); ++i) EXPECT_EQ(columns[i] - columns[i - 1], 3);
}

TYPED_TEST(Lines, ASteepLineBeginsAnewInEachShare) {
    SignalParameters signal = lineSignal(100, 100, 70);
    signal.lineSpacing = 2000.0f;
    for (int seed = 0; seed < 50; ++seed) {
        signal.seed = seed;
        const auto first = dotsOf<TypeParam>(signal, 100, 100, {{0, 50}});
        const auto second = dotsOf<TypeParam>(signal, 100, 100, {{50, 100}});
        if (first.size() < 16 || second.size() < 16) continue;
        EXPECT_LE(first.rbegin()->first, 50);
        // Within the float's rounding the first dot is on the share's first row.
        EXPECT_NEAR(second.begin()->first, 50, 1);
        const auto both = dotsOf<TypeParam>(signal, 100, 100, {{0, 50}, {50, 100}});
        auto wanted = first;
        wanted.insert(second.begin(), second.end());
        EXPECT_EQ(both, wanted);
        return;
    }
    FAIL() << "no seed puts a line across both shares";
}

TYPED_TEST(Lines, FarOutGeometryEndsAndPaintsNothingOutside) {
    for (const float far : {0.0f, -1.0f, 1e9f, 1e12f, -1e12f, 1e30f, 3e38f}) {
        for (const float degrees : {10.0f, 60.0f, 100.0f, 160.0f, 240.0f, 350.0f}) {
            SignalParameters signal = lineSignal(60, 40, degrees);
            signal.lineOffset = far;
            dotsOf<TypeParam>(signal, 60, 40, {{0, 20}, {20, 40}});
            signal.lineOffset = 0.0f;
            signal.lineSpacing = far;
            dotsOf<TypeParam>(signal, 60, 40, {{0, 20}, {20, 40}});
        }
    }
    SUCCEED() << "it comes to an end, and the sanitizers see no fault";
}

// Counts the checks and stops the render at one of them.
struct StopAt {
    explicit StopAt(int number) : last(number) { record.reset(this, ask); }

    static std::uint32_t ask(void* context, std::atomic<std::uint32_t>*) {
        auto& self = *static_cast<StopAt*>(context);
        return ++self.checks == self.last ? 1u : 0u;
    }

    int last;
    int checks = 0;
    InterruptionRecord record;
};

TYPED_TEST(Lines, AStopIsAnsweredAtTheNextLine) {
    SignalParameters signal = lineSignal(60, 40, 30);
    // Over a million lines.
    signal.lineSpacing = 0.00005f;
    StopAt stop(4);
    Canvas<TypeParam> canvas(60, 40);
    drawCreepingLines(signal, canvas.texture, Span{0, 40}, &stop.record);
    EXPECT_EQ(stop.checks, 4);
    int lit = 0;
    for (const auto& pixel : canvas.memory) lit += pixel != TypeParam{};
    EXPECT_LE(lit, 3 * (60 / 3 + 1)) << "dots of the three lines before the stop";
}

TYPED_TEST(Lines, ACheckChangesNoDot) {
    SignalParameters signal = lineSignal(60, 40, 70);
    signal.tvType = TvType::Colour;
    signal.lineSpacing = 0.3f;
    Canvas<TypeParam> with(60, 40);
    Canvas<TypeParam> without(60, 40);
    StopAt never(-1);
    for (const Span rows : {Span{0, 20}, Span{20, 40}}) {
        drawCreepingLines(signal, with.texture, rows, &never.record);
        drawCreepingLines(signal, without.texture, rows, nullptr);
    }
    EXPECT_GT(never.checks, 100);
    EXPECT_EQ(with.memory, without.memory);
}

TYPED_TEST(Lines, AColourSetKeepsItsAlphaAndAnotherLightensIt) {
    for (const int type : {0, 1, 2}) {
        SignalParameters signal = lineSignal(60, 40, 30);
        signal.tvType = TvType{type};
        signal.breakup = 1.0f;
        signal.lineSpacing = 4.0f;
        Canvas<TypeParam> canvas(60, 40);
        drawCreepingLines(signal, canvas.texture, Span{0, 40}, nullptr);
        int lit = 0;
        for (const auto& pixel : canvas.memory) lit += pixel.c[3] != 0;
        EXPECT_EQ(lit > 0, type != 0) << type;
    }
}

}  // namespace
}  // namespace ruvex::test
