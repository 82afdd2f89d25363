// Scaling by area averaging, against sums over the parts of pixels that a result pixel covers.

#include "media/pixels/area_scaler.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

#include "media/pixels/alpha.h"
#include "tests/media/test_clips.h"

namespace ruvex::media {
namespace {

int componentOf(const Frame& frame, int x, int line, int channel) {
    const int row = chainRowOfLine(line, frame.height());
    const int at = x * kChannels + channel;
    return frame.depth() == Depth::Bits8 ? frame.row8(row)[at] : frame.row16(row)[at];
}

/// The part of source pixel k that result pixel i covers, in parts of 1 / `to`.
std::int64_t covered(std::int64_t i, std::int64_t k, std::int64_t from, std::int64_t to) {
    return std::max<std::int64_t>(
        0, std::min((i + 1) * from, (k + 1) * to) - std::max(i * from, k * to));
}

struct Sums {
    double value = 0.0;
    double weights = 0.0;
};

/// Over all pixels of the source, whether the result pixel covers them or not.
Sums sumsAt(const Frame& source, const AreaScaling& scaling, int x, int line, int channel) {
    Sums sums;
    for (int v = 0; v < source.height(); ++v) {
        for (int u = 0; u < source.width(); ++u) {
            const auto area = covered(line, v, scaling.from.height, scaling.to.height) *
                              covered(x, u, scaling.from.width, scaling.to.width);
            const int alpha = std::max(0, componentOf(source, u, v, kAlpha));
            const bool weighed = scaling.weighByAlpha && channel != kAlpha;
            const auto weight = static_cast<double>(area * (weighed ? alpha : 1));
            const bool clamped = scaling.weighByAlpha && channel == kAlpha;
            sums.value += weight * (clamped ? alpha : componentOf(source, u, v, channel));
            sums.weights += weight;
        }
    }
    return sums;
}

void expectMeans(const AreaScaling& scaling, Depth depth, unsigned seed) {
    SCOPED_TRACE(toText(scaling.from) + " to " + toText(scaling.to));
    const Frame source = noiseFrame(scaling.from, depth, seed);
    Frame result;
    AreaScaler(scaling).scale(source, result);
    ASSERT_EQ(result.size(), scaling.to);
    ASSERT_EQ(result.depth(), depth);
    for (int line = 0; line < scaling.to.height; ++line) {
        for (int i = 0; i < scaling.to.width * kChannels; ++i) {
            const Sums sums = sumsAt(source, scaling, i / kChannels, line, i % kChannels);
            const double mean = sums.weights > 0 ? sums.value / sums.weights : 0.0;
            ASSERT_EQ(componentOf(result, i / kChannels, line, i % kChannels),
                      std::floor(mean + 0.5))
                << i << ' ' << line;
        }
    }
}

TEST(AreaScaler, GivesTheMeanOfTheAreaThatAPixelCovers) {
    unsigned seed = 1;
    for (const FrameSize to : {FrameSize{12, 9}, {6, 3}, {5, 4}, {1, 1}, {13, 2}, {24, 20}}) {
        for (const Depth depth : {Depth::Bits8, Depth::S214}) {
            for (const bool weighByAlpha : {false, true}) {
                expectMeans({.from = {12, 9}, .to = to, .weighByAlpha = weighByAlpha}, depth,
                            seed++);
            }
        }
    }
}

TEST(AreaScaler, TransparentPixelsGiveNoColour) {
    Frame source({2, 1}, Depth::Bits8);
    const std::uint8_t pixels[] = {200, 100, 50, 255, 1, 2, 3, 0};
    std::ranges::copy(pixels, source.row8(0));
    const Frame result = areaScaled(source, {1, 1});
    EXPECT_EQ(result.row8(0)[0], 200);
    EXPECT_EQ(result.row8(0)[1], 100);
    EXPECT_EQ(result.row8(0)[2], 50);
    EXPECT_EQ(result.row8(0)[kAlpha], 128);
    Frame nothing({2, 1}, Depth::Bits8);
    nothing.row8(0)[0] = 90;
    EXPECT_EQ(areaScaled(nothing, {1, 1}), Frame({1, 1}, Depth::Bits8));
}

/// A picture whose lines get brighter by the same amount each.
Frame ramp(FrameSize size, int step) {
    Frame frame(size, Depth::S214);
    for (int line = 0; line < size.height; ++line) {
        std::int16_t* row = frame.row16(chainRowOfLine(line, size.height));
        std::fill_n(row, size.width * kChannels, static_cast<std::int16_t>(line * step));
    }
    return frame;
}

TEST(AreaScaler, FieldsKeepTheirPlaces) {
    constexpr int kStep = 100;
    constexpr int kEdge = 2;  // Lines that the picture's edges cut.
    for (const int lines : {20, 12, 13, 40}) {
        const FrameSize from{1, 24};
        Frame whole;
        Frame fields;
        AreaScaler({.from = from, .to = {1, lines}}).scale(ramp(from, kStep), whole);
        AreaScaler({.from = from, .to = {1, lines}, .interlaced = true})
            .scale(ramp(from, kStep), fields);
        const int edge = kEdge * std::max(1, lines / from.height);
        for (int line = edge; line < lines - edge; ++line) {
            if (lines > from.height) {
                // Enlarged lines repeat, which a line of a frame does more often than of a field.
                EXPECT_NEAR(componentOf(fields, 0, line, 0), componentOf(whole, 0, line, 0), kStep)
                    << line;
            } else {
                EXPECT_NEAR(componentOf(fields, 0, line, 0), componentOf(whole, 0, line, 0),
                            kStep / 4.0)
                    << lines << ' ' << line;
            }
        }
    }
}

TEST(AreaScaler, FieldsDoNotMix) {
    const FrameSize from{3, 16};
    Frame source(from, Depth::Bits8);
    for (int line = 0; line < from.height; ++line) {
        std::uint8_t* row = source.row8(chainRowOfLine(line, from.height));
        std::fill_n(row, from.width * kChannels, static_cast<std::uint8_t>(line % 2 == 0 ? 7 : 99));
    }
    for (const int lines : {16, 11, 8, 2, 31}) {
        Frame result;
        AreaScaler({.from = from, .to = {2, lines}, .interlaced = true}).scale(source, result);
        for (int line = 0; line < lines; ++line) {
            EXPECT_EQ(componentOf(result, 0, line, 0), line % 2 == 0 ? 7 : 99) << lines;
        }
    }
    Frame same;
    AreaScaler({.from = from, .to = from, .interlaced = true}).scale(source, same);
    EXPECT_EQ(same, source);
}

}  // namespace
}  // namespace ruvex::media
