// The share of each stage of "Bad Colour TV": what a frame costs less without it.

#include <benchmark/benchmark.h>
#include <string>
#include <vector>

#include "bench/television_frame.h"

namespace ruvex::bench {
namespace {

struct Stage {
    const char* name;
    ParameterId id;
    double off;
};
constexpr Stage kStages[] = {{"snow", ParameterId::SnowMax, 0.0},
                             {"ghosts", ParameterId::NumGhosts, 0.0},
                             {"edge distortion", ParameterId::EdgeDistortionMax, 0.0},
                             {"colour loss", ParameterId::ColourDegradeMax, 0.0},
                             {"creeping lines", ParameterId::LineThreshold, 100.0}};

// The frame with all stages and without one, in turn.
void share(benchmark::State& state, Settings without, const GUID& format, int workers) {
    TelevisionFrame whole({1920, 1080}, format, workers, kBadColourTv);
    Settings with;
    for (const auto& [id, off] : without) {
        for (const PresetRow& line : presetTable()) {
            if (line.id == id) with.emplace_back(id, *line.value(kBadColourTv));
        }
    }
    std::vector<double> shares;
    for (auto _ : state) {
        whole.set(with);
        whole.copySource();
        const double all = whole.render();
        whole.set(without);
        whole.copySource();
        const double less = whole.render();
        shares.push_back(1.0 - less / all);
        state.SetIterationTime(all);
    }
    state.counters["share"] = median(shares);
}

void add(const std::string& name, const Settings& without) {
    for (const bool deep : {false, true}) {
        for (const int workers : {1, 2}) {
            const std::string full =
                "share of " + name + (deep ? "/16" : "/8") + "/workers:" + std::to_string(workers);
            benchmark::RegisterBenchmark(full.c_str(), share, without,
                                         deep ? MFIF_RGBA_S2_14 : MFIF_RGBA_RAW_32, workers)
                ->UseManualTime()
                ->Unit(benchmark::kMillisecond);
        }
    }
}

const bool registered = [] {
    Settings all;
    for (const Stage& stage : kStages) {
        add(stage.name, {{stage.id, stage.off}});
        all.emplace_back(stage.id, stage.off);
    }
    add("all of these", all);
    return true;
}();

}  // namespace
}  // namespace ruvex::bench
