// The noise pictures: values, windows, threads and softness.

#include "imaging/noise/noise_gen.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <random>
#include <vector>

#include "imaging/blur/blur_gauss.h"
#include "imaging/blur/channel_blur_sampler.h"
#include "imaging/kernels/noise_kernels.h"
#include "imaging/noise/gradient_noise_cell.h"
#include "imaging/noise/rgba_noise_gen.h"
#include "imaging/threads.h"

namespace ruvex {
namespace {

using Channel = VxTexture<ChannelInt>;
using Colour = VxTexture<RgbaInt>;

// The hash of a pixel's component, worked out in 64 bits.
std::int32_t plainHash(int x, int y, std::uint32_t seed, int component) {
    const std::int64_t number = std::int64_t{x} * 7907 + std::int64_t{y} * 17387 + seed + component;
    const auto n = static_cast<std::uint64_t>(number) & 0xFFFFFFFFull;
    const std::uint64_t m = ((n << 13) & 0xFFFFFFFFull) ^ n;
    const std::uint64_t inner = (m * m & 0xFFFFFFFFull) * 15731 + 789221;
    const std::uint64_t product = (inner & 0xFFFFFFFFull) * m - 771171059ull;
    return static_cast<std::int32_t>(product & 0x7FFFFFFFull);
}

std::int32_t plainValue(std::int32_t hash, float scale, float offset) {
    return static_cast<std::int32_t>(static_cast<float>(hash) * (scale * 4.656613e-10f) + offset);
}

template <class Texture>
void makeRegion(Texture& texture, int x0, int y0, int x1, int y1) {
    texture.allocateRegion(x0, y0, x1, y1, Contents::Zero);
}

template <class Texture>
bool same(const Texture& a, const Texture& b) {
    for (int y = 0; y < a.y.size; ++y) {
        for (int x = 0; x < a.x.size; ++x) {
            if (!(a.bufferRow(y)[x] == b.bufferRow(y)[x])) return false;
        }
    }
    return true;
}

void setUp(VxNoiseGen& noise, InterruptionRecord& record) {
    noise.seed = 77;
    noise.scale = 400.0f;
    noise.offset = -120.0f;
    noise.interrupt = &record;
}

void setUp(VxRGBANoiseGen& noise, InterruptionRecord& record) {
    noise.seed = 78;
    noise.interrupt = &record;
    const float scales[] = {255.0f, 1000.0f, 16384.0f, 2147483647.0f};
    std::copy(std::begin(scales), std::end(scales), noise.scale);
}

class NoisePictures : public testing::Test {
protected:
    InterruptionRecord record;
};

TEST_F(NoisePictures, ChannelValuesAreTheScaledHashOfTheirPlace) {
    Channel picture;
    makeRegion(picture, -5, 3, 8, 9);
    VxNoiseGen noise;
    setUp(noise, record);
    noise.process(picture);
    for (int y = 3; y <= 9; ++y) {
        for (int x = -5; x <= 8; ++x) {
            ASSERT_EQ(picture.writeAt(x, y)->c[0],
                      plainValue(plainHash(x, y, 77, 0), 400.0f, -120.0f));
        }
    }
}

TEST_F(NoisePictures, ClampLowHoldsValuesAboveZero) {
    Channel picture;
    makeRegion(picture, 0, 0, 30, 5);
    VxNoiseGen noise;
    setUp(noise, record);
    noise.clampLow = true;
    noise.process(picture);
    int zeroes = 0;
    for (int x = 0; x <= 30; ++x) {
        const int expected = std::max(plainValue(plainHash(x, 2, 77, 0), 400.0f, -120.0f), 0);
        EXPECT_EQ(picture.writeAt(x, 2)->c[0], expected);
        zeroes += expected == 0;
    }
    EXPECT_GT(zeroes, 0) << "the test has to meet values below 0";
}

TEST_F(NoisePictures, ColourValuesUseFourNumbersInARow) {
    Colour picture;
    makeRegion(picture, -2, -7, 11, 0);
    VxRGBANoiseGen noise;
    setUp(noise, record);
    noise.alpha = true;
    noise.process(picture);
    EXPECT_EQ(noise.work.data, nullptr) << "without softness nothing stands between";
    for (int y = -7; y <= 0; ++y) {
        for (int x = -2; x <= 11; ++x) {
            for (int k = 0; k < 4; ++k) {
                const float value =
                    static_cast<float>(plainHash(x, y, 78, k)) * (noise.scale[k] * 4.656613e-10f);
                const auto expected =
                    value < 2147483648.0f ? static_cast<std::int32_t>(value) : INT32_MIN;
                ASSERT_EQ(picture.writeAt(x, y)->c[k], expected);
            }
        }
    }
}

TEST_F(NoisePictures, WithoutAlphaTheFourthComponentStays) {
    Colour picture;
    makeRegion(picture, 0, 0, 9, 9);
    picture.writeAt(4, 4)->c[3] = 1234;
    VxRGBANoiseGen noise;
    setUp(noise, record);
    noise.process(picture);
    EXPECT_EQ(picture.writeAt(4, 4)->c[3], 1234);
    EXPECT_NE(picture.writeAt(4, 4)->c[0], 0);
}

// Softness per component: none, even, and uneven.
const float kSoftness[3][4] = {{0, 0, 0, 0}, {4.5f, 4.5f, 4.5f, 4.5f}, {4, 7, 0, 2}};

TEST_F(NoisePictures, AreTheSameForAnyNumberOfThreads) {
    for (const auto& softness : kSoftness) {
        Colour alone;
        Channel channelAlone;
        for (int workers = 1; workers <= 9; ++workers) {
            const WorkerCountScope scope(workers);
            Colour colour;
            makeRegion(colour, 0, 0, 36, 22);
            VxRGBANoiseGen noise;
            setUp(noise, record);
            noise.alpha = true;
            std::copy(std::begin(softness), std::end(softness), noise.blurX);
            noise.process(colour);
            Channel channel;
            makeRegion(channel, 0, 0, 36, 22);
            VxNoiseGen grey;
            setUp(grey, record);
            grey.blurX = softness[0];
            grey.blurY = softness[1];
            grey.process(channel);
            if (workers == 1) {
                alone.refer(colour);
                colour.owned = 0;
                alone.owned = 1;
                channelAlone.refer(channel);
                channel.owned = 0;
                channelAlone.owned = 1;
            } else {
                EXPECT_TRUE(same(alone, colour)) << workers;
                EXPECT_TRUE(same(channelAlone, channel)) << workers;
            }
        }
    }
}

TEST_F(NoisePictures, AWindowLeavesThePixelsInItAsTheyAre) {
    for (const auto& softness : kSoftness) {
        Colour whole;
        makeRegion(whole, 0, 0, 40, 30);
        Colour part;
        makeRegion(part, 0, 0, 40, 30);
        for (Colour* picture : {&whole, &part}) {
            VxRGBANoiseGen noise;
            setUp(noise, record);
            std::copy(std::begin(softness), std::end(softness), noise.blurX);
            if (picture == &part) noise.setWindow(20, 14, 22, 17);
            noise.process(*picture);
        }
        EXPECT_EQ(*part.writeAt(0, 0), RgbaInt{});
        for (int k = 0; k < 3; ++k) {
            // A blur's reach: the window's own margins feed it, so that it meets no edge.
            EXPECT_EQ(part.writeAt(21, 15)->c[k], whole.writeAt(21, 15)->c[k]) << k;
        }
    }
}

TEST_F(NoisePictures, ASizeBeyondTwiceTheMapIsCut) {
    Channel picture;
    makeRegion(picture, 0, 0, 9, 4);
    VxNoiseGen noise;
    setUp(noise, record);
    noise.blurX = 1000.0f;
    noise.blurY = 500.0f;
    noise.process(picture);
    EXPECT_EQ(noise.blurX, 20.0f);
    EXPECT_EQ(noise.blurY, 10.0f);
}

TEST_F(NoisePictures, SoftChannelNoiseIsTheBlurOfNoiseOnAGrownWindow) {
    Channel picture;
    makeRegion(picture, 2, 1, 25, 13);
    VxNoiseGen noise;
    setUp(noise, record);
    noise.scaleX = 1.25f;
    noise.blurX = 5.0f;
    noise.blurY = 2.5f;
    noise.process(picture);
    EXPECT_EQ(noise.work.data, nullptr) << "it is released at the end";

    Channel grown;
    makeRegion(grown, 2 - 4, 1 - 3, 25 + 4, 13 + 3);
    grown.setEdgeMethods(kEdgeWrap, kEdgeWrap);
    VxNoiseGen plain;
    setUp(plain, record);
    plain.process(grown);
    Channel expected;
    makeRegion(expected, 2, 1, 25, 13);
    BlurIntGauss blur;
    blur.setWindow(2, 1, 25, 13);
    blur.radiusX = 5.0f / 1.25f / 3.0f;
    blur.radiusY = 2.5f / 3.0f;
    blur.process(&grown, &expected);
    EXPECT_TRUE(same(picture, expected));
}

TEST_F(NoisePictures, UnevenSoftnessTakesTheChannelBlur) {
    Colour picture;
    makeRegion(picture, 0, 0, 19, 11);
    VxRGBANoiseGen noise;
    setUp(noise, record);
    noise.alpha = true;
    noise.blurX[0] = 3.0f;
    noise.blurX[1] = 6.0f;
    noise.process(picture);

    Colour grown;
    makeRegion(grown, -6, 0, 25, 11);
    VxRGBANoiseGen plain;
    setUp(plain, record);
    plain.alpha = true;
    plain.process(grown);
    Colour expected;
    makeRegion(expected, 0, 0, 19, 11);
    ChannelBlurSampler blur;
    blur.setWindow(0, 0, 19, 11);
    for (auto& size : blur.sizes) size = {0.0f, 0.0f};
    blur.sizes[0].x = 3.0f;
    blur.sizes[1].x = 6.0f;
    blur.process(&grown, &expected);
    EXPECT_TRUE(same(picture, expected));
    EXPECT_NE(picture.writeAt(5, 5)->c[0], grown.writeAt(5, 5)->c[0]);
}

TEST(NoiseKernels, EveryVersionGivesTheSameBits) {
    constexpr int kMost = 67;
    const float factors[] = {255.0f * kHashStep, -3e4f * kHashStep, 1.0f,
                             2147483648.0f * kHashStep};
    for (std::uint32_t number = 0; number < 400; ++number) {
        const int count = static_cast<int>(number % kMost);
        const auto values = [&](const NoiseKernels& kernels) {
            ChannelInt channel[kMost]{};
            RgbaInt colour[2 * kMost]{};
            kernels.channel(number * 2654435761u, count, factors[number % 4], -7.5f, channel);
            kernels.colour(number * 40503u, count, factors, colour);
            kernels.colourWithoutAlpha(~number, count, factors, colour + kMost);
            std::vector<std::int32_t> all;
            for (const ChannelInt& pixel : channel) all.push_back(pixel.c[0]);
            for (const RgbaInt& pixel : colour) all.insert(all.end(), pixel.c, pixel.c + 4);
            return all;
        };
        for (const NoiseKernels* version : noiseKernelVersions().all()) {
            EXPECT_EQ(values(*version), values(plainNoiseKernels())) << number;
        }
    }
}

TEST(NoiseKernels, EveryVersionGivesTheSameFractalNoise) {
    std::mt19937 random(1);
    std::uniform_real_distribution<float> fraction(-1.0f, 1.0f);
    std::vector<float> gradients(kGradientEntries);
    for (float& gradient : gradients) gradient = fraction(random);
    for (int count = 0; count < 70; ++count) {
        std::vector<float> places(static_cast<std::size_t>(count));
        for (float& place : places) place = fraction(random) * 1000.0f;
        const auto values = [&](const NoiseKernels& kernels) {
            std::vector<float> sums(places.size(), 0.25f);
            kernels.octave(gradients.data(), places.data(), count, 2.0f, 7.5f, 0.5f, sums.data());
            std::vector<std::uint32_t> bits;
            for (const float sum : sums) bits.push_back(std::bit_cast<std::uint32_t>(sum));
            return bits;
        };
        for (const NoiseKernels* version : noiseKernelVersions().all()) {
            EXPECT_EQ(values(*version), values(plainNoiseKernels())) << count;
        }
    }
}

// What a call of soften reads and writes.
struct SoftRun {
    static constexpr int kColumns = 40;

