// Noise over rows of columns, the noise pictures and the lens at 1920x1080, one thread beside a
// memcpy of what they write, in the same run.

#include <benchmark/benchmark.h>
#include <cstring>

#include "bench/frames.h"
#include "imaging/noise/gradient_noise.h"
#include "imaging/noise/noise_gen.h"
#include "imaging/noise/rgba_noise_gen.h"
#include "imaging/threads.h"
#include "imaging/warp/lens_warper.h"
#include "imaging/warp/warp_render.h"

namespace ruvex {
namespace {

using namespace bench;

// Times `work` in turn with a memcpy of `bytes` and reports the median ratio of the pairs.
void besideMemcpy(benchmark::State& state, std::size_t bytes, const auto& work) {
    std::vector<std::byte> from(bytes);
    std::vector<std::byte> to(bytes);
    std::vector<double> ratios;
    for (auto _ : state) {
        const double copied = processorSeconds([&] {
            std::memcpy(to.data(), from.data(), bytes);
            benchmark::ClobberMemory();
        });
        const double worked = processorSeconds([&] {
            work();
            benchmark::ClobberMemory();
        });
        ratios.push_back(worked / std::max(copied, 1e-9));
        state.SetIterationTime(worked);
    }
    state.counters["memcpys"] = median(ratios);
}

constexpr std::size_t kPixels = static_cast<std::size_t>(kWidth) * kHeight;

void fractalNoiseRows(benchmark::State& state) {
    const auto octaves = static_cast<std::int32_t>(state.range(0));
    std::vector<float> row(kWidth);
    const VxGradientNoise& noise = noiseTable();
    for (auto _ : state) {
        for (int x = 0; x < kWidth; ++x) {
            row[static_cast<std::size_t>(x)] =
                noise.fractalNoise(static_cast<float>(x) / 35.0f + 812.5f, octaves);
        }
        benchmark::DoNotOptimize(row.data());
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * kWidth);
}

void fractalNoiseInOneCall(benchmark::State& state) {
    const auto octaves = static_cast<std::int32_t>(state.range(0));
    std::vector<float> places(kWidth);
    std::vector<float> row(kWidth);
    for (auto _ : state) {
        for (int x = 0; x < kWidth; ++x) {
            places[static_cast<std::size_t>(x)] = static_cast<float>(x) / 35.0f + 812.5f;
        }
        noiseTable().fractalNoiseRow(places.data(), kWidth, octaves, row.data());
        benchmark::DoNotOptimize(row.data());
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * kWidth);
}

void channelNoise(benchmark::State& state) {
    const WorkerCountScope one(1);
    VxTexture<ChannelInt> picture;
    picture.allocateRegion(0, 0, kWidth - 1, kHeight - 1, Contents::Zero);
    InterruptionRecord record;
    VxNoiseGen noise;
    noise.interrupt = &record;
    noise.seed = 5;
    noise.scale = 510.0f;
    noise.blurX = static_cast<float>(state.range(0));
    besideMemcpy(state, kPixels * sizeof(ChannelInt), [&] { noise.process(picture); });
}

void colourNoise(benchmark::State& state) {
    const WorkerCountScope one(1);
    VxTexture<RgbaInt> picture;
    picture.allocateRegion(0, 0, kWidth - 1, kHeight - 1, Contents::Zero);
    InterruptionRecord record;
    VxRGBANoiseGen noise;
    noise.interrupt = &record;
    noise.seed = 5;
    noise.alpha = true;
    for (int k = 0; k < 4; ++k) {
        noise.scale[k] = 510.0f;
        noise.blurX[k] = static_cast<float>(state.range(0));
    }
    besideMemcpy(state, kPixels * sizeof(RgbaInt), [&] { noise.process(picture); });
}

// A fish eye as large as the picture is high.
template <class P, WarpFilter Filter>
void lens(benchmark::State& state) {
    const WorkerCountScope one(1);
    Frames<P> frames;
    VxLensWarper warper;
    warper.radiusX = warper.radiusY = 540.0f;
    warper.inverseRadiusX = warper.inverseRadiusY = 1.0f / 540.0f;
    warper.centreX = kWidth / 2.0f;
    warper.centreY = kHeight / 2.0f;
    warper.exponent = 0.67f;
    VxWarpRender<P> render;
    render.warper = &warper;
    render.filter = Filter;
    VxTexture<P>* target = &frames.target;
    besideMemcpy(state, kPixels * sizeof(P), [&] { render.process(target, frames.source); });
}

BENCHMARK(fractalNoiseRows)->Arg(1)->Arg(2)->Arg(8);
BENCHMARK(fractalNoiseInOneCall)->Arg(1)->Arg(2)->Arg(8);
BENCHMARK(channelNoise)->Arg(0)->Arg(3)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(colourNoise)->Arg(0)->Arg(3)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(lens<Rgba8, WarpFilter::Nearest>)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(lens<Rgba8, WarpFilter::Bilinear>)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(lens<RgbaS214, WarpFilter::Nearest>)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(lens<RgbaS214, WarpFilter::Bilinear>)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace ruvex
