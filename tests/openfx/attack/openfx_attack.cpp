// Calls the OpenFX plug-in as no host should: random actions in any order, from several threads, in
// a host whose functions fail at random, whose properties do not fit and which lacks suites. Each
// picture is checked for writes beside it; the sanitizers look for everything else.
//
//     openfx_attack PLUG-IN [--calls N] [--seed S]
//
// Ends with status 1 at the first fault, or if fewer pictures than one of 100 calls were rendered.
// The calls of a thread are the same for a seed, but threads meet by chance.
//
// What a host may never do is left out: give memory that it does not have (tampering.h), unload or
// describe a plug-in during another call, destroy an instance during another call for it, or say
// that a picture has millions of pixels, which is no fault and only takes long.

#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

#include "tests/openfx/attack/attacker.h"

namespace {

using namespace ruvex::ofxhost;

constexpr std::uint32_t kThreads = 4;

/// Calls for each picture that is rendered at least; five seeds had 38 to 43.
constexpr long kCallsForAPicture = 100;
/// The first calls find no instance to render with.
constexpr long kFirstCalls = 1000;

int attackPlugIn(const std::string& file, long calls, std::uint32_t seed) {
    attack::Target target(file);
    attack::Counts counts;
    counts.callsLeft = calls;
    std::vector<std::thread> threads;
    const auto attack = [&](std::uint32_t i) {
        attack::Attacker(target, counts, seed * kThreads + i, i == 0).run();
    };
    for (std::uint32_t i = 1; i < kThreads; ++i) threads.emplace_back(attack, i);
    // Overlays belong to the thread of the host's windows, which unloads the plug-in.
    attack(0);
    for (std::thread& thread : threads) thread.join();
    for (attack::Slot& slot : target.slots) slot.clear();
    target.plugIn.unloadAll();
    const bool faulty = target.faulty();
    if (faulty) {
        for (const std::string& fault : target.host.faults()) std::printf("%s\n", fault.c_str());
    }
    const bool idle = counts.rendered * kCallsForAPicture < calls - kFirstCalls;
    std::printf("%ld calls, %ld pictures, %ld of them rendered: %s\n", calls,
                counts.pictures.load(), counts.rendered.load(),
                faulty ? "faulty" : (idle ? "too few" : "no fault"));
    return faulty || idle ? 1 : 0;
}

}  // namespace

int main(int argc, char** argv) {
    long calls = 20000;
    std::uint32_t seed = 1;
    if (argc < 2) return 2;
    for (int i = 2; i + 1 < argc; i += 2) {
        const std::string name = argv[i];
        if (name == "--calls") calls = std::atol(argv[i + 1]);
        if (name == "--seed") seed = static_cast<std::uint32_t>(std::atol(argv[i + 1]));
    }
    // The messages are of no interest here. The sanitizers write to the descriptor itself.
    if (std::FILE* nowhere = std::fopen("/dev/null", "w")) stderr = nowhere;
    return attackPlugIn(argv[1], calls, seed);
}
