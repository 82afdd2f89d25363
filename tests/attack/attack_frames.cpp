// Attacks the effect with random renders until the time is over, and prints what was done.
//
//     attack_frames [--seconds N] [--seed FIRST] [--cases N]
//
// Ends with status 1 at the first difference, with the seed that repeats it.

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <limits>
#include <string>

#include "tests/attack/attack_case.h"

namespace {

using namespace ruvex::attack;

/// A stop has to be answered within this time.
#ifdef RUVEX_SANITIZED
constexpr Seconds kLongestStop{20.0};  // the sanitizers are slow
#else
constexpr Seconds kLongestStop{2.0};
#endif

struct Options {
    Seconds time{60.0};
    std::uint32_t first = 1;
    std::int64_t cases = std::numeric_limits<std::int64_t>::max();
};

Options optionsOf(int argc, char** argv) {
    Options options;
    for (int i = 1; i + 1 < argc; i += 2) {
        const std::string name = argv[i];
        const long long value = std::atoll(argv[i + 1]);
        if (name == "--seconds") options.time = Seconds(static_cast<double>(value));
        if (name == "--seed") options.first = static_cast<std::uint32_t>(value);
        if (name == "--cases") options.cases = value;
    }
    return options;
}

void print(const Counts& all) {
    const auto number = [](std::int64_t count) { return static_cast<long long>(count); };
    std::printf(
        "%lld cases, %lld frames: %lld by clones at once, %lld stopped, %lld refused; %lld cases "
        "took too long. The longest wait after a stop: %.3f s.\n",
        number(all.cases), number(all.frames), number(all.byClones), number(all.stopped),
        number(all.refused), number(all.slow), all.longestStop.count());
}

int attack(const Options& options) {
    const auto start = std::chrono::steady_clock::now();
    Counts all;
    std::uint32_t seed = options.first;
    while (all.cases < options.cases && std::chrono::steady_clock::now() - start < options.time) {
        try {
            all += runCase(seed);
        } catch (const std::exception& error) {
            std::printf("--seed %u --cases 1: %s\n", seed, error.what());
            return 1;
        }
        if (all.longestStop > kLongestStop) {
            std::printf("--seed %u --cases 1: a stop was answered after %.3f s\n", seed,
                        all.longestStop.count());
            return 1;
        }
        ++seed;
    }
    print(all);
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    // The effect prints a line for each picture that is too small for its Resolution. The
    // sanitizers write to the descriptor itself.
    if (std::FILE* nowhere = std::fopen("/dev/null", "w")) stderr = nowhere;
    return attack(optionsOf(argc, argv));
}
