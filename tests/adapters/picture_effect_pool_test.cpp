#include <atomic>
#include <gtest/gtest.h>
#include <set>
#include <stdexcept>
#include <thread>

#include "adapters/common/picture_effect.h"
#include "looks/presets.h"
#include "runtime/module_loader.h"
#include "tests/adapters/host_memory.h"

namespace ruvex::adapters {
namespace {

constexpr PixelRect kPooledFrame{3, -2, 51, 30};

/// The address of the effect that the pool gives next.
const PictureEffect* nextOf(PictureEffectPool& pool) {
    const PictureEffect* given = nullptr;
    pool.withEffect([&](PictureEffect& effect) { given = &effect; });
    return given;
}

/// Calls `use` with `count` effects that are all in use at once.
void withMany(PictureEffectPool& pool, std::size_t count, std::set<const PictureEffect*>& given) {
    pool.withEffect([&](PictureEffect& effect) {
        given.insert(&effect);
        if (count > 1) withMany(pool, count - 1, given);
    });
}

FrameTask pooledTask(int frame) {
    return {.project = {kPooledFrame.width(), kPooledFrame.height(), 1.0, 25.0},
            .seconds = frame / 25.0,
            .changes = looks::presetChanges(1 + frame % 2),
            .frame = kPooledFrame,
            .window = kPooledFrame};
}

std::vector<std::byte> pooledPixels(PictureEffect& effect, int frame) {
    test::HostMemory source(kPooledFrame, {});
    test::HostMemory target(kPooledFrame, {});
    test::fillWithNoise(source, 17);
    const SourcePicture picture = source.source();
    effect.render(pooledTask(frame), &picture, target.target());
    return target.pixels();
}

TEST(PictureEffectPool, KeepsAnEffectForTheNextCall) {
    PictureEffectPool pool;
    const PictureEffect* const first = nextOf(pool);
    EXPECT_EQ(nextOf(pool), first);
    EXPECT_EQ(nextOf(pool), first);
}

TEST(PictureEffectPool, EffectsInUseAreDifferentAndSomeAreKept) {
    PictureEffectPool pool;
    std::set<const PictureEffect*> given;
    withMany(pool, PictureEffectPool::kMostKept + 5, given);
    EXPECT_EQ(given.size(), PictureEffectPool::kMostKept + 5);
    std::set<const PictureEffect*> kept;
    withMany(pool, PictureEffectPool::kMostKept, kept);
    EXPECT_EQ(kept.size(), PictureEffectPool::kMostKept);
    for (const PictureEffect* effect : kept) EXPECT_TRUE(given.contains(effect));
}

TEST(PictureEffectPool, AnEffectInUseDuringAClearIsNotKept) {
    PictureEffectPool pool;
    const PictureEffect* later = nullptr;
    pool.withEffect([&](PictureEffect& inUse) {
        pool.clear();
        later = nextOf(pool);
        EXPECT_NE(later, &inUse);
    });
    // The effect that came back last would be the next one, had it been kept.
    EXPECT_EQ(nextOf(pool), later);
}

TEST(PictureEffectPool, NothingOfTheModuleIsInUseAfterAClear) {
    const auto module = runtime::Module::loadDefault();
    ASSERT_TRUE(module->canUnload());
    PictureEffectPool pool;
    pool.withEffect([&](PictureEffect& effect) { pooledPixels(effect, 1); });
    EXPECT_FALSE(module->canUnload());
    pool.clear();
    EXPECT_TRUE(module->canUnload());
    pool.withEffect([&](PictureEffect& effect) {
        pooledPixels(effect, 1);
        pool.clear();
        EXPECT_FALSE(module->canUnload());
    });
    EXPECT_TRUE(module->canUnload());
}

TEST(PictureEffectPool, PassesOnWhatACallThrows) {
    PictureEffectPool pool;
    EXPECT_THROW(pool.withEffect([](PictureEffect&) { throw std::runtime_error("no"); }),
                 std::runtime_error);
    EXPECT_NE(nextOf(pool), nullptr);
}

TEST(PictureEffectPool, ThreadsRenderAtOnceWhileItIsCleared) {
    constexpr int kFrames = 6;
    constexpr int kThreads = 4;
    std::vector<std::vector<std::byte>> wanted;
    for (int frame = 0; frame < kFrames; ++frame) {
        PictureEffect effect;
        wanted.push_back(pooledPixels(effect, frame));
    }
    PictureEffectPool pool;
    std::atomic<int> wrong = 0;
    const auto work = [&](int first) {
        for (int i = 0; i < 3 * kFrames; ++i) {
            const int frame = (first + i) % kFrames;
            pool.withEffect([&](PictureEffect& effect) {
                if (pooledPixels(effect, frame) != wanted.at(frame)) ++wrong;
            });
            if (i % 5 == 0) pool.clear();
        }
    };
    std::vector<std::jthread> threads;
    for (int i = 0; i < kThreads; ++i) threads.emplace_back(work, i);
    threads.clear();
    EXPECT_EQ(wrong, 0);
}

}  // namespace
}  // namespace ruvex::adapters
