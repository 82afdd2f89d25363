// Instances on several threads, in any order.

#include <algorithm>
#include <atomic>
#include <random>
#include <thread>

#include "tests/openfx/built_plug_in.h"

namespace ruvex::ofxhost::test {
namespace {

#ifdef RUVEX_SANITIZED
constexpr int kFrames = 6;
#else
constexpr int kFrames = 16;
#endif
constexpr int kThreads = 4;

/// Calls `render` with each frame, in random order and on several threads.
void onSeveralThreads(const std::function<void(int)>& render) {
    std::vector<int> order(kFrames);
    for (int i = 0; i < kFrames; ++i) order[static_cast<std::size_t>(i)] = i;
    std::shuffle(order.begin(), order.end(), std::mt19937(3));
    std::atomic<std::size_t> next{0};
    std::vector<std::thread> threads;
    for (int thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back([&] {
            for (std::size_t i = next++; i < order.size(); i = next++) render(order[i]);
        });
    }
    for (std::thread& thread : threads) thread.join();
}

RenderArgs frameArgs(int frame) {
    RenderArgs args;
    args.time = frame;
    return args;
}

/// The frames in their order, by one instance on one thread.
std::vector<Raster> framesInOrder(BuiltInstance& built) {
    std::vector<Raster> frames;
    for (int i = 0; i < kFrames; ++i) frames.push_back(built.instance.render(frameArgs(i)).output);
    return frames;
}

TEST(Threads, OneInstanceRendersOnSeveralThreads) {
    BuiltInstance built(noiseClip(40, 30));
    built.choosePreset("Bad Colour TV");
    const auto expected = framesInOrder(built);
    std::atomic<int> same{0};
    onSeveralThreads([&](int frame) {
        const RenderResult result = built.instance.render(frameArgs(frame));
        same += result.output.bytes == expected[static_cast<std::size_t>(frame)].bytes;
    });
    EXPECT_EQ(same, kFrames);
}

// Some hosts describe once, and make an instance for each frame on the thread that renders it.
TEST(Threads, AnInstanceAFrameRendersTheSame) {
    BuiltInstance built(noiseClip(40, 30));
    built.choosePreset("Bad Colour TV");
    const auto expected = framesInOrder(built);
    std::vector<ParameterState> states;
    for (const auto& parameter : built.instance.parameters().all()) {
        states.push_back(parameter->state());
    }
    std::atomic<int> same{0};
    onSeveralThreads([&](int frame) {
        Instance own(built.plugIn, setupFor(noiseClip(40, 30)));
        for (std::size_t i = 0; i < states.size(); ++i) {
            own.parameters().all()[i]->restore(states[i]);
        }
        const RenderResult result = own.render(frameArgs(frame));
        same += result.output.bytes == expected[static_cast<std::size_t>(frame)].bytes;
    });
    EXPECT_EQ(same, kFrames);
}

}  // namespace
}  // namespace ruvex::ofxhost::test
