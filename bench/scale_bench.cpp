// How the time of a frame grows with its size and with the number of workers. "Bad Colour TV",
// 8-bit.

#include <benchmark/benchmark.h>
#include <string>
#include <vector>

#include "bench/television_frame.h"

namespace ruvex::bench {
namespace {

constexpr FrameSize kFullHd{1920, 1080};
constexpr FrameSize kUltraHd{3840, 2160};

double rendered(TelevisionFrame& frame) {
    frame.copySource();
    return frame.render();
}

// 3840x2160 as a multiple of 1920x1080, timed in turn.
void largerFrame(benchmark::State& state) {
    const int workers = static_cast<int>(state.range(0));
    TelevisionFrame small(kFullHd, MFIF_RGBA_RAW_32, workers, kBadColourTv);
    TelevisionFrame large(kUltraHd, MFIF_RGBA_RAW_32, workers, kBadColourTv);
    std::vector<double> ratios;
    for (auto _ : state) {
        const double ofSmall = rendered(small);
        const double ofLarge = rendered(large);
        ratios.push_back(ofLarge / ofSmall);
        state.SetIterationTime(ofLarge);
    }
    state.counters["times 1920x1080"] = median(ratios);
}

// A frame in more shares than there are processors, timed in turn with one share each for the two
// processors of the machine for which these figures are kept. What each further share costs is
// given as a fraction of the frame.
void moreShares(benchmark::State& state) {
    constexpr int kProcessors = 2;
    const int workers = static_cast<int>(state.range(0));
    TelevisionFrame few(kFullHd, MFIF_RGBA_RAW_32, kProcessors, kBadColourTv);
    TelevisionFrame many(kFullHd, MFIF_RGBA_RAW_32, workers, kBadColourTv);
    std::vector<double> overheads;
    for (auto _ : state) {
        const double ofFew = rendered(few);
        const double ofMany = rendered(many);
        overheads.push_back((ofMany / ofFew - 1.0) / (workers - kProcessors));
        state.SetIterationTime(ofMany);
    }
    state.counters["overhead of a share"] = median(overheads);
}

BENCHMARK(largerFrame)->Arg(1)->Arg(2)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(moreShares)->Arg(4)->Arg(8)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace ruvex::bench
