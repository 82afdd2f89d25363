#include "jobs/frame_ring.h"

#include <algorithm>
#include <future>
#include <gtest/gtest.h>
#include <random>
#include <thread>

namespace ruvex::jobs {
namespace {

constexpr media::FrameSize kRingSize{6, 4};

std::byte mark(std::int64_t number) {
    return static_cast<std::byte>(number);
}

void fill(media::Frame& frame, std::int64_t number) {
    media::makeRoom(frame, kRingSize, media::Depth::Bits8);
    std::ranges::fill(frame.bytes(), mark(number));
}

bool holds(const media::Frame& frame, std::int64_t number) {
    return frame.size() == kRingSize && std::ranges::count(frame.bytes(), mark(number)) ==
                                            static_cast<std::ptrdiff_t>(frame.bytes().size());
}

/// Numbers 0 to `count` - 1 through a ring, with uneven work at the middle step; as they come out.
std::vector<std::int64_t> goRound(int rendering, int jobs, int count, bool endKnown = true) {
    FrameRing ring(rendering);
    std::vector<std::int64_t> out;
    std::vector<std::jthread> threads;
    threads.emplace_back([&] {
        for (int k = 0; k < count; ++k) {
            FrameSlot* slot = ring.take(Step::Read);
            slot->number = k;
            fill(*slot->source, k);
            ring.pass(*slot);
        }
        ring.end(endKnown ? nullptr : ring.take(Step::Read));
    });
    for (int job = 0; job < jobs; ++job) {
        threads.emplace_back([&, job] {
            std::mt19937 random(static_cast<unsigned>(job));
            while (FrameSlot* slot = ring.take(Step::Render)) {
                std::this_thread::sleep_for(std::chrono::microseconds(random() % 100));
                EXPECT_TRUE(holds(*slot->source, slot->number));
                slot->number *= 2;
                fill(*slot->result, slot->number);
                ring.pass(*slot);
            }
        });
    }
    while (FrameSlot* slot = ring.take(Step::Write)) {
        EXPECT_TRUE(holds(*slot->result, slot->number));
        out.push_back(slot->number);
        ring.pass(*slot);
    }
    EXPECT_TRUE(ring.ended());
    return out;
}

TEST(FrameRing, GivesEachFrameOnceAndInOrder) {
    for (const int rendering : {1, 2, 3, 7}) {
        for (const int jobs : {1, 2, 5}) {
            const auto out = goRound(rendering, jobs, 200, jobs == 2);
            ASSERT_EQ(out.size(), 200u) << rendering << ' ' << jobs;
            for (std::size_t k = 0; k < out.size(); ++k) {
                ASSERT_EQ(out[k], static_cast<std::int64_t>(2 * k)) << rendering << ' ' << jobs;
            }
        }
    }
}

TEST(FrameRing, OfNoFramesNothingIsTaken) {
    EXPECT_TRUE(goRound(3, 2, 0).empty());
    EXPECT_TRUE(goRound(3, 2, 0, false).empty());
}

/// What take() gives within a moment; null if it waits.
FrameSlot* takeAtOnce(FrameRing& ring, Step step) {
    std::promise<FrameSlot*> taken;
    std::thread taking([&] { taken.set_value(ring.take(step)); });
    auto future = taken.get_future();
    const bool came = future.wait_for(std::chrono::milliseconds(20)) == std::future_status::ready;
    if (!came) ring.close();
    taking.join();
    return came ? future.get() : nullptr;
}

TEST(FrameRing, ReadsAheadOneFrameBesideThoseThatAreRendered) {
    FrameRing ring(1);
    for (int k = 0; k < 3; ++k) ring.pass(*ring.take(Step::Read));
    ASSERT_NE(takeAtOnce(ring, Step::Render), nullptr);
    EXPECT_EQ(takeAtOnce(ring, Step::Read), nullptr) << "three sources are in use";
}

TEST(FrameRing, ASourceIsFreeOnceItIsRendered) {
    FrameRing ring(1);
    for (int k = 0; k < 3; ++k) ring.pass(*ring.take(Step::Read));
    FrameSlot* rendered = ring.take(Step::Render);
    const media::Frame* const source = rendered->source;
    ring.pass(*rendered);
    FrameSlot* const next = takeAtOnce(ring, Step::Read);
    ASSERT_NE(next, nullptr);
    EXPECT_EQ(next->source, source);
}

TEST(FrameRing, RenderingWaitsUntilResultsAreWritten) {
    FrameRing ring(1);
    for (int k = 0; k < 3; ++k) {
        ring.pass(*ring.take(Step::Read));
        ring.pass(*ring.take(Step::Render));
    }
    ring.pass(*ring.take(Step::Read));
    FrameSlot* const first = ring.take(Step::Write);
    const media::Frame* const result = first->result;
    ring.pass(*first);
    FrameSlot* const fourth = takeAtOnce(ring, Step::Render);
    ASSERT_NE(fourth, nullptr);
    EXPECT_EQ(fourth->result, result);
    ring.pass(*fourth);
    ring.pass(*ring.take(Step::Read));
    ring.take(Step::Write);
    EXPECT_EQ(takeAtOnce(ring, Step::Render), nullptr) << "the result is still being written";
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
