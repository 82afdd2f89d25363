#include "imaging/imager.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <vector>

#include "imaging/combiner.h"
#include "imaging/generator.h"
#include "imaging/sampler.h"
#include "tests/imaging/support/canvas.h"
#include "tests/imaging/support/workers.h"

namespace ruvex {
namespace {

using test::Canvas;
using test::Workers;
using testing::ElementsAre;

using Frame = VxTexture<Rgba8>;

// The steps of a run, as whichever kind of imager calls them.
struct Steps {
    std::vector<std::string> names;
    InterruptionRecord record;
    std::string stopAt;

    void add(const std::string& name, std::int32_t pass) {
        names.push_back(name + std::to_string(pass));
        if (names.back() == stopAt) record.interrupted = 1;
    }
};

struct TestGenerator : Generator<Frame>, Steps {
    void start(Frame*) override { add("start", pass); }
    void work(Frame*) override { add("work", pass); }
    void finish(Frame*) override { add("finish", pass); }
};
struct TestSampler : Sampler<Frame>, Steps {
    void start(Frame*, Frame*) override { add("start", pass); }
    void startPass(Frame*, Frame*) override { add("startPass", pass); }
    void work(Frame*, Frame*) override { add("work", pass); }
    void finish(Frame*, Frame*) override { add("finish", pass); }
};
struct TestCombiner : Combiner<Frame>, Steps {
    void start(Frame*, Frame*, Frame*) override { add("start", pass); }
    void work(Frame*, Frame*, Frame*) override { add("work", pass); }
    void finish(Frame*, Frame*, Frame*) override { add("finish", pass); }
};

std::vector<std::string> samplerSteps(std::int32_t passes, const std::string& stopAt = {}) {
    Canvas<Rgba8> source(4, 4), map(4, 4);
    TestSampler sampler;
    sampler.singleThread = true;
    sampler.setPasses(passes);
    sampler.interrupt = &sampler.record;
    sampler.stopAt = stopAt;
    sampler.process(&source.texture, &map.texture);
    EXPECT_EQ(sampler.map, nullptr) << "outside a run";
    return sampler.names;
}

TEST(ImagerRun, SamplersStartEachPass) {
    EXPECT_THAT(samplerSteps(2),
                ElementsAre("start0", "startPass0", "work0", "startPass1", "work1", "finish2"));
}

TEST(ImagerRun, GeneratorsAndCombinersHaveNoPassStart) {
    Canvas<Rgba8> a(4, 4), b(4, 4), map(4, 4);
    TestGenerator generator;
    generator.singleThread = true;
    generator.process(&map.texture);
    EXPECT_THAT(generator.names, ElementsAre("start0", "work0", "finish1"));
    TestCombiner combiner;
    combiner.singleThread = true;
    combiner.process(&a.texture, &b.texture, &map.texture);
    EXPECT_THAT(combiner.names, ElementsAre("start0", "work0", "finish1"));
}

TEST(ImagerRun, WithoutPassesThereIsNoWork) {
    EXPECT_THAT(samplerSteps(0), ElementsAre("start0", "finish0"));
    EXPECT_THAT(samplerSteps(-1), ElementsAre("start0", "finish0"));
}

TEST(ImagerRun, AStopEndsThePassesAndStillFinishes) {
    EXPECT_THAT(samplerSteps(3, "start0"), ElementsAre("start0", "finish0"));
    EXPECT_THAT(samplerSteps(3, "work0"), ElementsAre("start0", "startPass0", "work0", "finish1"));
}

// What a process call prints.
template <class Call>
std::string printed(Call call) {
    testing::internal::CaptureStderr();
    call();
    return testing::internal::GetCapturedStderr();
}

class ImagerMessages : public testing::Test {
protected:
    Canvas<Rgba8> good_{4, 4};
    Frame empty_;
    TestGenerator generator_;
    TestSampler sampler_;
    TestCombiner combiner_;

