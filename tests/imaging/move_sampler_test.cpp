#include "imaging/move_sampler.h"

#include <gtest/gtest.h>
#include <limits>

#include "tests/imaging/support/canvas.h"
#include "tests/imaging/support/workers.h"

namespace ruvex {
namespace {

using test::Canvas;
using test::firstDifference;
using test::placePixel;

constexpr MoveFilter kFilters[] = {MoveFilter::Nearest, MoveFilter::Bilinear, MoveFilter::Footprint,
                                   MoveFilter::Sinc};

class MoveSampler : public testing::Test {
protected:
    void SetUp() override { source_.number(); }

    void run() { sampler_.process(&source_.texture, &map_.texture); }

    Canvas<Rgba8> source_{8, 6};
    Canvas<Rgba8> map_{8, 6};
    VxMoveSampler<Rgba8> sampler_;
};

TEST_F(MoveSampler, StartsAsANearestIdentity) {
    EXPECT_EQ(sampler_.matrix, kIdentity3);
    EXPECT_EQ(sampler_.filter, MoveFilter::Nearest);
    EXPECT_EQ(sampler_.weight, 1.0f);
    EXPECT_FALSE(sampler_.accumulate);
    EXPECT_FALSE(sampler_.perspective);
}

TEST_F(MoveSampler, TheIdentityReadsEachPixelInItsPlace) {
    for (const MoveFilter filter : kFilters) {
        for (const bool perspective : {false, true}) {
            map_.memory.assign(map_.memory.size(), Rgba8{});
            sampler_.filter = filter;
            sampler_.perspective = perspective;
            source_.texture.setEdgeMethods(1, 1);
            run();
            for (std::int32_t row = 0; row < 6; ++row) {
                for (std::int32_t column = 0; column < 8; ++column) {
                    // The kernel's sums may fall short of a whole number by a rounding step.
                    const Rgba8 wanted = placePixel<Rgba8>(column, row);
                    const int slack = filter == MoveFilter::Sinc ? 1 : 0;
                    EXPECT_NEAR(map_.at(column, row).c[0], wanted.c[0], slack);
                    EXPECT_NEAR(map_.at(column, row).c[1], wanted.c[1], slack);
                }
            }
        }
    }
}

TEST_F(MoveSampler, HalfScaleReadsEachColumnTwice) {
    scale(sampler_.matrix, 0.5f, 0.5f);
    run();
    for (std::int32_t column = 0; column < 8; ++column) {
        EXPECT_EQ(map_.at(column, 0).c[0], column / 2);
        EXPECT_EQ(map_.at(column, 5).c[1], 2);
    }
}

TEST_F(MoveSampler, PastTheBorderEdgeMethodsApply) {
    translate(sampler_.matrix, 4.0f, -2.0f);
    source_.texture.setFill({{77, 77, 77, 77}});
    for (const MoveFilter filter : {MoveFilter::Nearest, MoveFilter::Bilinear}) {
        sampler_.filter = filter;
        source_.texture.setEdgeMethods(1, 1);
        run();
        EXPECT_EQ(map_.at(7, 0), placePixel<Rgba8>(7, 0));
        EXPECT_EQ(map_.at(0, 0), placePixel<Rgba8>(4, 0));
        source_.texture.setEdgeMethods(0, 0);
        run();
        EXPECT_EQ(map_.at(7, 0), (Rgba8{{77, 77, 77, 77}}));
        EXPECT_EQ(map_.at(0, 2), placePixel<Rgba8>(4, 0));
        EXPECT_EQ(map_.at(4, 2), (Rgba8{{77, 77, 77, 77}}));
    }
}

TEST_F(MoveSampler, BilinearTruncates) {
    sampler_.filter = MoveFilter::Bilinear;
    translate(sampler_.matrix, 0.75f, 0.0f);
    run();
    EXPECT_EQ(map_.at(2, 2).c[0], 2) << "2.75";
}

TEST_F(MoveSampler, FootprintIsABilinearSampleAtItsCentre) {
    const auto movedBy = [this](MoveFilter filter) {
        sampler_.filter = filter;
        run();
        return map_.memory;
    };
    scale(sampler_.matrix, 3.0f, 0.7f);
    rotate(sampler_.matrix, 0.3f);
    EXPECT_EQ(firstDifference(movedBy(MoveFilter::Footprint), movedBy(MoveFilter::Bilinear)), "");
}

TEST_F(MoveSampler, PerspectiveDividesThePosition) {
    sampler_.perspective = true;
    sampler_.matrix = {1, 0, 0, 0, 1, 0, 0, 0, 0.5f};
    source_.texture.setEdgeMethods(1, 1);
    run();
    EXPECT_EQ(map_.at(0, 0), placePixel<Rgba8>(1, 1));
    EXPECT_EQ(map_.at(2, 1), placePixel<Rgba8>(5, 3));
    sampler_.perspective = false;
    run();
    EXPECT_EQ(map_.at(2, 1), placePixel<Rgba8>(2, 1)) << "without it the divisor is not used";
}

TEST_F(MoveSampler, AHorizonIsDefined) {
    sampler_.perspective = true;
    // The divisor is 0 at the centre of column 3.
    sampler_.matrix = {1, 0, 1, 0, 1, 0, 0, 0, -3.5f};
    source_.texture.setFill({{7, 7, 7, 7}});
    for (const MoveFilter filter : kFilters) {
        for (const std::uint32_t edge : {0u, 1u, 2u, 3u}) {
            sampler_.filter = filter;
            source_.texture.setEdgeMethods(edge, edge);
            run();
            if (edge == 0 && (filter == MoveFilter::Nearest || filter == MoveFilter::Bilinear)) {
                EXPECT_EQ(map_.at(3, 2), (Rgba8{{7, 7, 7, 7}}));
            }
        }
    }
}

TEST_F(MoveSampler, AMatrixOfNoNumbersReadsDefinedPixels) {
    sampler_.matrix.fill(std::numeric_limits<float>::quiet_NaN());
    source_.texture.setFill({{7, 7, 7, 7}});
    run();
    EXPECT_EQ(map_.at(3, 2), (Rgba8{{7, 7, 7, 7}}));
    sampler_.matrix = {1e30f, 0, 0, 0, 1e30f, 0, 0, 0, 1};
    for (const MoveFilter filter : kFilters) {
        sampler_.filter = filter;
        run();
        EXPECT_EQ(map_.at(3, 2), (Rgba8{{7, 7, 7, 7}}));
    }
}

TEST_F(MoveSampler, SincOvershootsAndClamps) {
    // A step from black to white: the kernel rings on both sides of it.
    Canvas<RgbaS214> step(20, 12), map(20, 12);
    for (std::int32_t row = 0; row < 12; ++row) {
        for (std::int32_t column = 10; column < 20; ++column) {
            step.at(column, row) = {{16384, 32767, 0, 0}};
        }
    }
    step.texture.setEdgeMethods(1, 1);
    VxMoveSampler<RgbaS214> sampler;
    sampler.filter = MoveFilter::Sinc;
    translate(sampler.matrix, 0.3f, 0.0f);
    sampler.process(&step.texture, &map.texture);
    EXPECT_LT(map.at(8, 6).c[0], 0) << "below black is kept";
    EXPECT_GT(map.at(10, 6).c[0], 16384) << "above white is kept";
    EXPECT_EQ(map.at(10, 6).c[1], 32767) << "held to the storage";
}

TEST_F(MoveSampler, SincOfAConstantIsTheConstant) {
    Canvas<Rgba8> flat(20, 20, {0, false}), map(20, 20);
    flat.memory.assign(flat.memory.size(), Rgba8{{200, 100, 50, 255}});
    flat.texture.setEdgeMethods(2, 2);
    sampler_.filter = MoveFilter::Sinc;
    scale(sampler_.matrix, 0.77f, 1.31f);
    sampler_.process(&flat.texture, &map.texture);
    for (std::int32_t i = 0; i < 20; ++i) {
        EXPECT_NEAR(map.at(i, i).c[0], 200, 1);
        EXPECT_NEAR(map.at(i, i).c[3], 255, 1);
    }
}

TEST_F(MoveSampler, FiltersBeyondTheFourLeaveTheMapUntouchedWithoutAMessage) {
    test::Random random(3);
    map_.scribble(random);
    const auto before = map_.memory;
    testing::internal::CaptureStderr();
    for (const std::uint32_t filter : {4u, 5u, 0xffffffffu}) {
        sampler_.filter = static_cast<MoveFilter>(filter);
        sampler_.accumulate = false;
        run();
        sampler_.accumulate = true;
        run();
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(firstDifference(map_.memory, before), "");
}

TEST_F(MoveSampler, AccumulatingSincDoesNothing) {
    test::Random random(3);
    map_.scribble(random);
    const auto before = map_.memory;
    sampler_.accumulate = true;
    sampler_.filter = MoveFilter::Sinc;
    run();
    EXPECT_EQ(firstDifference(map_.memory, before), "");
}

TEST_F(MoveSampler, AddingTruncatesTheWeightedSampleAndWraps) {
    sampler_.accumulate = true;
    sampler_.weight = 0.3f;
    map_.at(2, 3) = {{10, 20, 250, 250}};
    run();
    // Blue: 100 * 0.3 is 30, 250 + 30 wraps to 24. Red: 2 * 0.3 truncates to 0.
    EXPECT_EQ(map_.at(2, 3), (Rgba8{{10, 20, 24, 9}}));
    sampler_.weight = -0.3f;
    run();
    EXPECT_EQ(map_.at(2, 3), (Rgba8{{10, 20, 250, 250}}));
}

TEST_F(MoveSampler, AddingInS214IsSigned) {
    Canvas<RgbaS214> source(1, 1), map(1, 1);
    source.at(0, 0) = {{-1000, 32767, 0, 16384}};
    map.at(0, 0) = {{10, 10, 10, 10}};
    VxMoveSampler<RgbaS214> sampler;
    sampler.accumulate = true;
    sampler.weight = 0.5f;
    sampler.process(&source.texture, &map.texture);
    EXPECT_EQ(map.at(0, 0), (RgbaS214{{-490, 16393, 10, 8202}}));
}

TEST_F(MoveSampler, AddingBilinearUnderPerspectiveDropsTheWeight) {
    sampler_.accumulate = true;
    sampler_.filter = MoveFilter::Bilinear;
    sampler_.weight = 0.5f;
    map_.at(2, 3) = {{1, 1, 1, 1}};
    sampler_.perspective = true;
    run();
    EXPECT_EQ(map_.at(2, 3), (Rgba8{{3, 4, 101, 51}}));
    map_.at(2, 3) = {{1, 1, 1, 1}};
    sampler_.perspective = false;
    run();
    EXPECT_EQ(map_.at(2, 3), (Rgba8{{2, 2, 51, 26}}));
}

TEST_F(MoveSampler, TheRunningPositionStartsAtTheWindowsFirstColumn) {
    // 0.1 added up from column 0 falls on another side of a whole number than from column 3.
    Canvas<Rgba8> wide(100, 1), whole(100, 1), part(100, 1);
    wide.number();
    scale(sampler_.matrix, 0.1f, 1.0f);
    sampler_.process(&wide.texture, &whole.texture);
    float position = 0.5f * 0.1f;
    for (std::int32_t column = 0; column < 100; ++column, position += 0.1f) {
        ASSERT_EQ(whole.at(column, 0).c[0], static_cast<int>(position));
    }
    sampler_.setWindow(37, 0, 99, 0);
    sampler_.process(&wide.texture, &part.texture);
    position = 37.5f * 0.1f;
    for (std::int32_t column = 37; column < 100; ++column, position += 0.1f) {
        ASSERT_EQ(part.at(column, 0).c[0], static_cast<int>(position));
    }
}

TEST_F(MoveSampler, AStopIsHeededBeforeTheFirstRow) {
    struct Late : VxMoveSampler<Rgba8> {
        void start(Texture*, Texture*) override { checks = 0; }
        int checks = 0;
    } sampler;
    // The pass begins, then the host says stop at the first row.
    InterruptionRecord record;
    sampler.interrupt = &record;
    sampler.singleThread = true;
    record.reset(&sampler, [](void* context, std::atomic<std::uint32_t>*) {
        return ++static_cast<Late*>(context)->checks > 1 ? 1u : 0u;
    });
    const auto before = map_.memory;
    sampler.process(&source_.texture, &map_.texture);
    EXPECT_EQ(sampler.checks, 2);
    EXPECT_EQ(firstDifference(map_.memory, before), "");
}

TEST_F(MoveSampler, TheMovesCanBeOverridden) {
    struct Spy : VxMoveSampler<Rgba8> {
        void moveNearest(Texture&, Texture&) override { called = "moveNearest"; }
        void moveFootprint(Texture&, Texture&) override { called = "moveFootprint"; }
        void moveBilinear(Texture&, Texture&) override { called = "moveBilinear"; }
        void moveSinc(Texture&, Texture&) override { called = "moveSinc"; }
        void addNearest(Texture&, Texture&) override { called = "addNearest"; }
        void addFootprint(Texture&, Texture&) override { called = "addFootprint"; }
        void addBilinear(Texture&, Texture&) override { called = "addBilinear"; }
        std::string called;
    } spy;
    spy.singleThread = true;
    const std::string names[2][4] = {{"moveNearest", "moveBilinear", "moveFootprint", "moveSinc"},
                                     {"addNearest", "addBilinear", "addFootprint", ""}};
    for (std::uint32_t add = 0; add < 2; ++add) {
        for (std::uint32_t filter = 0; filter < 4; ++filter) {
            spy.called.clear();
            spy.accumulate = add == 1;
            spy.filter = static_cast<MoveFilter>(filter);
            spy.process(&source_.texture, &map_.texture);
            EXPECT_EQ(spy.called, names[add][filter]);
        }
    }
}

}  // namespace
}  // namespace ruvex
