// Copying and moving a frame of 1920x1080, as multiples of a memcpy of it in the same run.

#include <benchmark/benchmark.h>
#include <cstring>
#include <vector>

#include "bench/frames.h"
#include "imaging/copy_samplers.h"
#include "imaging/move_sampler.h"
#include "imaging/threads.h"

namespace ruvex::bench {
namespace {

// Times `work` in turn with a memcpy of the frame and reports the median ratio of the pairs, so
// that a machine whose speed drifts drifts for both.
template <class P>
void compareWithMemcpy(benchmark::State& state, Frames<P>& frames, const auto& work) {
    std::vector<P> from(static_cast<std::size_t>(kWidth) * kHeight);
    std::vector<P> to(from.size());
    std::vector<double> ratios;
    for (auto _ : state) {
        const double copied = seconds([&] {
            std::memcpy(to.data(), from.data(), from.size() * sizeof(P));
            benchmark::ClobberMemory();
        });
        const double worked = seconds([&] {
            work();
            benchmark::DoNotOptimize(frames.target.data);
            benchmark::ClobberMemory();
        });
        ratios.push_back(worked / copied);
        state.SetIterationTime(worked);
    }
    state.counters["memcpys"] = median(ratios);
}

template <class P>
void copy(benchmark::State& state) {
    const WorkerCountScope workers(static_cast<std::int32_t>(state.range(0)));
    Frames<P> frames;
    SimpleCopySampler<P> sampler;
    compareWithMemcpy(state, frames, [&] { sampler.process(&frames.source, &frames.target); });
}

// Half the resolution up to the full one, or the full one turned a little.
template <class P, MoveFilter Filter, bool Turned>
void move(benchmark::State& state) {
    const WorkerCountScope workers(static_cast<std::int32_t>(state.range(0)));
    Frames<P> frames(Turned ? kWidth : kWidth / 2, Turned ? kHeight : kHeight / 2);
    VxMoveSampler<P> sampler;
    sampler.filter = Filter;
    if (Turned) {
        rotate(sampler.matrix, 0.1f);
    } else {
        scale(sampler.matrix, 0.5f, 0.5f);
    }
    compareWithMemcpy(state, frames, [&] { sampler.process(&frames.source, &frames.target); });
}

#define RUVEX_BENCH(...) \
    BENCHMARK(__VA_ARGS__)->Arg(1)->Arg(2)->UseManualTime()->Unit(benchmark::kMillisecond)

RUVEX_BENCH(copy<Rgba8>);
RUVEX_BENCH(copy<RgbaS214>);
RUVEX_BENCH(move<Rgba8, MoveFilter::Nearest, false>);
RUVEX_BENCH(move<RgbaS214, MoveFilter::Nearest, false>);
RUVEX_BENCH(move<Rgba8, MoveFilter::Bilinear, false>);
RUVEX_BENCH(move<RgbaS214, MoveFilter::Bilinear, false>);
RUVEX_BENCH(move<Rgba8, MoveFilter::Footprint, false>);
RUVEX_BENCH(move<RgbaS214, MoveFilter::Footprint, false>);
RUVEX_BENCH(move<Rgba8, MoveFilter::Sinc, false>);
RUVEX_BENCH(move<RgbaS214, MoveFilter::Sinc, false>);
RUVEX_BENCH(move<Rgba8, MoveFilter::Nearest, true>);
RUVEX_BENCH(move<RgbaS214, MoveFilter::Nearest, true>);
RUVEX_BENCH(move<Rgba8, MoveFilter::Bilinear, true>);
RUVEX_BENCH(move<RgbaS214, MoveFilter::Bilinear, true>);
#undef RUVEX_BENCH

}  // namespace
}  // namespace ruvex::bench
