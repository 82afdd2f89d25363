// The television whole: each preset on a frame, as a multiple of one memcpy of it in the same run.

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstring>
#include <string>

#include "bench/frames.h"
#include "parameters/parameter_table.h"
#include "parameters/presets.h"
#include "parameters/ruvex_interface.h"
#include "runtime/effect_session.h"
#include "runtime/images.h"

namespace ruvex {
namespace {

using namespace bench;

struct Size {
    int width, height;
};
constexpr Size kSizes[] = {{720, 576}, {1920, 1080}};

// A session over the module of this build with a preset chosen.
runtime::EffectSession sessionWith(int preset, const runtime::Project& project, int workers) {
    runtime::openProject(project);
    runtime::EffectSession session({.module = runtime::Module::load(RUVEX_MODULE_FILE),
                                    .project = project,
                                    .provider = {},
                                    .interruption = {}});
    auto* control = static_cast<IRuvexControl*>(session.ownInterface(kRuvexControlId));
    control->setWorkerCount(workers);
    for (const PresetRow& line : presetTable()) {
        if (const auto value = line.value(preset)) {
            session.setValue(row(line.id).identifier, *value);
        }
    }
    return session;
}

// Frame 50 of a preset, asked for again and again: the source is a picture of its own each time, as
// the host's rule is, and its copy is not counted.
void television(benchmark::State& state, int preset, Size size, const GUID& format, int workers) {
    const runtime::Project project{.width = size.width, .height = size.height};
    runtime::EffectSession session = sessionWith(preset, project, workers);
    const auto source = runtime::makeProjectImage(project, size.width, size.height, format);
    const auto input = runtime::makeProjectImage(project, size.width, size.height, format);
    const auto output = runtime::makeProjectImage(project, size.width, size.height, format);
    std::byte* bytes = source->bytes();
    for (std::size_t i = 0; i < source->byteCount(); ++i) {
        bytes[i] = static_cast<std::byte>(i * 2654435761u >> 24 & 0x3F);
    }
    std::vector<double> ratios;
    for (auto _ : state) {
        const double copied = seconds([&] {
            std::memcpy(input->bytes(), source->bytes(), source->byteCount());
            benchmark::ClobberMemory();
        });
        runtime::RenderRequest request;
        request.seconds = 2.0;
        request.input = input;
        request.output = output;
        const double rendered = seconds([&] { session.render(request); });
        ratios.push_back(rendered / copied);
        state.SetIterationTime(rendered);
    }
    state.counters["memcpys"] = median(ratios);
    runtime::closeProject();
}

const bool registered = [] {
    for (int preset = 0; preset < kPresetCount; ++preset) {
        for (const Size size : kSizes) {
            for (const bool deep : {false, true}) {
                for (const int workers : {1, 2}) {
                    const std::string name = std::string(presetNames()[preset]) + "/" +
                                             std::to_string(size.width) + (deep ? "/16" : "/8") +
                                             "/workers:" + std::to_string(workers);
                    benchmark::RegisterBenchmark(name.c_str(), television, preset, size,
                                                 deep ? MFIF_RGBA_S2_14 : MFIF_RGBA_RAW_32, workers)
                        ->UseManualTime()
                        ->Unit(benchmark::kMillisecond);
                }
            }
        }
    }
    return true;
}();

}  // namespace
}  // namespace ruvex