    void expectNothingRan() const {
        EXPECT_TRUE(generator_.names.empty());
        EXPECT_TRUE(sampler_.names.empty());
        EXPECT_TRUE(combiner_.names.empty());
    }
};

TEST_F(ImagerMessages, ANullMapIsNamedAndNothingIsCalled) {
    EXPECT_EQ(printed([&] { generator_.process(nullptr); }),
              "Map passed into Generator::process is NULL\n");
    EXPECT_EQ(printed([&] { sampler_.process(&good_.texture, nullptr); }),
              "Map passed into Generator::process is NULL\n");
    EXPECT_EQ(printed([&] { combiner_.process(&good_.texture, &good_.texture, nullptr); }),
              "Map passed into Combiner::process is NULL\n");
    expectNothingRan();
}

TEST_F(ImagerMessages, AnUnusableMapIsNamedAndNothingIsCalled) {
    Canvas<Rgba8> unbacked(4, 4), flat(4, 4);
    unbacked.texture.data = nullptr;
    flat.texture.y.setSize(0);
    for (Frame* map : {&empty_, &unbacked.texture, &flat.texture}) {
        EXPECT_EQ(printed([&] { generator_.process(map); }),
                  "Map passed into Generator::process is bogus\n");
        EXPECT_EQ(printed([&] { sampler_.process(&good_.texture, map); }),
                  "Map passed into Sampler::process is bogus\n");
        EXPECT_EQ(printed([&] { combiner_.process(&good_.texture, &good_.texture, map); }),
                  "Map passed into Generator::process is bogus\n");
    }
    expectNothingRan();
}

TEST_F(ImagerMessages, AGoodMapIsSilent) {
    sampler_.singleThread = true;
    EXPECT_EQ(printed([&] { sampler_.process(&good_.texture, &good_.texture); }), "");
}

// A generator that leaves its row loop for a look.
struct LoopNoter : Generator<Frame> {
    void work(Frame*) override { loops.at(static_cast<std::size_t>(workerIndex())) = rowLoop(); }
    std::vector<RowLoop> loops = std::vector<RowLoop>(16, RowLoop{-99, -99, 0, 0, 0});
};

void expectLoop(const RowLoop& loop, std::int32_t first, std::int32_t end, std::int32_t x0,
                std::int32_t x1) {
    EXPECT_EQ(loop.first, first);
    EXPECT_EQ(loop.end, end);
    EXPECT_EQ(loop.x0, x0);
    EXPECT_EQ(loop.x1, x1);
}

TEST(ImagerWindow, WithoutOneAMapAtOffsetNoughtIsNotWindowed) {
    LoopNoter generator;
    generator.singleThread = true;
    Canvas<Rgba8> map(6, 4), larger(9, 8);
    generator.process(&map.texture);
    EXPECT_FALSE(generator.windowed);
    expectLoop(generator.loops[0], 0, 4, 0, 6);
    generator.process(&larger.texture);
    expectLoop(generator.loops[0], 0, 8, 0, 9);
}

TEST(ImagerWindow, AMapWithAnOffsetAlwaysCountsAsWindowed) {
    LoopNoter generator;
    generator.singleThread = true;
    Canvas<Rgba8> map(6, 4);
    map.texture.x.offset = -2;
    map.texture.y.offset = 3;
    generator.process(&map.texture);
    EXPECT_TRUE(generator.windowed);
    expectLoop(generator.loops[0], 3, 7, -2, 4);
}

TEST(ImagerWindow, AWindowIsHeldToTheMap) {
    LoopNoter generator;
    generator.singleThread = true;
    Canvas<Rgba8> map(6, 4);
    generator.setWindow(2, -7, 50, 2);
    EXPECT_TRUE(generator.windowed);
    EXPECT_TRUE(generator.clipPending);
    generator.process(&map.texture);
    expectLoop(generator.loops[0], 0, 3, 2, 6);
    EXPECT_FALSE(generator.clipPending);
}

TEST(ImagerWindow, AWindowOverTheWholeMapIsNoWindow) {
    LoopNoter generator;
    generator.singleThread = true;
    Canvas<Rgba8> map(6, 4);
    generator.setWindow(-1, -1, 6, 4);
    generator.process(&map.texture);
    EXPECT_FALSE(generator.windowed);
}

TEST(ImagerWindow, OneOutsideTheMapBecomesARowOrColumnAtItsEdge) {
    LoopNoter generator;
    generator.singleThread = true;
    Canvas<Rgba8> map(6, 4);
    generator.setWindow(20, -9, 30, -5);
    generator.process(&map.texture);
    expectLoop(generator.loops[0], 0, 1, 5, 6);
}

TEST(ImagerWindow, CopyWindowTakesTheStoredEnds) {
    LoopNoter first, second;
    first.setWindow(1, 2, 3, 4);
    second.copyWindow(first);
    EXPECT_EQ(second.x0, 1);
    EXPECT_EQ(second.y0, 2);
    EXPECT_EQ(second.x1, 4);
    EXPECT_EQ(second.y1, 5);
    EXPECT_TRUE(second.windowed);
    EXPECT_TRUE(second.clipPending);
}

TEST(ImagerWindow, OneSetByStartIsClippedBeforeTheWork) {
    struct Late : LoopNoter {
        void start(Frame*) override { setWindow(-5, 2, 100, 100); }
    } generator;
    const Workers workers(2);
    Canvas<Rgba8> map(6, 4);
    generator.process(&map.texture);
    // The late clip lets an end reach offset + size.
    expectLoop(generator.loops[0], 2, 3, 0, 6);
    expectLoop(generator.loops[1], 3, 4, 0, 6);
}

TEST(ImagerRows, TenRowsOnFourWorkers) {
    const Workers workers(4);
    LoopNoter generator;
    Canvas<Rgba8> map(2, 10);
    generator.process(&map.texture);
    expectLoop(generator.loops[0], 0, 3, 0, 2);
    expectLoop(generator.loops[1], 3, 6, 0, 2);
    expectLoop(generator.loops[2], 6, 9, 0, 2);
    expectLoop(generator.loops[3], 9, 10, 0, 2);
}

TEST(ImagerRows, SingleThreadTakesAllRowsOnTheCaller) {
    const Workers workers(4);
    LoopNoter generator;
    generator.singleThread = true;
    Canvas<Rgba8> map(2, 10);
    generator.process(&map.texture);
    expectLoop(generator.loops[0], 0, 10, 0, 2);
    EXPECT_EQ(generator.loops[1].first, -99);
}

TEST(ImagerFields, StartsAndSteps) {
    EXPECT_EQ(fieldStart(0, 7), 7);
    EXPECT_EQ(fieldStart(1, 6), 6);
    EXPECT_EQ(fieldStart(1, 7), 8);
    EXPECT_EQ(fieldStart(2, 6), 7);
    EXPECT_EQ(fieldStart(2, 7), 7);
    // Below 0: even rows at or above, odd rows by a division that truncates towards 0.
    EXPECT_EQ(fieldStart(1, -3), -2);
    EXPECT_EQ(fieldStart(1, -2), -2);
    EXPECT_EQ(fieldStart(2, -4), -3);
    EXPECT_EQ(fieldStart(2, -3), -1);
    EXPECT_EQ(fieldStep(0), 1);
    EXPECT_EQ(fieldStep(1), 2);
    EXPECT_EQ(fieldStep(2), 2);
}

TEST(ImagerFields, TwoRowsFromRowFiveOnTwoWorkersGiveTheEvenRowToTheSecond) {
    const Workers workers(2);
    LoopNoter generator;
    generator.setFieldMode(1);
    generator.setWindow(0, 5, 3, 6);
    Canvas<Rgba8> map(4, 10);
    generator.process(&map.texture);
    EXPECT_EQ(generator.loops[0].first, 6);
    EXPECT_EQ(generator.loops[0].end, 6);
    EXPECT_EQ(generator.loops[1].first, 6);
    EXPECT_EQ(generator.loops[1].end, 7);
}

std::vector<std::int32_t> rowsOf(const RowLoop& loop, InterruptionRecord* record,
                                 std::int32_t stopAfter) {
    std::vector<std::int32_t> rows;
    forEachRow(loop, record, [&](std::int32_t y) {
        rows.push_back(y);
        if (y == stopAfter) record->interrupted = 1;
    });
    return rows;
}

TEST(ImagerRows, AStopIsHeededAfterTheRow) {
    InterruptionRecord record;
    EXPECT_THAT(rowsOf({3, 9, 2, 0, 4}, &record, -1), ElementsAre(3, 5, 7));
    EXPECT_THAT(rowsOf({3, 9, 2, 0, 4}, &record, 5), ElementsAre(3, 5));
    EXPECT_THAT(rowsOf({0, 5, 1, 4, 4}, nullptr, -1), ElementsAre());
}

TEST(ImagerRun, WorkersStopAtTheirNextRow) {
    struct Stopper : Generator<Frame> {
        void work(Frame*) override {
            forEachRow(rowLoop(), interrupt, [this](std::int32_t) {
                ++rows;
                interrupt->interrupted = 1;
            });
        }
        std::atomic<int> rows{0};
    } generator;
    const Workers workers(3);
    InterruptionRecord record;
    generator.interrupt = &record;
    Canvas<Rgba8> map(2, 300);
    generator.process(&map.texture);
    EXPECT_GE(generator.rows, 1);
    EXPECT_LE(generator.rows, 3) << "each worker ends after the row in hand";
}

}  // namespace
}  // namespace ruvex
