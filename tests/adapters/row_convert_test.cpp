#include "adapters/common/row_convert.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <numeric>
#include <vector>

#include "sdk/images/sample_convert.h"

namespace ruvex::adapters {
namespace {

constexpr auto kStraight = HostAlpha::Straight;
constexpr auto kPremultiplied = HostAlpha::Premultiplied;
constexpr std::byte kGuard{0xA5};

template <class Host>
constexpr SampleType kSamplesOf = sizeof(Host) == 1   ? SampleType::Bits8
                                  : sizeof(Host) == 2 ? SampleType::Bits16
                                                      : SampleType::Float;

template <class Host>
PixelForm formOf(HostAlpha alpha, Components components = Components::Rgba) {
    return {kSamplesOf<Host>, components, alpha};
}

/// Reads a row of the host from memory without alignment.
template <class Image, class Host>
std::vector<Image> imageRow(const std::vector<Host>& host, PixelForm form) {
    const auto width = host.size() / componentCount(form.components);
    std::vector<std::byte> memory(1 + host.size() * sizeof(Host));
    std::memcpy(memory.data() + 1, host.data(), host.size() * sizeof(Host));
    std::vector<Image> row(width * kImageChannels);
    readRow(memory.data() + 1, form, static_cast<int>(width), row.data());
    return row;
}

/// Writes a row into memory without alignment, and checks that the bytes around it are kept.
template <class Host, class Image>
std::vector<Host> hostRow(const std::vector<Image>& image, PixelForm form) {
    const auto width = image.size() / kImageChannels;
    std::vector<Host> row(width * componentCount(form.components));
    std::vector<std::byte> memory(2 + row.size() * sizeof(Host), kGuard);
    writeRow(image.data(), form, static_cast<int>(width), memory.data() + 1);
    EXPECT_EQ(memory.front(), kGuard);
    EXPECT_EQ(memory.back(), kGuard);
    std::memcpy(row.data(), memory.data() + 1, row.size() * sizeof(Host));
    return row;
}

/// Pixels whose colours are `value`, `value` + 1 and `value` + 2 (from `last` on again `first`),
/// for every value from `first` to `last`.
template <class Sample>
std::vector<Sample> everyColour(Sample alpha) {
    constexpr int kFirst = std::numeric_limits<Sample>::min();
    constexpr int kCount = std::numeric_limits<Sample>::max() - kFirst + 1;
    std::vector<Sample> row;
    for (int i = 0; i < kCount; ++i) {
        for (int channel = 0; channel < kAlphaChannel; ++channel) {
            row.push_back(static_cast<Sample>(kFirst + (i + channel) % kCount));
        }
        row.push_back(alpha);
    }
    return row;
}

/// Compares each pixel of `row` with `colour(from, alpha)` and `alpha(alpha)` of `from`.
template <class To, class From, class Colour, class Alpha>
void expectPixels(const std::vector<To>& row, const std::vector<From>& from, Colour colour,
                  Alpha alpha) {
    ASSERT_EQ(row.size(), from.size());
    for (std::size_t i = 0; i < row.size(); ++i) {
        const From own = from[i];
        const From ownAlpha = from[i | std::size_t{kAlphaChannel}];
        const To wanted = static_cast<To>(
            i % kImageChannels == kAlphaChannel ? alpha(ownAlpha) : colour(own, ownAlpha));
        ASSERT_EQ(row[i], wanted) << "component " << i << ": " << +own << ", alpha " << +ownAlpha;
    }
}

/// Rounded to the nearest, halves away from 0, and held.
double nearest(double value, double least, double most) {
    return std::clamp(std::round(value), least, most);
}
double nearestS214(double value) {
    return nearest(value, -32768, 32767);
}

/// S2.14 from a unit value in the default rounding mode.
double s214OfUnit(double value) {
    if (std::isnan(value)) return 0;
    return std::nearbyint(std::clamp(value * kWhiteS214, -32768.0, 32767.0));
}

const std::vector<std::int16_t>& s214Alphas() {
    static const std::vector<std::int16_t> all = {
        0, 1, -1, 2, 3, 100, 8191, 8192, 12345, 16383, 16384, 16385, 30000, 32767, -16384, -32768};
    return all;
}

TEST(RowConvert, EightBitsStayWhatTheyAre) {
    const auto host = everyColour<std::uint8_t>(77);
    EXPECT_EQ(imageRow<std::uint8_t>(host, formOf<std::uint8_t>(kStraight)), host);
    EXPECT_EQ(hostRow<std::uint8_t>(host, formOf<std::uint8_t>(kStraight)), host);
}

TEST(RowConvert, EightPremultipliedBitsAreDividedAndMultiplied) {
    const PixelForm form = formOf<std::uint8_t>(kPremultiplied);
    for (int a = 0; a < 256; ++a) {
        const auto host = everyColour(static_cast<std::uint8_t>(a));
        const auto same = [](int alpha) { return alpha; };
        expectPixels(
            imageRow<std::uint8_t>(host, form), host,
            [](double colour, double alpha) {
                return alpha == 0 ? 0 : nearest(colour * 255 / alpha, 0, 255);
            },
            same);
        expectPixels(
            hostRow<std::uint8_t>(host, form), host,
            [](double colour, double alpha) { return nearest(colour * alpha / 255, 0, 255); },
            same);
    }
}

TEST(RowConvert, EightBitsBecomeS214) {
    for (int a = 0; a < 256; ++a) {
        const auto host = everyColour(static_cast<std::uint8_t>(a));
        const auto white = [](int value) { return s214From8(static_cast<std::uint8_t>(value)); };
        expectPixels(
            imageRow<std::int16_t>(host, formOf<std::uint8_t>(kStraight)), host,
            [&](int colour, int) { return white(colour); }, white);
        expectPixels(
            imageRow<std::int16_t>(host, formOf<std::uint8_t>(kPremultiplied)), host,
            [](double colour, double alpha) {
                return alpha == 0 ? 0 : nearestS214(colour / (alpha / 255) * (16384.0 / 255));
            },
            white);
    }
}

TEST(RowConvert, SixteenBitsBecomeS214) {
    for (const int a : {0, 1, 2, 3, 4, 255, 256, 1000, 20000, 32768, 65533, 65534, 65535}) {
        const auto host = everyColour(static_cast<std::uint16_t>(a));
        const auto white = [](int value) { return s214From16(static_cast<std::uint16_t>(value)); };
        expectPixels(
            imageRow<std::int16_t>(host, formOf<std::uint16_t>(kStraight)), host,
            [&](int colour, int) { return white(colour); }, white);
        expectPixels(
            imageRow<std::int16_t>(host, formOf<std::uint16_t>(kPremultiplied)), host,
            [&](int colour, int alpha) {
                const double divisor = white(alpha) / 16384.0;
                return divisor == 0 ? 0 : nearestS214(white(colour) / divisor);
            },
            white);
    }
}

TEST(RowConvert, S214BecomesUnsigned) {
    for (const std::int16_t a : s214Alphas()) {
        const auto image = everyColour(a);
        const auto bits16 = [](double value) { return nearest(value * 65535 / 16384, 0, 65535); };
        const auto bits8 = [](double value) { return nearest(value * 255 / 16384, 0, 255); };
        expectPixels(
            hostRow<std::uint16_t>(image, formOf<std::uint16_t>(kStraight)), image,
            [&](int colour, int) { return bits16(colour); }, bits16);
        expectPixels(
            hostRow<std::uint8_t>(image, formOf<std::uint8_t>(kStraight)), image,
            [&](int colour, int) { return bits8(colour); }, bits8);
        // Of 16 bits the product is S2.14 first.
        expectPixels(
            hostRow<std::uint16_t>(image, formOf<std::uint16_t>(kPremultiplied)), image,
            [&](double colour, double alpha) {
                return bits16(nearestS214(colour * alpha / 16384));
            },
            bits16);
        expectPixels(
            hostRow<std::uint8_t>(image, formOf<std::uint8_t>(kPremultiplied)), image,
            [&](double colour, double alpha) { return bits8(colour * alpha / 16384); }, bits8);
    }
}

TEST(RowConvert, S214BecomesFloats) {
    const auto unit = [](double value) { return value / 16384; };
    for (const std::int16_t a : s214Alphas()) {
        const auto image = everyColour(a);
        expectPixels(
            hostRow<float>(image, formOf<float>(kStraight)), image,
            [&](int colour, int) { return unit(colour); }, unit);
        expectPixels(
            hostRow<float>(image, formOf<float>(kPremultiplied)), image,
            [&](int colour, int alpha) { return unit(colour) * unit(alpha); }, unit);
    }
}

TEST(RowConvert, FloatsGiveBackEveryS214Value) {
    for (const HostAlpha form : {kStraight, kPremultiplied}) {
        for (const std::int16_t a : s214Alphas()) {
            if (a == 0 && form == kPremultiplied) continue;
            const auto image = everyColour(a);
            EXPECT_EQ(imageRow<std::int16_t>(hostRow<float>(image, formOf<float>(form)),
                                             formOf<float>(form)),
                      image);
        }
    }
}

/// Floats at the edges of S2.14 and of their own type, and between two S2.14 values.
std::vector<float> floatEdges() {
    using Limits = std::numeric_limits<float>;
    std::vector<float> edges = {0.0F,  -0.0F, 1.0F,  -1.0F,  2.0F,    -2.0F,    1.99999F,
                                1e30F, 0.1F,  0.33F, 1e-30F, 16384.F, 1e-5F,    -1e-5F,
                                1.5F,  0.5F,  255.F, -3.5F,  1e10F,   0.99999F, 1.00001F};
    for (const float extreme : {Limits::max(), Limits::min(), Limits::denorm_min(),
                                Limits::infinity(), Limits::quiet_NaN(), Limits::epsilon()}) {
        edges.push_back(extreme);
        edges.push_back(-extreme);
    }
    for (const int halves : {-65537, -65536, -65535, -3, -1, 1, 3, 5, 32767, 32769, 65533, 65535}) {
        const float half = static_cast<float>(halves) / 32768;
        edges.insert(edges.end(), {half, std::nextafter(half, -9.F), std::nextafter(half, 9.F)});
    }
    return edges;
}

TEST(RowConvert, FloatsAreRoundedAndHeld) {
    const std::vector<float> edges = floatEdges();
    std::vector<float> host;
    for (const float alpha : edges) {
        for (const float colour : edges) host.insert(host.end(), {colour, -colour, 0.25F, alpha});
    }
    expectPixels(
        imageRow<std::int16_t>(host, formOf<float>(kStraight)), host,
        [](double colour, double) { return s214OfUnit(colour); }, s214OfUnit);
    expectPixels(
        imageRow<std::int16_t>(host, formOf<float>(kPremultiplied)), host,
        [](double colour, double alpha) {
            if (alpha == 0) return 0.0;
            return s214OfUnit(std::isfinite(alpha) ? colour / alpha : colour);
        },
        s214OfUnit);
}

TEST(RowConvert, ManyFloatsAreAsALibraryRoundsThem) {
    std::vector<float> host;
    std::uint32_t seed = 5;
    for (int i = 0; i < 400000; ++i) {
        seed = seed * 1664525U + 1013904223U;
        host.push_back(static_cast<float>(seed) * 0x1p-30F - 2.0F);
    }
    expectPixels(
        imageRow<std::int16_t>(host, formOf<float>(kStraight)), host,
        [](double colour, double) { return s214OfUnit(colour); }, s214OfUnit);
    expectPixels(
        imageRow<std::int16_t>(host, formOf<float>(kPremultiplied)), host,
        [](double colour, double alpha) { return s214OfUnit(colour / alpha); }, s214OfUnit);
}

TEST(RowConvert, AnOpaqueFormIsReadAsWhite) {
    const std::vector<std::uint8_t> bytes = {1, 2, 3, 4, 50, 60, 70, 0};
    EXPECT_EQ(imageRow<std::uint8_t>(bytes, formOf<std::uint8_t>(HostAlpha::Opaque)),
              (std::vector<std::uint8_t>{1, 2, 3, 255, 50, 60, 70, 255}));
    EXPECT_EQ(imageRow<std::int16_t>(std::vector<float>{1, 0, 0.5, 0.25},
                                     formOf<float>(HostAlpha::Opaque)),
              (std::vector<std::int16_t>{16384, 0, 8192, 16384}));
}

TEST(RowConvert, RgbIsOpaqueWhateverTheFormSays) {
    for (const HostAlpha alpha : {kStraight, kPremultiplied, HostAlpha::Opaque}) {
        const PixelForm form8 = formOf<std::uint8_t>(alpha, Components::Rgb);
        const std::vector<std::uint8_t> bytes = {1, 2, 3, 255, 0, 9};
        const auto row8 = imageRow<std::uint8_t>(bytes, form8);
        EXPECT_EQ(row8, (std::vector<std::uint8_t>{1, 2, 3, 255, 255, 0, 9, 255}));
        EXPECT_EQ(hostRow<std::uint8_t>(row8, form8), bytes);
        const PixelForm form16 = formOf<std::uint16_t>(alpha, Components::Rgb);
        const std::vector<std::uint16_t> words = {0, 65535, 0, 65535, 0, 65535};
        const auto row16 = imageRow<std::int16_t>(words, form16);
        EXPECT_EQ(row16, (std::vector<std::int16_t>{0, 16384, 0, 16384, 16384, 0, 16384, 16384}));
        EXPECT_EQ(hostRow<std::uint16_t>(row16, form16), words);
        const PixelForm formFloat = formOf<float>(alpha, Components::Rgb);
        EXPECT_EQ(hostRow<float>(std::vector<std::int16_t>{8192, -8192, 24576, 100}, formFloat),
                  (std::vector<float>{0.5, -0.5, 1.5}));
    }
}

TEST(RowConvert, AlphaAloneIsGreyWithThatAlpha) {
    for (const HostAlpha alpha : {kStraight, kPremultiplied, HostAlpha::Opaque}) {
        const PixelForm form8 = formOf<std::uint8_t>(alpha, Components::Alpha);
        const auto row8 = imageRow<std::uint8_t>(std::vector<std::uint8_t>{0, 7, 255}, form8);
        EXPECT_EQ(row8, (std::vector<std::uint8_t>{0, 0, 0, 0, 7, 7, 7, 7, 255, 255, 255, 255}));
        EXPECT_EQ(hostRow<std::uint8_t>(std::vector<std::uint8_t>{1, 2, 3, 4}, form8),
                  (std::vector<std::uint8_t>{4}));
        const PixelForm formFloat = formOf<float>(alpha, Components::Alpha);
        EXPECT_EQ(imageRow<std::int16_t>(std::vector<float>{0.5}, formFloat),
                  (std::vector<std::int16_t>(4, 8192)));
        EXPECT_EQ(hostRow<float>(std::vector<std::int16_t>{1, 2, 3, 4096}, formFloat),
                  (std::vector<float>{0.25}));
    }
}

TEST(RowConvert, DeepRowsBecomeEightBitImagesByWayOfS214) {
    const auto host = everyColour<std::uint16_t>(40000);
    for (const HostAlpha alpha : {kStraight, kPremultiplied, HostAlpha::Opaque}) {
        const PixelForm form = formOf<std::uint16_t>(alpha);
        const auto deep = imageRow<std::int16_t>(host, form);
        std::vector<std::uint8_t> wanted(deep.size());
        std::transform(deep.begin(), deep.end(), wanted.begin(), u8FromS214);
        EXPECT_EQ(imageRow<std::uint8_t>(host, form), wanted);
    }
}

TEST(RowConvert, OpaqueRowsAreFoundAndMade) {
    std::vector<std::uint8_t> row8 = {0, 0, 0, 255, 9, 9, 9, 254};
    EXPECT_TRUE(isOpaque(row8.data(), 1));
    EXPECT_FALSE(isOpaque(row8.data(), 2));
    makeOpaque(row8.data(), 2);
    EXPECT_EQ(row8, (std::vector<std::uint8_t>{0, 0, 0, 255, 9, 9, 9, 255}));
    std::vector<std::int16_t> row16 = {0, 0, 0, 16385, 9, 9, 9, 16383};
    EXPECT_TRUE(isOpaque(row16.data(), 1));
    EXPECT_FALSE(isOpaque(row16.data(), 2));
    makeOpaque(row16.data(), 2);
    EXPECT_EQ(row16, (std::vector<std::int16_t>{0, 0, 0, 16384, 9, 9, 9, 16384}));
}

TEST(HostPicture, PixelsHaveTheBytesOfTheirComponents) {
    EXPECT_EQ((PixelForm{SampleType::Bits8, Components::Rgb}.pixelBytes()), 3U);
    EXPECT_EQ((PixelForm{SampleType::Bits16, Components::Rgba}.pixelBytes()), 8U);
    EXPECT_EQ((PixelForm{SampleType::Float, Components::Alpha}.pixelBytes()), 4U);
    EXPECT_EQ((PixelForm{SampleType::Float, Components::Rgba}.pixelBytes()), 16U);
}

TEST(HostPicture, SidesOfAnyRectangleAreDefined) {
    constexpr int kLeast = std::numeric_limits<int>::min();
    constexpr int kMost = std::numeric_limits<int>::max();
    const PixelRect everything{kLeast, kLeast, kMost, kMost};
    EXPECT_EQ(everything.width(), kMost);
    EXPECT_EQ(everything.height(), kMost);
    const PixelRect nothing{kMost, 3, kLeast, 3};
    EXPECT_EQ(nothing.width(), 0);
    EXPECT_EQ(nothing.height(), 0);
    EXPECT_TRUE(nothing.empty());
    EXPECT_EQ(intersection(everything, {1, 2, 3, 4}), (PixelRect{1, 2, 3, 4}));
}

}  // namespace
}  // namespace ruvex::adapters
