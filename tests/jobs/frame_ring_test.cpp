#include "jobs/frame_ring.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <thread>

namespace ruvex::jobs {
namespace {

/// Numbers 0 to `count` - 1 through a ring, with uneven work at the middle step; as they come out.
std::vector<std::int64_t> goRound(int slots, int jobs, int count) {
    FrameRing ring(slots);
    std::vector<std::int64_t> out;
    std::vector<std::jthread> threads;
    threads.emplace_back([&] {
        for (int k = 0; k < count; ++k) {
            FrameSlot* slot = ring.take(Step::Read);
            slot->number = k;
            ring.pass(*slot);
        }
        ring.end();
    });
    for (int job = 0; job < jobs; ++job) {
        threads.emplace_back([&, job] {
            std::mt19937 random(static_cast<unsigned>(job));
            while (FrameSlot* slot = ring.take(Step::Render)) {
                std::this_thread::sleep_for(std::chrono::microseconds(random() % 100));
                slot->number *= 2;
                ring.pass(*slot);
            }
        });
    }
    while (FrameSlot* slot = ring.take(Step::Write)) {
        out.push_back(slot->number);
        ring.pass(*slot);
    }
    return out;
}

TEST(FrameRing, GivesEachFrameOnceAndInOrder) {
    for (const int slots : {1, 2, 3, 7}) {
        for (const int jobs : {1, 2, 5}) {
            const auto out = goRound(slots, jobs, 200);
            ASSERT_EQ(out.size(), 200u) << slots << ' ' << jobs;
            for (std::size_t k = 0; k < out.size(); ++k) {
                ASSERT_EQ(out[k], static_cast<std::int64_t>(2 * k)) << slots << ' ' << jobs;
            }
        }
    }
}

TEST(FrameRing, OfNoFramesNothingIsTaken) {
    EXPECT_TRUE(goRound(3, 2, 0).empty());
}

TEST(FrameRing, HoldsNoMoreFramesThanItHasSlots) {
    FrameRing ring(2);
    EXPECT_NE(ring.take(Step::Read), nullptr);
    EXPECT_NE(ring.take(Step::Read), nullptr);
    FrameSlot* third = nullptr;
    std::jthread reader([&] { third = ring.take(Step::Read); });
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_EQ(third, nullptr);
    ring.close();
}

TEST(FrameRing, ClosedItLetsEveryoneGo) {
    FrameRing ring(2);
    std::vector<std::jthread> waiting;
    std::atomic<int> gone = 0;
    for (const Step step : {Step::Render, Step::Write}) {
        waiting.emplace_back([&, step] { gone += ring.take(step) == nullptr ? 1 : 0; });
    }
    ring.close();
    waiting.clear();
    EXPECT_EQ(gone, 2);
    EXPECT_EQ(ring.take(Step::Read), nullptr);
}

}  // namespace
}  // namespace ruvex::jobs
