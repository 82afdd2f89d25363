// What the signal level and its walks cost for one frame, against the frame's number, and how much
// of it is the noise itself.

#include <benchmark/benchmark.h>
#include <chrono>
#include <vector>

#include "effect/frame_values.h"
#include "effect/player.h"
#include "effect/signal_walks.h"
#include "imaging/noise/gradient_noise.h"
#include "tests/effect/support/noise_count.h"
#include "tests/effect/support/parameter_set.h"

namespace ruvex {
namespace {

using test::ParameterSet;

constexpr double kRate = 25.0;

void defaults(ParameterSet&) {}

void keyedBreakupSpeed(ParameterSet& set) {
    set.animate(ParameterId::BreakupSpeed, {{0.0, 20.0}, {100.0, 80.0}, {4000.0, 40.0}});
}

void keyedPlaySpeed(ParameterSet& set) {
    set.animate(ParameterId::PlaySpeed, {{0.0, 100.0}, {10.0, 50.0}});
}

// All that a frame works out of its time line.
void measureFrame(const ParameterReader& reader, int number) {
    const FrameTime time(number / kRate, kRate);
    const TapePosition tape = tapePosition(reader, time);
    benchmark::DoNotOptimize(playStatusAt(reader, time));
    benchmark::DoNotOptimize(signalAt(reader, time, tape));
}

// The noise calls of such a frame by themselves, at the places of the default phase.
void noiseAlone(int calls) {
    float sum = 0.0f;
    for (int i = 0; i < calls; ++i) {
        sum += noiseTable().fractalNoise(static_cast<float>(i) * 0.02f, 8);
    }
    benchmark::DoNotOptimize(sum);
}

double seconds(const auto& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// Times a frame in turn with a frame of a tenth of its number and with its noise calls alone, so
// that a machine whose speed drifts drifts for all three. Counters: noise calls for each frame of
// the time line, the time as a multiple of the tenth's, and the noise's part of the time.
void frame(benchmark::State& state, void (*setUp)(ParameterSet&)) {
    const int number = static_cast<int>(state.range(0));
    ParameterSet set;
    setUp(set);
    const ParameterReader reader = set.reader();
    const auto before = test::fractalNoiseCalls();
    measureFrame(reader, number);
    const auto calls = static_cast<double>(test::fractalNoiseCalls() - before);
    double whole = 0.0, tenth = 0.0, noise = 0.0;
    for (auto _ : state) {
        // Ten of the tenth, which is a short time to measure.
        tenth += seconds([&] {
                     for (int i = 0; i < 10; ++i) measureFrame(reader, number / 10);
                 }) /
                 10;
        const double now = seconds([&] { measureFrame(reader, number); });
        noise += seconds([&] { noiseAlone(static_cast<int>(calls)); });
        whole += now;
        state.SetIterationTime(now);
    }
    state.counters["noise/frame"] = calls / number;
    state.counters["times_tenth"] = whole / tenth;
    state.counters["noise_part"] = noise / whole;
}

// The values of all frames up to a number, as a plot of the level reads them.
void series(benchmark::State& state, void (*setUp)(ParameterSet&)) {
    ParameterSet set;
    setUp(set);
    std::vector<FrameTime> times;
    for (int k = 0; k <= state.range(0); ++k) times.emplace_back(k / kRate, kRate);
    std::vector<FrameValues> values(times.size());
    for (auto _ : state) {
        valuesOfFrames(set.reader(), times, values.data());
        benchmark::DoNotOptimize(values.data());
    }
}

#define RUVEX_SERIES(name) \
    BENCHMARK_CAPTURE(series, name, name)->Arg(20000)->Unit(benchmark::kMillisecond)

RUVEX_SERIES(defaults);
RUVEX_SERIES(keyedBreakupSpeed);
#undef RUVEX_SERIES

#define RUVEX_BENCH(name)                \
    BENCHMARK_CAPTURE(frame, name, name) \
        ->Arg(1000)                      \
        ->Arg(10000)                     \
        ->Arg(100000)                    \
        ->UseManualTime()                \
        ->Unit(benchmark::kMillisecond)

RUVEX_BENCH(defaults);
RUVEX_BENCH(keyedBreakupSpeed);
RUVEX_BENCH(keyedPlaySpeed);
#undef RUVEX_BENCH

}  // namespace
}  // namespace ruvex
