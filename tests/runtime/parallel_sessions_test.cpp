// Sessions on threads of their own; the thread sanitizer looks for what they share.

#include <gtest/gtest.h>
#include <thread>
#include <vector>

#include "tests/runtime/copy_module.h"
#include "tests/support/copy_effect.h"

namespace ruvex::runtime::test {
namespace {

constexpr int kSessions = 8;
constexpr int kFrames = 40;

void renderClip(EffectSession& session, int lift) {
    for (int index = 0; index < kFrames; ++index) {
        RenderRequest request;
        request.seconds = frameTime(index, kSmallProject.frameRate);
        const auto output = emptyOutput();
        request.output = output;
        session.render(request);
        // Delay is two frames: the first two are refused and stay empty.
        const int expected = index < 2 ? 0 : index - 2 + lift;
        ASSERT_EQ(countOf(*output, expected), kAllBytes) << "frame " << index;
    }
}

TEST(ParallelSessions, RenderAsTheyDoAlone) {
    std::vector<std::jthread> threads;
    for (int i = 0; i < kSessions; ++i) {
        threads.emplace_back([i] {
            EffectSession session(copySetup());
            session.setValue(ruvex::test::kDelayId, 0.08);
            session.setValue(ruvex::test::kLiftId, i);
            renderClip(session, i);
        });
    }
}

TEST(ParallelSessions, ClonesOfOneSessionRenderAtOnce) {
    EffectSession source(copySetup());
    source.setKeys(ruvex::test::kDelayId, {{0.0, 0.08}, {1.0, 0.08}});
    source.setValue(ruvex::test::kLiftId, 5);
    std::vector<EffectSession> clones;
    for (int i = 0; i < kSessions; ++i) clones.push_back(source.clone());
    std::vector<std::jthread> threads;
    for (EffectSession& clone : clones) threads.emplace_back([&clone] { renderClip(clone, 5); });
}

TEST(ParallelSessions, ModulesAreLoadedAndLetGoFromManyThreads) {
    std::vector<std::jthread> threads;
    for (int i = 0; i < kSessions; ++i) {
        threads.emplace_back([] {
            for (int round = 0; round < 20; ++round) {
                const auto module = Module::load(moduleFile("copy_module"));
                EXPECT_TRUE(module->classFactory(kRuvexClassId));
            }
        });
    }
}

}  // namespace
}  // namespace ruvex::runtime::test
