// Conversion of a frame of 1920x1080 between YUV and RGB, beside the FFmpeg libraries' scaler in
// its bit-exact mode in the same run. One thread.

#include <benchmark/benchmark.h>
#include <cstring>
#include <vector>

#include "bench/frames.h"
#include "media/av_library.h"
#include "media/pixels/yuv_convert.h"

namespace ruvex::bench {
namespace {

using media::AvFrame;
using media::Depth;
using media::Frame;

constexpr int kScalerFlags =
    SWS_BICUBIC | SWS_ACCURATE_RND | SWS_BITEXACT | SWS_FULL_CHR_H_INT | SWS_FULL_CHR_H_INP;

AvFrame greyPicture(AVPixelFormat format, Depth depth) {
    AvFrame picture = media::newPicture(kWidth, kHeight, format);
    picture->color_range = AVCOL_RANGE_MPEG;
    const int byte = depth == Depth::Bits8 ? 0x80 : 0x01;
    const int chromaLines =
        format == AV_PIX_FMT_YUV420P || format == AV_PIX_FMT_YUV420P10LE ? kHeight / 2 : kHeight;
    for (int plane = 0; plane < 3; ++plane) {
        const int lines = plane == 0 ? kHeight : chromaLines;
        std::memset(
            picture->data[plane], byte,
            static_cast<std::size_t>(picture->linesize[plane]) * static_cast<std::size_t>(lines));
    }
    return picture;
}

AVPixelFormat packedFormat(Depth depth) {
    return depth == Depth::Bits8 ? AV_PIX_FMT_RGBA : AV_PIX_FMT_RGBA64LE;
}

/// Times `work` in turn with the scaler and reports the median ratio of the pairs.
void compareWithScaler(benchmark::State& state, const AVFrame& from, AVPixelFormat to,
                       const auto& work) {
    const media::Scaler scaler(
        sws_getContext(kWidth, kHeight, static_cast<AVPixelFormat>(from.format), kWidth, kHeight,
                       to, kScalerFlags, nullptr, nullptr, nullptr));
    const AvFrame scaled = media::newPicture(kWidth, kHeight, to);
    std::vector<double> ratios;
    for (auto _ : state) {
        const double theirs = processorSeconds([&] {
            sws_scale(scaler.get(), from.data, from.linesize, 0, kHeight, scaled->data,
                      scaled->linesize);
        });
        const double ours = processorSeconds(work);
        ratios.push_back(ours / theirs);
        state.SetIterationTime(ours);
    }
    state.counters["scalers"] = median(ratios);
}

void yuvToRgb(benchmark::State& state, AVPixelFormat format, Depth depth) {
    const AvFrame picture = greyPicture(format, depth);
    media::PictureToFrame convert(*picture, "a picture");
    compareWithScaler(state, *picture, packedFormat(depth), [&] {
        const Frame frame = convert.convert(*picture);
        benchmark::DoNotOptimize(frame.row(0));
    });
}

void rgbToYuv(benchmark::State& state, AVPixelFormat format, Depth depth) {
    const Frame frame({kWidth, kHeight}, depth);
    const AvFrame packed = media::newPicture(kWidth, kHeight, packedFormat(depth));
    media::packRgb(frame, *packed);
    media::FrameToYuv convert(frame.size(), {format, AVCOL_SPC_BT709});
    compareWithScaler(state, *packed, format, [&] {
        const AvFrame picture = convert.convert(frame);
        benchmark::DoNotOptimize(picture->data[0]);
    });
}

#define RUVEX_YUV_BENCH(format, depth)                                                \
    BENCHMARK_CAPTURE(yuvToRgb, format, AV_PIX_FMT_##format, depth)->UseManualTime(); \
    BENCHMARK_CAPTURE(rgbToYuv, format, AV_PIX_FMT_##format, depth)->UseManualTime()

RUVEX_YUV_BENCH(YUV420P, Depth::Bits8);
RUVEX_YUV_BENCH(YUV444P, Depth::Bits8);
RUVEX_YUV_BENCH(YUV420P10LE, Depth::S214);
RUVEX_YUV_BENCH(YUV422P10LE, Depth::S214);
RUVEX_YUV_BENCH(YUV444P10LE, Depth::S214);

#undef RUVEX_YUV_BENCH

}  // namespace
}  // namespace ruvex::bench
