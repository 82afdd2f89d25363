// Pictures wherever and however a host keeps them: parts, bounds, rows, components, premultiplied.

#include <random>

#include "tests/openfx/built_plug_in.h"
#include "tests/openfx/reference_clip.h"

namespace ruvex::ofxhost::test {
namespace {

constexpr int kWide = 60;
constexpr int kHigh = 44;
constexpr double kTime = 3.0;

/// Renders with "Bad Colour TV" at kTime.
RenderResult renderedBad(InstanceSetup setup, RenderArgs args = {}) {
    BuiltInstance built(std::move(setup));
    built.choosePreset("Bad Colour TV");
    args.time = kTime;
    return built.instance.render(args);
}

TEST(Layout, PartsAreCutFromTheWholePicture) {
    BuiltInstance built(noiseClip(kWide, kHigh));
    built.choosePreset("Bad Colour TV");
    RenderArgs args;
    args.time = kTime;
    const Raster whole = built.instance.render(args).output;
    std::mt19937 random(5);
    for (int i = 0; i < 12; ++i) {
        const auto below = [&](int limit) { return static_cast<int>(random() % unsigned(limit)); };
        const int x = below(kWide), y = below(kHigh);
        args.window = {x, y, x + 1 + below(kWide - x), y + 1 + below(kHigh - y)};
        args.outputBounds = i % 2 == 0 ? OfxRectI{} : args.window;  // tight or whole
        args.layout = {i % 3 * 4, i % 4 == 1};
        const RenderResult result = built.instance.render(args);
        ASSERT_EQ(result.status, kOfxStatOK);
        EXPECT_EQ(result.output.part(args.window).bytes, whole.part(args.window).bytes) << i;
    }
}

TEST(Layout, RowsMayBePaddedAndInEitherOrder) {
    const ClipSetup clip = noiseClip(kWide, kHigh);
    const Raster expected = renderedBad(setupFor(clip)).output;
    for (const bool topDown : {false, true}) {
        for (const int padding : {0, 4, 36}) {
            ClipSetup other = clip;
            other.layout = {padding, topDown};
            RenderArgs args;
            args.layout = {padding == 4 ? 0 : padding, !topDown};
            EXPECT_EQ(renderedBad(setupFor(other), args).output.bytes, expected.bytes);
        }
    }
}

TEST(Layout, PixelsOutsideTheFrameAreTransparentBlack) {
    const ClipSetup clip = noiseClip(kWide, kHigh);
    const Raster expected = renderedBad(setupFor(clip)).output;
    RenderArgs args;
    args.window = {-5, -3, kWide + 7, kHigh + 2};
    args.outputBounds = {-9, -9, kWide + 9, kHigh + 9};
    const RenderResult result = renderedBad(setupFor(clip), args);
    ASSERT_EQ(result.status, kOfxStatOK);
    EXPECT_EQ(result.output.part({0, 0, kWide, kHigh}).bytes, expected.bytes);
    for (const OfxRectI& beside : {OfxRectI{-5, -3, 0, kHigh + 2}, OfxRectI{kWide, 0, kWide + 7, 3},
                                   OfxRectI{0, kHigh, kWide, kHigh + 2}}) {
        const Raster part = result.output.part(beside);
        EXPECT_EQ(part.bytes, std::vector<std::byte>(part.bytes.size(), std::byte{0}));
    }
}

TEST(Layout, AFrameMayBeginAnywhere) {
    const ClipSetup clip = noiseClip(kWide, kHigh);
    const Raster expected = renderedBad(setupFor(clip)).output;
    for (const auto& [x, y] : {std::pair{30, 17}, std::pair{-12, -40}}) {
        ClipSetup moved = clip;
        moved.regionOfDefinition =
            OfxRectD{double(x), double(y), x + double(kWide), y + double(kHigh)};
        moved.picture = [&, x = x, y = y](double time, const OfxPointD& scale) {
            auto raster = clip.picture(time, scale);
            raster->bounds = {x, y, x + kWide, y + kHigh};
            return raster;
        };
        EXPECT_EQ(renderedBad(setupFor(moved)).output.bytes, expected.bytes);
    }
}

TEST(Layout, TightBoundsCountAsTransparentAround) {
    // The region is the whole frame; the image has only its middle.
    const OfxRectI middle{20, 10, 45, 30};
    ClipSetup whole = noiseClip(kWide, kHigh, {}, false);
    const auto picture = whole.picture;
    ClipSetup tight = whole;
    tight.picture = [=](double time, const OfxPointD& scale) -> std::optional<Raster> {
        return picture(time, scale)->part(middle);
    };
    whole.picture = [=](double time, const OfxPointD& scale) -> std::optional<Raster> {
        const Raster part = picture(time, scale)->part(middle);
        Raster around({0, 0, kWide, kHigh}, part.format);
        for (int y = middle.y1; y < middle.y2; ++y) {
            std::memcpy(around.row(y) + middle.x1 * 4, part.row(y), part.rowBytes());
        }
        return around;
    };
    EXPECT_EQ(renderedBad(setupFor(tight)).output.bytes, renderedBad(setupFor(whole)).output.bytes);
}

TEST(Layout, RgbIsAnOpaquePicture) {
    const PixelFormat rgb{kOfxBitDepthByte, kOfxImageComponentRGB, kOfxImageOpaque};
    const ClipSetup opaque = noiseClip(kWide, kHigh);
    ClipSetup colours = opaque;
    colours.format = rgb;
    colours.picture = [&](double time, const OfxPointD& scale) -> std::optional<Raster> {
        const Raster rgba = *opaque.picture(time, scale);
        Raster raster(rgba.bounds, rgb);
        for (std::size_t i = 0; i < rgba.bytes.size() / 4; ++i) {
            std::memcpy(raster.bytes.data() + 3 * i, rgba.bytes.data() + 4 * i, 3);
        }
        return raster;
    };
    const Raster expected = renderedBad(setupFor(opaque)).output;
    const Raster result = renderedBad(setupFor(colours)).output;
    for (std::size_t i = 0; i < expected.bytes.size() / 4; ++i) {
        ASSERT_EQ(std::memcmp(result.bytes.data() + 3 * i, expected.bytes.data() + 4 * i, 3), 0);
    }
}

TEST(Layout, PremultipliedColoursAreDividedAndMultipliedAgain) {
    // Alphas of 0 and 255 alone, for which premultiplied colours are exact.
    ClipSetup straight = noiseClip(kWide, kHigh, {}, false);
    const auto picture = straight.picture;
    const auto twoAlphas = [picture](double time, const OfxPointD& scale) -> std::optional<Raster> {
        auto raster = picture(time, scale);
        for (std::size_t at = 0; at < raster->bytes.size(); at += 4) {
            const bool seen = (raster->bytes[at + 3] & std::byte{1}) != std::byte{0};
            raster->bytes[at + 3] = seen ? std::byte{255} : std::byte{0};
            if (!seen) std::memset(raster->bytes.data() + at, 0, 3);
        }
        return raster;
    };
    straight.picture = twoAlphas;
    ClipSetup premultiplied = straight;
    premultiplied.format.premultiplication = kOfxImagePreMultiplied;
    premultiplied.picture = [=](double time, const OfxPointD& scale) {
        auto raster = twoAlphas(time, scale);
        raster->format.premultiplication = kOfxImagePreMultiplied;
        return raster;
    };
    const Raster expected = renderedBad(setupFor(straight)).output;
    const Raster result = renderedBad(setupFor(premultiplied)).output;
    int compared = 0;
    for (std::size_t at = 0; at < result.bytes.size(); at += 4) {
        ASSERT_EQ(result.bytes[at + 3], expected.bytes[at + 3]);
        const auto alpha = static_cast<int>(result.bytes[at + 3]);
        for (std::size_t c = at; c < at + 3; ++c) {
            const int full = static_cast<int>(expected.bytes[c]);
            ASSERT_NEAR(static_cast<int>(result.bytes[c]), full * alpha / 255.0, 0.75);
            ++compared;
        }
    }
    EXPECT_GT(compared, 0);
}

TEST(Layout, ASourceThatIsNotConnectedIsTransparentBlack) {
    ClipSetup none = noiseClip(kWide, kHigh);
    none.connected = false;
    ClipSetup black = noiseClip(kWide, kHigh);
    black.picture = [](double, const OfxPointD&) -> std::optional<Raster> {
        return Raster({0, 0, kWide, kHigh}, {});
    };
    const RenderResult result = renderedBad(setupFor(none));
    EXPECT_EQ(result.status, kOfxStatOK);
    EXPECT_EQ(result.output.bytes, renderedBad(setupFor(black)).output.bytes);
}

}  // namespace
}  // namespace ruvex::ofxhost::test
