// Blurring a frame of 1920x1080 with three boxes, beside three boxes of OpenCV in the same run.
//
// Processor time on one thread. Either side makes the buffer that it needs between source and
// target anew each time, as a frame does. OpenCV's boxes take whole radii only.

#include <benchmark/benchmark.h>
#include <opencv2/imgproc.hpp>
#include <type_traits>

#include "bench/frames.h"
#include "imaging/blur/blur_gauss.h"
#include "imaging/threads.h"

namespace ruvex::bench {
namespace {

constexpr int kBoxes = 3;

template <class P>
constexpr int matrixType() {
    using T = typename P::Component;
    constexpr int depth = std::is_same_v<T, std::uint8_t>   ? CV_8U
                          : std::is_same_v<T, std::int16_t> ? CV_16S
                                                            : CV_32S;
    return CV_MAKETYPE(depth, P::kComponents);
}

template <class P>
cv::Mat matrixOf(VxTexture<P>& texture) {
    return {texture.y.size, texture.x.size, matrixType<P>(), texture.data};
}

void boxOnce(const cv::Mat& from, cv::Mat& to, int radius) {
    cv::boxFilter(from, to, -1, {2 * radius + 1, 2 * radius + 1}, {-1, -1}, true,
                  cv::BORDER_REPLICATE);
}

template <class P>
void peerBlur(Frames<P>& frames, int radius) {
    cv::Mat between, target = matrixOf(frames.target);
    boxOnce(matrixOf(frames.source), between, radius);
    boxOnce(between, target, radius);
    boxOnce(target, between, radius);
}

template <class Blur, class P>
void blurOnce(Frames<P>& frames, float radius) {
    Blur blur;
    blur.radiusX = radius;
    blur.radiusY = radius;
    blur.iterations = kBoxes;
    blur.process(&frames.source, &frames.target);
}

// The frame `Blur` reads is of pixel P. Its radius is the benchmark's argument.
template <class Blur, class P>
void blur(benchmark::State& state) {
    const WorkerCountScope one(1);
    cv::setNumThreads(0);
    const int radius = static_cast<int>(state.range(0));
    Frames<P> frames;
    std::vector<double> own, peer, ratios;
    for (auto _ : state) {
        peer.push_back(processorSeconds([&] { peerBlur(frames, radius); }));
        own.push_back(
            processorSeconds([&] { blurOnce<Blur>(frames, static_cast<float>(radius)); }));
        ratios.push_back(own.back() / peer.back());
        state.SetIterationTime(own.back());
    }
    state.counters["ms/box"] = median(own) * 1e3 / kBoxes;
    state.counters["peer_ms/box"] = median(peer) * 1e3 / kBoxes;
    state.counters["of_peer"] = median(ratios);
}

// Time by rows processed, with edges that make every row of the margin another one.
template <class Blur, class P>
void rows(benchmark::State& state) {
    const WorkerCountScope one(1);
    const int radius = static_cast<int>(state.range(0));
    Frames<P> frames;
    frames.source.setEdgeMethods(kEdgeWrap, kEdgeWrap);
    std::vector<double> own;
    for (auto _ : state) {
        own.push_back(
            processorSeconds([&] { blurOnce<Blur>(frames, static_cast<float>(radius)); }));
        state.SetIterationTime(own.back());
    }
    const int processed = kHeight + 2 * (radius + 2) * kBoxes;
    state.counters["us/row"] = median(own) * 1e6 / processed;
}

#define RUVEX_BENCH(...)    \
    BENCHMARK(__VA_ARGS__)  \
        ->ArgName("radius") \
        ->Arg(1)            \
        ->Arg(10)           \
        ->Arg(100)          \
        ->UseManualTime()   \
        ->Unit(benchmark::kMillisecond)

RUVEX_BENCH(blur<BlurRGBAGauss<Rgba8>, Rgba8>);
RUVEX_BENCH(blur<BlurRGBAGauss<RgbaS214>, RgbaS214>);
RUVEX_BENCH(blur<BlurRGBAGauss<RgbaInt>, RgbaInt>);
RUVEX_BENCH(blur<BlurIntGauss, ChannelInt>);
RUVEX_BENCH(blur<BlurGeneralGauss<Rgba8>, Rgba8>);
RUVEX_BENCH(blur<BlurGeneralGauss<RgbaS214>, RgbaS214>);
RUVEX_BENCH(rows<BlurRGBAGauss<Rgba8>, Rgba8>);
RUVEX_BENCH(rows<BlurRGBAGauss<RgbaS214>, RgbaS214>);
RUVEX_BENCH(rows<BlurGeneralGauss<RgbaS214>, RgbaS214>);
#undef RUVEX_BENCH

}  // namespace
}  // namespace ruvex::bench