    BoxWeights weights;
    NoiseLanes noise{};
    BoxChain chain{};
    std::vector<std::int32_t> inputs[BoxChain::kBoxes];
    std::vector<std::int32_t> outputs;

    SoftRun(float radius, std::mt19937& random) : weights(radius), outputs(kColumns * kNoiseLanes) {
        for (std::uint32_t& number : noise.numbers) number = random();
        for (float& factor : noise.factors) {
            factor = static_cast<float>(random() % 80000) * kHashStep - 4e4f * kHashStep;
        }
        noise.factors[3] = 1e30f;
        noise.step = random();
        const auto span = static_cast<std::size_t>(weights.span) * kNoiseLanes;
        for (int box = 0; box < BoxChain::kBoxes; ++box) {
            inputs[box].resize(span + kColumns * kNoiseLanes);
            for (std::size_t i = 0; i < span; ++i) {
                inputs[box][i] = static_cast<std::int32_t>(random());
                chain.sums[box][i % kNoiseLanes] += static_cast<std::uint32_t>(inputs[box][i]);
            }
        }
    }

    void soften(const NoiseKernels& kernels, int first, int count) {
        for (int box = 0; box < BoxChain::kBoxes; ++box) {
            chain.inputs[box] = inputs[box].data() + first * kNoiseLanes;
        }
        kernels.soften(noise, count, weights, chain, outputs.data() + first * kNoiseLanes);
    }
};

TEST(NoiseKernels, EveryVersionGivesTheSameSoftNoise) {
    std::mt19937 random(2);
    for (const float radius : {0.01f, 0.4f, 1.0f, 2.0f, 2.7f, 11.0f}) {
        for (int repeat = 0; repeat < 20; ++repeat) {
            SoftRun plain(radius, random);
            const SoftRun before = plain;
            plain.soften(plainNoiseKernels(), 0, SoftRun::kColumns);
            for (const NoiseKernels* version : noiseKernelVersions().all()) {
                SoftRun run = before;
                const int part = static_cast<int>(random() % SoftRun::kColumns);
                run.soften(*version, 0, part);
                run.soften(*version, part, SoftRun::kColumns - part);
                EXPECT_EQ(run.outputs, plain.outputs) << radius;
                EXPECT_TRUE(std::equal(std::begin(run.inputs), std::end(run.inputs), plain.inputs));
            }
        }
    }
}

TEST_F(NoisePictures, WantOfMemoryStopsTheRender) {
    Channel picture;
    makeRegion(picture, 0, 0, 29999, 0);
    VxNoiseGen noise;
    setUp(noise, record);
    noise.blurX = 60000.0f;
    noise.blurY = 60000.0f;
    noise.scaleX = 1e-4f;
    noise.process(picture);
    EXPECT_EQ(record.interrupted, 1);
    EXPECT_EQ(record.progress, 1000u);
    EXPECT_EQ(picture.writeAt(7, 0)->c[0], 0);
}

}  // namespace
}  // namespace ruvex
