// What the television does when it is stopped, when memory runs out, and when its pictures do not
// match.

#include "stages/ruvex_sampler.h"

#include <atomic>
#include <gtest/gtest.h>

#include "tests/imaging/support/workers.h"
#include "tests/stages/support/television.h"

namespace ruvex::test {
namespace {

template <class P>
class Sampler : public testing::Test {};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(Sampler, FramePixels);

TYPED_TEST(Sampler, AStoppedFrameWritesNothing) {
    Television<TypeParam> set(30, 20);
    makeFaulty(set.signal);
    set.record.interrupted = 1;
    const auto before = set.target.memory;
    set.run();
    EXPECT_EQ(firstDifference(set.target.memory, before), "");
}

// Passes are counted by what watches a render.
TYPED_TEST(Sampler, ThereAreFourPassesAndAFifthForTheWhiteDot) {
    Television<TypeParam> set(30, 20);
    makeFaulty(set.signal);
    EXPECT_EQ(set.run().sampler->passes, 4);
    set.signal.whiteDot = 0.3f;
    EXPECT_EQ(set.run().sampler->passes, 5);
}

TYPED_TEST(Sampler, AFrameMayBeStoppedAtAnyPoll) {
    static std::atomic<int> left;
    for (const int workers : {1, 4}) {
        Workers fixed(workers);
        for (int polls = 0; polls < 700; polls += 7) {
            Television<TypeParam> set(30, 20);
            makeFaulty(set.signal);
            set.signal.whiteDot = polls % 2 ? 0.3f : 0.0f;
            left = polls;
            set.record.callback = [](void*, std::atomic<std::uint32_t>*) -> std::uint32_t {
                return left-- <= 0;
            };
            const auto before = set.target.memory;
            set.run();
            EXPECT_EQ(set.record.interrupted != 0, left < 0) << polls;
            EXPECT_EQ(differenceAround(set.target, before), "") << polls;
        }
    }
}

TYPED_TEST(Sampler, WithoutThreadsItIsOneWorker) {
    for (const int playState : {0, 1, 2}) {
        for (const float dot : {0.0f, 0.02f}) {
            for (const int shash : {0, 1, 2, 3, 4}) {
                Television<TypeParam> set(50, 60);
                makeFaulty(set.signal);
                set.signal.verticalOffset = 10;  // the border's noise shows
                set.signal.playState = PlayState{playState};
                set.signal.whiteDot = dot;
                set.signal.shashType = ShashType{shash};
                const auto before = set.target.memory;
                const auto picture = [&](int workers, bool useThreads) {
                    Workers fixed(workers);
                    set.target.memory = before;
                    set.useThreads = useThreads;
                    set.run();
                    return set.target.memory;
                };
                const auto wanted = picture(1, true);
                EXPECT_EQ(firstDifference(picture(5, false), wanted), "")
                    << playState << ' ' << dot << ' ' << shash;
                EXPECT_NE(firstDifference(picture(5, true), wanted), "") << "workers must show";
            }
        }
    }
}

TYPED_TEST(Sampler, WhetherItUsesThreadsIsAsItWas) {
    for (const bool useThreads : {false, true}) {
        Television<TypeParam> set(30, 20);
        makeFaulty(set.signal);
        set.useThreads = useThreads;
        EXPECT_EQ(set.run().sampler->useThreads, useThreads) << "after a frame";

        static std::atomic<int> left;
        set.record.callback = [](void*, std::atomic<std::uint32_t>*) -> std::uint32_t {
            return left-- <= 0;
        };
        for (int polls = 0; polls < 300; polls += 10) {
            left = polls;
            set.record.interrupted = 0;
            EXPECT_EQ(set.run().sampler->useThreads, useThreads) << "stopped at poll " << polls;
        }
        set.record.reset(nullptr, nullptr);
        set.signal.width = set.signal.height = 1e9f;
        EXPECT_EQ(set.run().sampler->useThreads, useThreads) << "for want of memory";
        EXPECT_EQ(set.record.interrupted, 1);
    }
}

TYPED_TEST(Sampler, WithoutMemoryForItsMarginsTheFrameStops) {
    Television<TypeParam> set(30, 20);
    set.signal.width = 1e9f;
    set.signal.height = 1e9f;
    set.signal.verticalOffset = 1;
    const auto before = set.target.memory;
    set.run();
    EXPECT_EQ(set.record.interrupted, 1);
    EXPECT_EQ(set.record.progress, 1000u);
    EXPECT_EQ(firstDifference(set.target.memory, before), "");
}

TYPED_TEST(Sampler, NothingOfItsBuffersOutlivesTheFrame) {
    Television<TypeParam> set(30, 20);
    makeFaulty(set.signal);
    set.run();
    EXPECT_EQ(set.sampler->paddedSource.data, nullptr);
    EXPECT_EQ(set.sampler->workTexture.data, nullptr);
}

TYPED_TEST(Sampler, PicturesOfDifferentSizesAreDefined) {
    const std::pair<int, int> sizes[] = {{1, 1}, {5, 40}, {60, 3}, {64, 48}};
    for (const auto& [sourceWidth, sourceHeight] : sizes) {
        for (const auto& [width, height] : sizes) {
            for (const bool dot : {false, true}) {
                Television<TypeParam> set(width, height);
                Canvas<TypeParam> source(sourceWidth, sourceHeight);
                makeFaulty(set.signal);
                set.signal.whiteDot = dot ? 0.2f : 0.0f;
                const auto render = [&] {
                    RuvexSampler<TypeParam> sampler;
                    sampler.signal = set.signal;
                    sampler.interrupt = &set.record;
                    sampler.process(source.texture, set.target.texture);
                    return set.target.memory;
                };
                const auto once = render();
                EXPECT_EQ(firstDifference(render(), once), "");
            }
        }
    }
}

TYPED_TEST(Sampler, AnOutputThatLiesElsewhereShowsTheSamePicture) {
    for (const int workers : {1, 4}) {
        Workers fixed(workers);
        Television<TypeParam> here(30, 20);
        Television<TypeParam> there(30, 20);
        makeFaulty(here.signal);
        there.signal = here.signal;
        there.target.texture.setOrigin(7, -5);
        EXPECT_EQ(firstDifference(there.run().target.memory, here.run().target.memory), "");
    }
}

TYPED_TEST(Sampler, ASourceWithoutPixelsIsABlankSignal) {
    Television<TypeParam> set(64, 48);
    VxTexture<TypeParam> nothing;
    RuvexSampler<TypeParam> sampler;
    sampler.signal = set.signal;
    sampler.interrupt = &set.record;
    sampler.process(nothing, set.target.texture);
    EXPECT_EQ(set.record.interrupted, 0);
}

}  // namespace
}  // namespace ruvex::test
