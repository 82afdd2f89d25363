// What the television does when it is stopped, when memory runs out, and when its pictures do not
// match.

#include "stages/ruvex_sampler.h"

#include <gtest/gtest.h>

#include "tests/imaging/support/workers.h"
#include "tests/stages/support/television.h"

namespace ruvex::test {
namespace {

template <class P>
class Sampler : public testing::Test {};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(Sampler, FramePixels);

template <class P>
void makeFaulty(SignalParameters& signal) {
    signal.breakup = 0.9f;
    signal.colourThreshold = signal.ghostThreshold = signal.edgeThreshold = 0.0f;
    signal.snowThreshold = signal.lineThreshold = signal.shashThreshold = 0.0f;
    signal.colourDegradeMax = 0.3f;
    signal.numGhosts = 3;
    signal.ghostDistance = 40.0f;
    signal.ghostStrength = 0.5f;
    signal.edgeDistortionMax = 30.0f;
    signal.edgeJaggedness = 3.0f;
    signal.snowMax = 0.5f;
    signal.snowSoftness = 2.0f;
    signal.lineSpacing = 10.0f;
    signal.playState = 0;
    signal.playSpeedAtStart = 2.0f;
    signal.shashAmountMax = 0.5f;
    signal.shashType = 4;
}

TYPED_TEST(Sampler, AStoppedFrameWritesNothing) {
    Television<TypeParam> set(30, 20);
    makeFaulty<TypeParam>(set.signal);
    set.record.interrupted = 1;
    const auto before = set.target.memory;
    set.run();
    EXPECT_EQ(firstDifference(set.target.memory, before), "");
}

TYPED_TEST(Sampler, AFrameMayBeStoppedAtAnyPoll) {
    Workers one(1);
    static int left;
    for (int polls = 0; polls < 700; polls += 7) {
        Television<TypeParam> set(30, 20);
        makeFaulty<TypeParam>(set.signal);
        set.signal.whiteDot = polls % 2 ? 0.3f : 0.0f;
        left = polls;
        set.record.callback = [](void*, std::atomic<std::uint32_t>*) -> std::uint32_t {
            return left-- <= 0;
        };
        const auto before = set.target.memory;
        set.run();
        EXPECT_EQ(set.record.interrupted != 0, left < 0) << polls;
        for (std::size_t i = 0; i < 32; ++i) EXPECT_EQ(set.target.memory[i], before[i]);
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
    makeFaulty<TypeParam>(set.signal);
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
                makeFaulty<TypeParam>(set.signal);
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
        makeFaulty<TypeParam>(here.signal);
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
