// The television whole: each preset on a frame, as a multiple of one memcpy of it in the same run.

#include <benchmark/benchmark.h>
#include <string>
#include <vector>

#include "bench/television_frame.h"
#include "tests/support/watched_new.h"

namespace ruvex::bench {
namespace {

constexpr FrameSize kSizes[] = {{720, 576}, {1920, 1080}};
constexpr int kCableOut = 7;
constexpr int kShashTypes = 5;

struct Job {
    FrameSize size;
    const GUID& format;
    int workers;
};

// One frame again and again. The source is a picture of its own each time, as the host's rule is,
// and its copy is not counted.
void television(benchmark::State& state, int preset, Settings settings, Job job) {
    TelevisionFrame frame(job.size, job.format, job.workers, preset);
    frame.set(settings);
    std::vector<double> ratios;
    std::uint64_t allocated = 0;
    for (auto _ : state) {
        const double copied = frame.copySource();
        const std::uint64_t before = test::allocatedBytes();
        const double rendered = frame.render();
        allocated = test::allocatedBytes() - before;
        ratios.push_back(rendered / copied);
        state.SetIterationTime(rendered);
    }
    state.counters["memcpys"] = median(ratios);
    state.counters["frames allocated"] =
        static_cast<double>(allocated) / static_cast<double>(frame.bytes());
}

void add(const std::string& look, int preset, const Settings& settings) {
    for (const FrameSize size : kSizes) {
        for (const bool deep : {false, true}) {
            for (const int workers : {1, 2}) {
                const std::string name = look + "/" + std::to_string(size.width) +
                                         (deep ? "/16" : "/8") +
                                         "/workers:" + std::to_string(workers);
                const Job job{size, deep ? MFIF_RGBA_S2_14 : MFIF_RGBA_RAW_32, workers};
                benchmark::RegisterBenchmark(name.c_str(), television, preset, settings, job)
                    ->UseManualTime()
                    ->Unit(benchmark::kMillisecond);
            }
        }
    }
}

const bool registered = [] {
    for (int preset = 0; preset < kPresetCount; ++preset) {
        if (preset != kCableOut) add(std::string(presetNames()[preset]), preset, {});
    }
    for (int type = 0; type < kShashTypes; ++type) {
        add("Cable Out, shash " + std::to_string(type), kCableOut,
            {{ParameterId::ShashType, static_cast<double>(type)}});
    }
    return true;
}();

}  // namespace
}  // namespace ruvex::bench
