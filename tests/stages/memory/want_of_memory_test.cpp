// Running out of memory at each allocation of a frame: the frame stops and says so, nothing beside
// the picture is touched, and the next frame is right.

#include <functional>
#include <gtest/gtest.h>

#include "tests/imaging/support/workers.h"
#include "tests/stages/support/television.h"
#include "tests/support/watched_new.h"

namespace ruvex::test {
namespace {

using Change = std::function<void(SignalParameters&)>;

// All faults, and what takes memory of its own besides.
const std::pair<const char*, Change> kLooks[] = {
    {"winding, streaks", [](SignalParameters&) {}},
    {"white dot", [](SignalParameters& s) { s.whiteDot = 0.3f; }},
    {"slow play, points",
     [](SignalParameters& s) {
         s.playState = PlayState::Slow;
         s.shashType = ShashType::Grain;
     }},
    {"bars alone",
     [](SignalParameters& s) {
         s.shashType = ShashType::Bars;
         s.shashAmountMax = s.breakup = 1.0f;
     }},
    {"dashes", [](SignalParameters& s) { s.shashType = ShashType::Dashes; }},
    {"black and white, no ghosts",
     [](SignalParameters& s) {
         s.tvType = TvType::BlackAndWhite;
         s.numGhosts = 0;
     }},
    {"tint", [](SignalParameters& s) { s.tvType = TvType::Tint; }},
    {"guns apart", [](SignalParameters& s) { s.gunRedX = 5.0f; }},
};

template <class P>
class WantOfMemory : public testing::Test {
protected:
    /// Runs each look, and a window of it, over and over as run(set, number) does, which denies the
    /// allocation of that number and says whether there was one, until there is none.
    template <class Run>
    static void denyEach(Run run) {
        for (const auto& [name, change] : kLooks) {
            for (const bool part : {false, true}) {
                SCOPED_TRACE(testing::Message() << name << (part ? ", a part" : ""));
                Television<P> set(30, 40);
                makeFaulty(set.signal);
                change(set.signal);
                if (part) set.window = Window{3, 4, 20, 33};
                denyEachOf(set, run);
            }
        }
    }

private:
    template <class Run>
    static void denyEachOf(Television<P>& set, Run run) {
        const std::vector<P> before = set.target.memory;
        const std::vector<P> wanted = set.run().target.memory;
        std::size_t number = 1;
        for (;; ++number) {
            set.target.memory = before;
            if (!run(set, number)) break;
            EXPECT_EQ(set.record.interrupted, 1) << "allocation " << number;
            EXPECT_EQ(set.record.progress, kOutOfMemoryCode) << "allocation " << number;
            EXPECT_EQ(differenceAround(set.target, before), "") << "allocation " << number;
            set.record.reset(nullptr, nullptr);
            set.target.memory = before;
            set.run();
            ASSERT_EQ(firstDifference(set.target.memory, wanted), "") << "after " << number;
        }
        EXPECT_EQ(set.record.interrupted, 0);
        EXPECT_EQ(firstDifference(set.target.memory, wanted), "");
        EXPECT_GT(number, 2u) << "a frame takes memory";
    }
};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(WantOfMemory, FramePixels);

TYPED_TEST(WantOfMemory, OnTheOneWorker) {
    Workers one(1);
    this->denyEach([](Television<TypeParam>& set, std::size_t number) {
        const FailingNew memory(number);
        set.run();
        return memory.failed();
    });
}

TYPED_TEST(WantOfMemory, OnTheOtherOfTwoWorkers) {
    Workers two(2);
    this->denyEach([](Television<TypeParam>& set, std::size_t number) {
        const FailingElsewhere memory(number);
        set.run();
        return memory.allocations() >= number;
    });
}

}  // namespace
}  // namespace ruvex::test
