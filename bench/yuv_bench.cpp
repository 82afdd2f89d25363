// Conversion of a frame of 1920x1080 between YUV or other pixels and frames, beside the FFmpeg
// libraries' scaler in its bit-exact mode in the same run. One thread.

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <random>
#include <vector>

#include "bench/frames.h"
#include "media/av_library.h"
#include "media/pixels/plane_line.h"
#include "media/pixels/rgb_lines.h"
#include "media/pixels/yuv_pack.h"
#include "media/pixels/yuv_unpack.h"

namespace ruvex::bench {
namespace {

using media::AvFrame;
using media::Depth;
using media::Frame;

constexpr int kScalerFlags =
    SWS_BICUBIC | SWS_ACCURATE_RND | SWS_BITEXACT | SWS_FULL_CHR_H_INT | SWS_FULL_CHR_H_INP;
constexpr media::FrameSize kSize{kWidth, kHeight};

/// Values of `bits` bits that change slowly, with noise: neither flat nor without pattern.
class Values {
public:
    explicit Values(int bits) : top_((1 << bits) - 1) {}

    int at(int x, int y) {
        const int ramp = std::abs((x * 3 + y * 2) % (2 * kWave) - kWave) * top_ / kWave;
        const int noise = static_cast<int>(random_() % 32) - 16;
        return std::clamp(ramp + noise * (top_ + 1) / 256, 0, top_);
    }

private:
    static constexpr int kWave = 900;
    int top_;
    std::minstd_rand random_;
};

template <typename Word>
void fillPlane(AVFrame& picture, int plane, int width, int height, int bits) {
    Values values(bits);
    for (int y = 0; y < height; ++y) {
        Word* line = media::planeLine<Word>(picture, plane, y);
        for (int x = 0; x < width; ++x) line[x] = static_cast<Word>(values.at(x + 100 * plane, y));
    }
}

AvFrame yuvPicture(AVPixelFormat format) {
    AvFrame picture = media::newPicture(kWidth, kHeight, format);
    const media::ChromaGrid grid = media::chromaGrid(format, AVCHROMA_LOC_LEFT);
    const int bits = media::bitsPerComponent(format);
    for (int plane = 0; plane < 3; ++plane) {
        const int width = plane == 0 ? kWidth : grid.across.count(kWidth);
        const int height = plane == 0 ? kHeight : grid.down.count(kHeight);
        if (bits == 8) {
            fillPlane<std::uint8_t>(*picture, plane, width, height, bits);
        } else {
            fillPlane<std::uint16_t>(*picture, plane, width, height, bits);
        }
    }
    return picture;
}

Frame variedFrame(Depth depth) {
    Frame frame(kSize, depth);
    Values values(depth == Depth::Bits8 ? 8 : 14);
    for (int y = 0; y < kHeight; ++y) {
        for (int i = 0; i < kWidth * media::kChannels; ++i) {
            const int value = values.at(i / 4 + 200 * (i % 4), y);
            if (depth == Depth::Bits8) {
                frame.row8(y)[i] = static_cast<std::uint8_t>(value);
            } else {
                frame.row16(y)[i] = static_cast<std::int16_t>(value);
            }
        }
    }
    return frame;
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

void yuvToRgb(benchmark::State& state, AVPixelFormat format, Depth depth, bool interlaced) {
    const AvFrame picture = yuvPicture(format);
    media::YuvUnpacker unpacker(
        kSize, format, {.matrix = AVCOL_SPC_BT709, .bits = media::bitsPerComponent(format)},
        AVCHROMA_LOC_LEFT);
    Frame frame(kSize, depth);
    compareWithScaler(state, *picture, packedFormat(depth), [&] {
        unpacker.unpack(*picture, interlaced, frame);
        benchmark::DoNotOptimize(frame.row(0));
    });
}

void rgbToYuv(benchmark::State& state, AVPixelFormat format, Depth depth, bool interlaced) {
    const Frame frame = variedFrame(depth);
    const AvFrame packed = media::newPicture(kWidth, kHeight, packedFormat(depth));
    media::packRgb(frame, *packed);
    media::YuvPacker packer(kSize, {format, AVCOL_SPC_BT709, false, AVCHROMA_LOC_LEFT, interlaced});
    const AvFrame picture = media::newPicture(kWidth, kHeight, format);
    compareWithScaler(state, *packed, format, [&] {
        packer.pack(frame, *picture);
        benchmark::DoNotOptimize(picture->data[0]);
    });
}

#define RUVEX_YUV_BENCH(name, format, depth, interlaced)                                        \
    BENCHMARK_CAPTURE(yuvToRgb, name, AV_PIX_FMT_##format, depth, interlaced)->UseManualTime(); \
    BENCHMARK_CAPTURE(rgbToYuv, name, AV_PIX_FMT_##format, depth, interlaced)->UseManualTime()

RUVEX_YUV_BENCH(420_8, YUV420P, Depth::Bits8, false);
RUVEX_YUV_BENCH(422_8, YUV422P, Depth::Bits8, false);
RUVEX_YUV_BENCH(444_8, YUV444P, Depth::Bits8, false);
RUVEX_YUV_BENCH(420_10, YUV420P10LE, Depth::S214, false);
RUVEX_YUV_BENCH(422_10, YUV422P10LE, Depth::S214, false);
RUVEX_YUV_BENCH(444_10, YUV444P10LE, Depth::S214, false);
RUVEX_YUV_BENCH(420_8_fields, YUV420P, Depth::Bits8, true);
RUVEX_YUV_BENCH(420_10_fields, YUV420P10LE, Depth::S214, true);
RUVEX_YUV_BENCH(420_8_of_S214, YUV420P, Depth::S214, false);
RUVEX_YUV_BENCH(420_10_of_8, YUV420P10LE, Depth::Bits8, false);

#undef RUVEX_YUV_BENCH

/// Pixels of RGB, from a picture into a frame.
void unpackRgb(benchmark::State& state, AVPixelFormat format, Depth depth) {
    const AvFrame picture = media::newPicture(kWidth, kHeight, format);
    for (int plane = 0; plane < 4 && picture->data[plane] != nullptr; ++plane) {
        fillPlane<std::uint8_t>(*picture, plane, picture->linesize[plane], kHeight, 8);
    }
    Frame frame(kSize, depth);
    for (auto _ : state) {
        state.SetIterationTime(processorSeconds([&] {
            media::unpackRgb(*picture, frame);
            benchmark::DoNotOptimize(frame.row(0));
        }));
    }
}

/// The same from a frame into a picture.
void packRgb(benchmark::State& state, AVPixelFormat format, Depth depth) {
    const Frame frame = variedFrame(depth);
    const AvFrame picture = media::newPicture(kWidth, kHeight, format);
    for (auto _ : state) {
        state.SetIterationTime(processorSeconds([&] {
            media::packRgb(frame, *picture);
            benchmark::DoNotOptimize(picture->data[0]);
        }));
    }
}

#define RUVEX_RGB_BENCH(direction, format, depth) \
    BENCHMARK_CAPTURE(direction, format, AV_PIX_FMT_##format, depth)->UseManualTime()

RUVEX_RGB_BENCH(packRgb, RGBA, Depth::Bits8);
RUVEX_RGB_BENCH(packRgb, BGRA, Depth::Bits8);
RUVEX_RGB_BENCH(packRgb, RGBA64LE, Depth::S214);
RUVEX_RGB_BENCH(packRgb, RGBA64BE, Depth::S214);
RUVEX_RGB_BENCH(unpackRgb, RGBA, Depth::Bits8);
RUVEX_RGB_BENCH(unpackRgb, BGRA, Depth::Bits8);
RUVEX_RGB_BENCH(unpackRgb, RGB24, Depth::Bits8);
RUVEX_RGB_BENCH(unpackRgb, GBRP, Depth::Bits8);
RUVEX_RGB_BENCH(unpackRgb, GRAY8, Depth::Bits8);
RUVEX_RGB_BENCH(unpackRgb, RGBA64LE, Depth::S214);
RUVEX_RGB_BENCH(unpackRgb, RGBA64BE, Depth::S214);
RUVEX_RGB_BENCH(unpackRgb, GBRAP16LE, Depth::S214);
RUVEX_RGB_BENCH(unpackRgb, GBRP10LE, Depth::S214);

#undef RUVEX_RGB_BENCH

}  // namespace
}  // namespace ruvex::bench
