// Subsampled chroma: its places, its filter, and its edges.

extern "C" {
#include <libavutil/opt.h>
}

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <tuple>

#include "media/av_library.h"
#include "media/pixels/chroma_resampler.h"
#include "media/pixels/plane_line.h"
#include "media/pixels/yuv_convert.h"
#include "tests/media/test_clips.h"

namespace ruvex::media {
namespace {

/// The axes of formats: chroma at each luma sample, on the first of two, between two, in a field.
constexpr ChromaAxis kAxes[] = {{0, 0}, {1, 0}, {1, 0.5}, {1, 0.25}, {1, 0.75}, {1, 1}, {2, 1.5}};

/// The filtered samples, each a quotient of two integers.
std::vector<double> resampled(const ChromaResampler& resampler, const std::vector<double>& from) {
    std::vector<double> to;
    for (int i = 0; i < resampler.outputs(); ++i) {
        double sum = 0;
        int at = resampler.first(i);
        for (const int weight : resampler.weights(i)) {
            const int last = static_cast<int>(from.size()) - 1;
            sum += weight * from[static_cast<std::size_t>(std::clamp(at++, 0, last))];
        }
        to.push_back(sum / resampler.unit());
    }
    return to;
}

// Keys' cubic by its definition, at the places of the samples.
TEST(ChromaResampler, HasTheWeightsOfTheCubic) {
    const auto cubic = [](double d) {
        constexpr double kA = -0.6;
        if (d < 1) return (kA + 2) * d * d * d - (kA + 3) * d * d + 1;
        return d < 2 ? kA * (d * d * d - 5 * d * d + 8 * d - 4) : 0.0;
    };
    const auto expectWeights = [&](const ChromaResampler& resampler, int i, double centre,
                                   int stretch) {
        int at = resampler.first(i);
        for (const int weight : resampler.weights(i)) {
            const double share = static_cast<double>(weight) / resampler.unit();
            ASSERT_NEAR(share, cubic(std::abs(at++ - centre) / stretch) / stretch, 1e-12);
        }
    };
    for (const ChromaAxis& axis : kAxes) {
        if (axis.log2Step == 0) continue;
        constexpr int kLuma = 40;
        const int step = 1 << axis.log2Step;
        const auto down = ChromaResampler::decimator(axis, kLuma);
        const auto up = ChromaResampler::interpolator(axis, kLuma);
        for (int i = 0; i < down.outputs(); ++i) {
            expectWeights(down, i, i * step + axis.offset, step);
        }
        for (int i = 0; i < up.outputs(); ++i) {
            expectWeights(up, i, (i - axis.offset) / step, 1);
        }
    }
}

TEST(ChromaResampler, KeepsAreasOfOneValueAtAnySize) {
    for (const ChromaAxis& axis : kAxes) {
        for (int luma = 1; luma < 40; ++luma) {
            const int chroma = axis.count(luma);
            const auto down = ChromaResampler::decimator(axis, luma);
            const auto up = ChromaResampler::interpolator(axis, luma);
            ASSERT_EQ(down.inputs(), luma);
            ASSERT_EQ(down.outputs(), chroma);
            ASSERT_EQ(up.inputs(), chroma);
            ASSERT_EQ(up.outputs(), luma);
            const auto count = [](int n) { return static_cast<std::size_t>(n); };
            for (const double v : resampled(down, std::vector<double>(count(luma), 77))) {
                ASSERT_EQ(v, 77) << luma;
            }
            for (const double v : resampled(up, std::vector<double>(count(chroma), 77))) {
                ASSERT_EQ(v, 77) << luma;
            }
        }
    }
}

TEST(ChromaResampler, NoSumExceedsTheGain) {
    for (const ChromaAxis& axis : kAxes) {
        for (const auto& resampler :
             {ChromaResampler::decimator(axis, 24), ChromaResampler::interpolator(axis, 24)}) {
            int most = 0;
            for (int i = 0; i < resampler.outputs(); ++i) {
                int sum = 0;
                int absolute = 0;
                for (const int weight : resampler.weights(i)) {
                    sum += weight;
                    absolute += std::abs(weight);
                }
                ASSERT_EQ(sum, resampler.unit());
                most = std::max(most, absolute);
            }
            EXPECT_EQ(resampler.gain(), most);
        }
    }
}

// A ramp shows where samples lie: away from the edges the value is the place.
TEST(ChromaResampler, PutsSamplesWhereTheAxisSays) {
    constexpr int kLuma = 64;
    for (const ChromaAxis& axis : kAxes) {
        std::vector<double> luma(kLuma);
        for (std::size_t i = 0; i < luma.size(); ++i) luma[i] = static_cast<double>(i);
        const auto chroma = resampled(ChromaResampler::decimator(axis, kLuma), luma);
        const int step = 1 << axis.log2Step;
        for (std::size_t i = 4; i + 4 < chroma.size(); ++i) {
            EXPECT_NEAR(chroma[i], static_cast<double>(i) * step + axis.offset, 0.02 * step);
        }
        std::vector<double> places(chroma.size());
        for (std::size_t i = 0; i < places.size(); ++i) {
            places[i] = static_cast<double>(i) * step + axis.offset;
        }
        const auto back = resampled(ChromaResampler::interpolator(axis, kLuma), places);
        for (std::size_t i = 8; i + 8 < back.size(); ++i) {
            EXPECT_NEAR(back[i], static_cast<double>(i), 0.1 * step);
        }
    }
}

// Outside of the picture its outermost sample counts.
TEST(ChromaResampler, RepeatsTheEdge) {
    const ChromaAxis left{1, 0};
    const std::vector<double> narrow{10, 20, 30};
    const std::vector<double> wide{10, 10, 10, 10, 10, 20, 30, 30, 30, 30, 30};
    const auto few = resampled(ChromaResampler::decimator(left, 3), narrow);
    const auto many = resampled(ChromaResampler::decimator(left, 11), wide);
    ASSERT_EQ(few.size(), 2u);
    EXPECT_EQ(few[0], many[2]);
    EXPECT_EQ(few[1], many[3]);
}

TEST(ChromaGrid, OfAFieldHasItsOwnLines) {
    const ChromaGrid grid = chromaGrid(AV_PIX_FMT_YUV420P, AVCHROMA_LOC_LEFT);
    EXPECT_EQ(pictureLines(grid, 48, false).size(), 1u);
    EXPECT_EQ(pictureLines(grid, 46, true).size(), 1u) << "fields cannot share its 23 lines";
    EXPECT_EQ(pictureLines(chromaGrid(AV_PIX_FMT_YUV422P, AVCHROMA_LOC_LEFT), 48, true).size(), 1u);
    const auto fields = pictureLines(grid, 48, true);
    ASSERT_EQ(fields.size(), 2u);
    for (int field = 0; field < 2; ++field) {
        const PictureLines& lines = fields[static_cast<std::size_t>(field)];
        EXPECT_EQ(lines.first, field);
        EXPECT_EQ(lines.step, 2);
        EXPECT_EQ(lines.count, 24);
        EXPECT_EQ(lines.down.offset, field == 0 ? 0.25 : 0.75);
    }
}

/// The frame as the FFmpeg libraries' scaler converts it to BT.709 of limited range and 8 bits. It
/// has the same filter, but its arithmetic is not exact.
AvFrame scaled(const Frame& frame, AVPixelFormat to, int across, int down) {
    AvFrame rgb = newPicture(frame.width(), frame.height(), AV_PIX_FMT_RGBA);
    packRgb(frame, *rgb);
    const Scaler scaler(sws_alloc_context());
    for (const auto& [name, value] :
         {std::pair<const char*, int>{"srcw", frame.width()},
          {"srch", frame.height()},
          {"src_format", AV_PIX_FMT_RGBA},
          {"dstw", frame.width()},
          {"dsth", frame.height()},
          {"dst_format", to},
          {"dst_h_chr_pos", across},
          {"dst_v_chr_pos", down},
          {"sws_flags", SWS_BICUBIC | SWS_ACCURATE_RND | SWS_BITEXACT | SWS_FULL_CHR_H_INP}}) {
        EXPECT_EQ(av_opt_set_int(scaler.get(), name, value, 0), 0) << name;
    }
    EXPECT_GE(sws_init_context(scaler.get(), nullptr, nullptr), 0);
    const int* bt709 = sws_getCoefficients(AVCOL_SPC_BT709);
    sws_setColorspaceDetails(scaler.get(), bt709, 1, bt709, 0, 0, 1 << 16, 1 << 16);
    AvFrame yuv = newPicture(frame.width(), frame.height(), to);
    sws_scale(scaler.get(), rgb->data, rgb->linesize, 0, frame.height(), yuv->data, yuv->linesize);
    return yuv;
}

TEST(ChromaFilter, IsTheOneOfTheScalerForEverySiting) {
    const Frame frame = noiseFrame({64, 48}, Depth::Bits8, 3);
    for (const auto& [format, siting, across, down] :
         {std::tuple{AV_PIX_FMT_YUV420P, AVCHROMA_LOC_LEFT, 0, 128},
          {AV_PIX_FMT_YUV420P, AVCHROMA_LOC_UNSPECIFIED, 0, 128},
          {AV_PIX_FMT_YUV420P, AVCHROMA_LOC_CENTER, 128, 128},
          {AV_PIX_FMT_YUV420P, AVCHROMA_LOC_TOPLEFT, 0, 0},
          {AV_PIX_FMT_YUV420P, AVCHROMA_LOC_TOP, 128, 0},
          {AV_PIX_FMT_YUV420P, AVCHROMA_LOC_BOTTOMLEFT, 0, 256},
          {AV_PIX_FMT_YUV420P, AVCHROMA_LOC_BOTTOM, 128, 256},
          {AV_PIX_FMT_YUV422P, AVCHROMA_LOC_LEFT, 128, 0}}) {
        const AvFrame theirs = scaled(frame, format, across, down);
        FrameToYuv convert(frame.size(), {format, AVCOL_SPC_BT709, false, siting});
        const AvFrame ours = newPicture(frame.width(), frame.height(), format);
        convert.convert(frame, *ours);
        for (const int plane : {1, 2}) {
            for (int y = 0; y < (format == AV_PIX_FMT_YUV420P ? 24 : 48); ++y) {
                for (int x = 0; x < 32; ++x) {
                    ASSERT_NEAR(planeLine(*ours, plane, y)[x], planeLine(*theirs, plane, y)[x], 1)
                        << "siting " << siting << ", plane " << plane << ", " << x << ", " << y;
                }
            }
        }
    }
}

}  // namespace
}  // namespace ruvex::media
