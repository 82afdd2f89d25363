#include "imaging/img_proc.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "imaging/texture.h"
#include "imaging/window_stack.h"
#include "tests/imaging/support/canvas.h"
#include "tests/imaging/support/workers.h"

namespace ruvex {
namespace {

using test::Canvas;
using test::Workers;
using testing::ElementsAre;

using Frame = VxTexture<Rgba8>;

VxTexIndexer mapOf(std::int32_t width, std::int32_t height, std::int32_t offsetX = 0,
                   std::int32_t offsetY = 0) {
    VxTexIndexer map;
    map.x.setSize(width);
    map.y.setSize(height);
    map.x.offset = offsetX;
    map.y.offset = offsetY;
    return map;
}

// Writes down its steps; stops the render at a chosen step.
template <class Base>
class Recorder : public Base {
public:
    void pre() override { step("pre"); }
    void run() override { step("run"); }
    void post() override { step("post"); }
    void prePass() override { step("prePass"); }
    void postPass() override { step("postPass"); }

    std::vector<std::string> steps;
    std::string stopAt;
    InterruptionRecord record;

private:
    void step(const std::string& name) {
        steps.push_back(name + std::to_string(this->pass));
        if (steps.back() == stopAt) record.interrupted = 1;
    }
};

std::vector<std::string> stepsOf(std::int32_t passes, const std::string& stopAt = {},
                                 bool useThreads = false) {
    const Workers workers(1);
    Recorder<VxImgProc> proc;
    proc.setPasses(passes);
    proc.useThreads = useThreads;
    proc.interrupt = &proc.record;
    proc.stopAt = stopAt;
    VxTexIndexer map = mapOf(4, 4);
    proc.process(&map);
    EXPECT_EQ(proc.map, nullptr) << "outside a run";
    return proc.steps;
}

void expectWindow(const VxImgProc& proc, std::int32_t x0, std::int32_t y0, std::int32_t x1,
                  std::int32_t y1) {
    EXPECT_EQ(proc.x0, x0);
    EXPECT_EQ(proc.y0, y0);
    EXPECT_EQ(proc.x1, x1);
    EXPECT_EQ(proc.y1, y1);
}

TEST(ImgProcRun, StepsComeInOrder) {
    const std::vector<std::string> wanted{"pre0",     "prePass0", "run0",      "postPass0",
                                          "prePass1", "run1",     "postPass1", "post2"};
    EXPECT_EQ(stepsOf(2), wanted);
    EXPECT_EQ(stepsOf(2, "", true), wanted);
}

TEST(ImgProcRun, WithoutPassesOnlyPreAndPostAreCalled) {
    EXPECT_THAT(stepsOf(0), ElementsAre("pre0", "post0"));
    EXPECT_THAT(stepsOf(-3), ElementsAre("pre0", "post0"));
}

TEST(ImgProcRun, ANullMapIsSilent) {
    Recorder<VxImgProc> proc;
    testing::internal::CaptureStderr();
    proc.process(nullptr);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_TRUE(proc.steps.empty());
}

TEST(ImgProcRun, AStopBeforeAPassSkipsItsPrePassAndItsWork) {
    EXPECT_THAT(stepsOf(2, "pre0"), ElementsAre("pre0", "post2"));
    EXPECT_THAT(stepsOf(2, "postPass0"),
                ElementsAre("pre0", "prePass0", "run0", "postPass0", "post2"));
}

TEST(ImgProcRun, AStopInPrePassSkipsTheWorkAndPostPassButNotPost) {
    EXPECT_THAT(stepsOf(2, "prePass0"), ElementsAre("pre0", "prePass0", "post2"));
    EXPECT_THAT(stepsOf(2, "prePass1"),
                ElementsAre("pre0", "prePass0", "run0", "postPass0", "prePass1", "post2"));
}

TEST(ImgProcRun, AStopDuringTheWorkStillEndsThatPass) {
    EXPECT_THAT(stepsOf(2, "run0"), ElementsAre("pre0", "prePass0", "run0", "postPass0", "post2"));
}

TEST(ImgProcRun, TheMapIsKnownDuringARun) {
    struct Proc : VxImgProc {
        void run() override { seen = map; }
        const VxTexIndexer* seen = nullptr;
    } proc;
    VxTexIndexer map = mapOf(7, 3);
    proc.useThreads = false;
    proc.process(&map);
    EXPECT_EQ(proc.seen, &map);
    EXPECT_EQ(proc.mapWidth, 7);
    EXPECT_EQ(proc.mapHeight, 3);
}

TEST(ImgProcWindow, WithoutOneItIsTheWholeMapInImageSpace) {
    VxImgProc proc;
    VxTexIndexer map = mapOf(10, 5, -3, 20);
    proc.process(&map);
    expectWindow(proc, -3, 20, 7, 25);
    EXPECT_TRUE(proc.windowSet);
}

TEST(ImgProcWindow, CornersAreInclusive) {
    VxImgProc proc;
    proc.setWindow(1, 2, 3, 4);
    expectWindow(proc, 1, 2, 4, 5);
    std::int32_t left, top, right, bottom;
    proc.getWindow(left, top, right, bottom);
    EXPECT_EQ(left, 1);
    EXPECT_EQ(top, 2);
    EXPECT_EQ(right, 3);
    EXPECT_EQ(bottom, 4);
    VxImgProc other;
    other.copyWindow(proc);
    expectWindow(other, 1, 2, 4, 5);
    EXPECT_TRUE(other.windowSet);
}

TEST(ImgProcWindow, ASecondRunKeepsTheClippedWindowOfTheFirst) {
    VxImgProc proc;
    VxTexIndexer small = mapOf(4, 4), large = mapOf(9, 9);
    proc.process(&small);
    proc.process(&large);
    expectWindow(proc, 0, 0, 4, 4);
    proc.setWindow(0, 0, 20, 20);
    proc.process(&large);
    expectWindow(proc, 0, 0, 9, 9);
}

TEST(ImgProcWindow, OneOutsideTheMapBecomesASingleRowAndColumnAtItsEdge) {
    VxImgProc proc;
    VxTexIndexer map = mapOf(10, 10);
    proc.setWindow(20, -9, 30, -5);
    proc.process(&map);
    expectWindow(proc, 9, 0, 10, 1);
}

TEST(ImgProcWindow, ClippingNeedsAWindow) {
    VxImgProc proc;
    proc.clipWindow(3, 3, 8, 8);
    expectWindow(proc, 0, 0, 0, 0);
}

TEST(ImgProcKeepWindow, AWindowInsideStays) {
    VxImgProc proc;
    proc.keepWindow = true;
    proc.setWindow(2, 3, 5, 6);
    proc.clipWindow(0, 0, 9, 9);
    expectWindow(proc, 2, 3, 6, 7);
}

TEST(ImgProcKeepWindow, AnAxisThatSticksOutIsReplacedWholeWithItsEndOneLess) {
    VxImgProc proc;
    proc.keepWindow = true;
    proc.setWindow(-1, 3, 5, 6);
    proc.clipWindow(0, 0, 9, 9);
    expectWindow(proc, 0, 3, 9, 7);
    proc.setWindow(2, 3, 5, 10);
    proc.clipWindow(0, 0, 9, 9);
    expectWindow(proc, 2, 0, 6, 9);
    // The whole Map counts as sticking out too: its end is one past the last column.
    proc.setWindow(0, 0, 9, 9);
    proc.clipWindow(0, 0, 9, 9);
    expectWindow(proc, 0, 0, 9, 9);
}

// Notes the rows that each worker gets.
struct RowNoter : VxImgProc {
    void run() override { rows.at(static_cast<std::size_t>(workerIndex())) = rowRange(); }
    std::vector<Span> rows = std::vector<Span>(16, Span{-99, -99});
};

TEST(ImgProcRows, TenRowsOnFourWorkers) {
    const Workers workers(4);
    RowNoter proc;
    VxTexIndexer map = mapOf(3, 10);
    proc.process(&map);
    const std::vector<std::pair<int, int>> wanted{{0, 3}, {3, 6}, {6, 9}, {9, 10}};
    for (std::size_t t = 0; t < 4; ++t) {
        EXPECT_EQ(proc.rows[t].first, wanted[t].first);
        EXPECT_EQ(proc.rows[t].end, wanted[t].second);
    }
}

TEST(ImgProcRows, OneRowOnFourWorkersIsTheFirstWorkersAndEmptyForOthers) {
    const Workers workers(4);
    RowNoter proc;
    VxTexIndexer map = mapOf(3, 1);
    proc.process(&map);
    EXPECT_EQ(proc.rows[0].first, 0);
    EXPECT_EQ(proc.rows[0].end, 1);
    for (std::size_t t = 1; t < 4; ++t) EXPECT_GE(proc.rows[t].first, proc.rows[t].end);
}

TEST(ImgProcRows, SharesAreOfTheWindowInImageSpace) {
    const Workers workers(2);
    RowNoter proc;
    VxTexIndexer map = mapOf(3, 20, 0, -10);
    proc.setWindow(0, -5, 2, -1);
    proc.process(&map);
    EXPECT_EQ(proc.rows[0].first, -5);
    EXPECT_EQ(proc.rows[0].end, -2);
    EXPECT_EQ(proc.rows[1].first, -2);
    EXPECT_EQ(proc.rows[1].end, 0);
}

TEST(ImgProcRows, OutsideAThreadedPassTheShareIsTheWholeWindow) {
    const Workers workers(4);
    VxImgProc idle;
    idle.setWindow(1, 2, 3, 9);
    EXPECT_EQ(idle.rowRange().first, 2);
    EXPECT_EQ(idle.rowRange().end, 10);
    EXPECT_EQ(idle.columnRange().first, 1);
    EXPECT_EQ(idle.columnRange().end, 4);

    RowNoter unthreaded;
    unthreaded.useThreads = false;
    VxTexIndexer map = mapOf(3, 10);
    unthreaded.process(&map);
    EXPECT_EQ(unthreaded.rows[0].end, 10);
    EXPECT_EQ(unthreaded.rows[1].first, -99) << "no second worker";
}

TEST(ImgProcRows, AWindowNarrowedBeyondItsOtherEndIsNothingToDo) {
    struct Narrowed : RowNoter {
        void prePass() override { setWindow(0, 10, 5, INT32_MIN); }
    } proc;
    const Workers workers(3);
    VxTexIndexer map = mapOf(6, 20);
    proc.process(&map);
    for (std::size_t t = 0; t < 3; ++t) EXPECT_GE(proc.rows[t].first, proc.rows[t].end);
}

TEST(ImgProcWindow, ExtentsAtTheEndsOf32BitsAreDefined) {
    VxImgProc proc;
    proc.useThreads = false;
    VxTexIndexer high = mapOf(10, 10, INT32_MAX - 3, INT32_MIN);
    proc.process(&high);
    EXPECT_EQ(proc.x0, INT32_MAX - 3);
    EXPECT_EQ(proc.y0, INT32_MIN);
    EXPECT_EQ(proc.y1, INT32_MIN + 10);
}

using Recorder1 = Recorder<VxImgProc1<Frame>>;
using Recorder2 = Recorder<VxImgProc2<Frame, Frame>>;

TEST(ImgProc1, KnowsItsTargetDuringARun) {
    struct Proc : VxImgProc1<Frame> {
        void run() override { seen = target; }
        Frame* seen = nullptr;
    } proc;
    proc.useThreads = false;
    Canvas<Rgba8> canvas(4, 4);
    proc.process(canvas.texture);
    EXPECT_EQ(proc.seen, &canvas.texture);
    EXPECT_EQ(proc.target, nullptr);
}

TEST(ImgProc2, KnowsSourceAndTargetDuringARun) {
    struct Proc : VxImgProc2<Frame, Frame> {
        void run() override { seen = {source, target}; }
        std::pair<Frame*, Frame*> seen;
    } proc;
    proc.useThreads = false;
    Canvas<Rgba8> from(4, 4), onto(4, 4);
    proc.process(from.texture, onto.texture);
    EXPECT_EQ(proc.seen, std::pair(&from.texture, &onto.texture));
    EXPECT_EQ(proc.source, nullptr);
    EXPECT_EQ(proc.target, nullptr);
}

TEST(ImgProc2, RunsThroughTheOverridableProcess) {
    struct Proc : Recorder2 {
        using Recorder2::process;
        void process(VxTexIndexer* onto) override {
            steps.push_back("process");
            VxImgProc::process(onto);
        }
    } proc;
    proc.useThreads = false;
    Canvas<Rgba8> from(4, 4), onto(4, 4);
    proc.process(from.texture, onto.texture);
    ASSERT_FALSE(proc.steps.empty());
    EXPECT_EQ(proc.steps.front(), "process");
}

TEST(ImgProc1, AMapThatCannotBeWrittenIsNamedAndLeftAlone) {
    constexpr const char* kBogus = "Map passed into Generator::process is bogus\n";
    Recorder1 one;
    Recorder2 two;
    Frame empty;
    Canvas<Rgba8> from(4, 4), unbacked(4, 4);
    unbacked.texture.data = nullptr;
    for (Frame* map : {&empty, &unbacked.texture}) {
        testing::internal::CaptureStderr();
        one.process(*map);
        EXPECT_EQ(testing::internal::GetCapturedStderr(), kBogus);
        testing::internal::CaptureStderr();
        two.process(from.texture, *map);
        EXPECT_EQ(testing::internal::GetCapturedStderr(), kBogus);
    }
    EXPECT_TRUE(one.steps.empty());
    EXPECT_TRUE(two.steps.empty());
}

TEST(ImgProc1, ANullMapIsSilent) {
    Recorder1 one;
    Recorder2 two;
    Canvas<Rgba8> from(4, 4);
    testing::internal::CaptureStderr();
    one.process(static_cast<Frame*>(nullptr));
    two.process(&from.texture, nullptr);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_TRUE(one.steps.empty());
    EXPECT_TRUE(two.steps.empty());
}

TEST(WindowStack, RestoresWindowsInReverse) {
    VxImgProc proc;
    VxIPWindowStack stack(&proc);
    proc.setWindow(1, 2, 3, 4);
    ASSERT_TRUE(stack.pushAndSet(5, 6, 7, 8));
    expectWindow(proc, 5, 6, 8, 9);
    ASSERT_TRUE(stack.push());
    proc.setWindow(0, 0, 0, 0);
    ASSERT_TRUE(stack.pop());
    expectWindow(proc, 5, 6, 8, 9);
    ASSERT_TRUE(stack.pop());
    expectWindow(proc, 1, 2, 4, 5);
}

TEST(WindowStack, TheEleventhPushAndAPopTooManyAreRefused) {
    VxImgProc proc;
    VxIPWindowStack stack(&proc);
    proc.setWindow(1, 2, 3, 4);
    EXPECT_FALSE(stack.pop());
    expectWindow(proc, 1, 2, 4, 5);
    for (std::int32_t i = 0; i < 10; ++i) EXPECT_TRUE(stack.pushAndSet(i, i, i, i));
    EXPECT_FALSE(stack.push());
    EXPECT_FALSE(stack.pushAndSet(50, 50, 50, 50));
    expectWindow(proc, 9, 9, 10, 10);
    for (std::int32_t i = 0; i < 10; ++i) EXPECT_TRUE(stack.pop());
    expectWindow(proc, 1, 2, 4, 5);
    EXPECT_FALSE(stack.pop());
}

}  // namespace
}  // namespace ruvex
