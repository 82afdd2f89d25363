// Fields, render scales, parts, places and pixel aspects together. Each picture equals another one
// in which one of them is left out.

#include "tests/openfx/built_plug_in.h"

namespace ruvex::ofxhost::test {
namespace {

constexpr int kColumns = 48;
constexpr int kLines = 36;
constexpr double kFrame = 3.0;
constexpr OfxPointD kHalf{0.5, 0.5};

using Values = std::vector<std::pair<const char*, double>>;

struct Render {
    ClipSetup clip;
    RenderArgs args{};
    Values values{};
};

/// A torn picture at kFrame, or half a frame later.
Raster rendered(const Render& render, double later = 0.0) {
    BuiltInstance built(render.clip);
    built.choosePreset("Bad Colour TV");
    built.instance.set("masterBreakup", 85.0);
    for (const auto& [name, value] : render.values) built.instance.set(name, value);
    RenderArgs args = render.args;
    args.time = kFrame + later;
    const RenderResult result = built.instance.render(args);
    EXPECT_EQ(result.status, kOfxStatOK);
    return result.output;
}

ClipSetup noiseInFields(int width, int height, const char* order = kOfxImageFieldLower) {
    ClipSetup clip = noiseClip(width, height);
    clip.fieldOrder = order;
    return clip;
}

/// The clip with its low left corner at another place; at scale 1 and with square pixels.
ClipSetup movedTo(int x, int y, const ClipSetup& clip) {
    ClipSetup moved = clip;
    moved.regionOfDefinition =
        OfxRectD{double(x), double(y), x + double(kColumns), y + double(kLines)};
    moved.picture = [=, picture = clip.picture](double time, const OfxPointD& scale) {
        auto raster = picture(time, scale);
        raster->bounds = {x, y, x + kColumns, y + kLines};
        return raster;
    };
    return moved;
}

/// The clip with pixels that are twice as wide as high.
ClipSetup withWidePixels(ClipSetup clip) {
    clip.regionOfDefinition->x2 *= 2.0;
    clip.pixelAspect = 2.0;
    return clip;
}

/// The project frame of the whole picture.
Values wholeProject() {
    return {{"frameWidth", kColumns}, {"frameHeight", kLines}};
}

/// The lines of a field within a rectangle; the lower field has the lines with even y.
std::vector<std::byte> linesOf(const Raster& raster, const char* field, const OfxRectI& rect) {
    const Raster part = raster.part(rect);
    const int parity = std::string(field) == kOfxImageFieldLower ? 0 : 1;
    std::vector<std::byte> bytes;
    for (int y = rect.y1; y < rect.y2; ++y) {
        if ((y & 1) != parity) continue;
        bytes.insert(bytes.end(), part.row(y), part.row(y) + part.rowBytes());
    }
    return bytes;
}

std::vector<std::byte> linesOf(const Raster& raster, const char* field) {
    return linesOf(raster, field, raster.bounds);
}

constexpr const char* kBothFields[] = {kOfxImageFieldLower, kOfxImageFieldUpper};

const char* otherField(const char* field) {
    return std::string(field) == kOfxImageFieldLower ? kOfxImageFieldUpper : kOfxImageFieldLower;
}

TEST(Combined, AFieldsPartIsCutFromTheWholeField) {
    for (const char* field : kBothFields) {
        Render render{noiseInFields(kColumns, kLines)};
        render.args.field = field;
        const Raster whole = rendered(render);
        for (const OfxRectI& window : {OfxRectI{5, 7, 30, 20}, OfxRectI{0, 8, kColumns, 9},
                                       OfxRectI{3, 0, 4, kLines}, OfxRectI{9, 11, 48, 36}}) {
            for (const bool tight : {false, true}) {
                render.args.window = window;
                render.args.outputBounds = tight ? window : OfxRectI{};
                const Raster part = rendered(render);
                EXPECT_EQ(linesOf(part, field, window), linesOf(whole, field, window));
                const auto others = linesOf(part, otherField(field), window);
                EXPECT_EQ(others, std::vector<std::byte>(others.size(), kUntouched));
            }
        }
    }
}

TEST(Combined, AFrameThatBeginsAtAnOddLineHasItsFirstLineInTheUpperField) {
    for (const char* field : kBothFields) {
        const Render even{noiseInFields(kColumns, kLines, field), {.field = field}};
        const char* other = otherField(field);
        for (const int y : {17, -5}) {
            const Render odd{movedTo(8, y, noiseInFields(kColumns, kLines, other)),
                             {.field = other}};
            EXPECT_EQ(linesOf(rendered(odd), other), linesOf(rendered(even), field)) << y;
        }
    }
}

TEST(Combined, FieldsAtHalfTheScaleAreThoseOfASmallPictureInTheSameProject) {
    for (const char* field : kBothFields) {
        for (const double later : {0.0, 0.5}) {
            const Render scaled{noiseInFields(kColumns, kLines), {.scale = kHalf, .field = field}};
            const Render small{
                noiseInFields(kColumns / 2, kLines / 2), {.field = field}, wholeProject()};
            const Raster picture = rendered(scaled, later);
            EXPECT_EQ(linesOf(picture, field), linesOf(rendered(small, later), field)) << field;
            const auto others = linesOf(picture, otherField(field));
            EXPECT_EQ(others, std::vector<std::byte>(others.size(), kUntouched));
        }
    }
}

TEST(Combined, APartOfAFieldAtHalfTheScale) {
    for (const char* field : kBothFields) {
        Render render{noiseInFields(kColumns, kLines), {.scale = kHalf, .field = field}};
        const Raster whole = rendered(render);
        const OfxRectI window{5, 3, 20, 16};
        render.args.window = window;
        EXPECT_EQ(linesOf(rendered(render), field, window), linesOf(whole, field, window));
    }
}

TEST(Combined, WidePixelsAtHalfTheScaleAreThoseOfASmallPictureInTheSameProject) {
    const Raster wide = rendered({withWidePixels(noiseClip(kColumns, kLines)), {.scale = kHalf}});
    EXPECT_EQ(widthOf(wide.bounds), kColumns / 2);
    const ClipSetup small = noiseClip(kColumns / 2, kLines / 2);
    EXPECT_EQ(wide.bytes, rendered({withWidePixels(small), {}, wholeProject()}).bytes);
    // The effect knows the shape of the pixels.
    EXPECT_NE(wide.bytes, rendered({small, {}, wholeProject()}).bytes);
}

TEST(Combined, TheProjectFrameMatters) {
    const Raster scaled = rendered({noiseClip(kColumns, kLines), {.scale = kHalf}});
    const ClipSetup small = noiseClip(kColumns / 2, kLines / 2);
    EXPECT_EQ(scaled.bytes, rendered({small, {}, wholeProject()}).bytes);
    EXPECT_NE(scaled.bytes, rendered({small}).bytes);
}

}  // namespace
}  // namespace ruvex::ofxhost::test
