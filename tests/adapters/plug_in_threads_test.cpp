// Hosts call one instance from several threads, and several instances at once.

#include <gtest/gtest.h>
#include <thread>

#include "tests/adapters/host_side.h"

namespace ruvex::frei0r {
namespace {

using test::HostSide;
using test::noisyPixels;
using test::Pixels;

TEST(PlugInThreads, UpdatesOfOneAndOfSeveralInstancesAtOnceGiveTheSameFrames) {
    constexpr int kThreads = 3;
    constexpr double kTime = 0.2;
    const Pixels input = noisyPixels(32, 24, 9);
    HostSide shared(32, 24);
    shared.set("look", "Bad Colour TV");
    const Pixels expected = shared.frame(kTime, input);
    std::vector<std::thread> threads;
    std::vector<int> differences(kThreads, 0);
    for (int thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back([&, thread] {
            HostSide own(32, 24);
            own.set("look", "Bad Colour TV");
            for (int i = 0; i < 4; ++i) {
                shared.set("look", "Bad Colour TV");
                if (shared.frame(kTime, input) != expected) ++differences[thread];
                if (own.frame(kTime, input) != expected) ++differences[thread];
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(differences, std::vector<int>(kThreads, 0));
}

}  // namespace
}  // namespace ruvex::frei0r
