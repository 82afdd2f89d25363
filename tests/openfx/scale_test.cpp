// Render scales: what is drawn at 1/2 and 1/4 is the full frame made smaller, as far as geometry
// goes.
//
// The measure. A frame of 384x288 with large marks is rendered at scale 1 and then made smaller by
// averaging squares of pixels. At scale s the host makes its source smaller in the same way, and
// the plug-in renders that. The looks displace the picture (torn edges, ghosts, offset, roll), but
// have no grain, snow, shash, creeping lines or scanlines, which are drawn pixel by pixel at the
// render's own size. So the two small pictures show the same marks at the same places, but for
// the rounding of displacements to whole pixels, which each size does for itself: an edge may be
// one small pixel off. Therefore:
//  - The mean absolute difference of the pictures is at most kMostDifference. At 1/4 the marks are
//    8 pixels wide and neighbours differ by 60 of 255 on average, so that edges that are all one
//    pixel off on one axis give 60 / 8.
//  - In each band of rows, no horizontal shift of two pixels or more fits clearly better than all
//    smaller ones, and no vertical shift of the whole picture does. A length of the wrong size
//    moves bands or the picture by several pixels.
// The last test shows that the measure finds a wrong project frame, that of the scaled picture.

#include <cmath>
#include <cstdio>
#include <functional>

#include "tests/openfx/built_plug_in.h"

namespace ruvex::ofxhost::test {
namespace {

constexpr int kFullWidth = 384;
constexpr int kFullHeight = 288;
constexpr int kBand = 6;             // rows
constexpr int kMostShift = 8;        // pixels
constexpr double kScaleTime = 13.0;  // frames

/// Large blocks of grey levels that do not repeat; opaque.
Raster marks() {
    constexpr int kBlock = 32;
    Raster raster({0, 0, kFullWidth, kFullHeight}, {});
    for (int y = 0; y < kFullHeight; ++y) {
        for (int x = 0; x < kFullWidth; ++x) {
            const int number = x / kBlock * 7 + y / kBlock * 5 + (x / kBlock) * (y / kBlock);
            std::byte* pixel = raster.row(y) + 4 * x;
            const auto grey = static_cast<std::byte>(40 + number * 53 % 180);
            pixel[0] = pixel[1] = pixel[2] = grey;
            pixel[3] = std::byte{255};
        }
    }
    return raster;
}

/// The mean of each square of pixels.
Raster madeSmaller(const Raster& full, int times) {
    Raster small({0, 0, widthOf(full.bounds) / times, heightOf(full.bounds) / times}, full.format);
    for (int y = 0; y < heightOf(small.bounds); ++y) {
        for (int i = 0; i < widthOf(small.bounds) * 4; ++i) {
            int sum = times * times / 2;
            for (int dy = 0; dy < times; ++dy) {
                for (int dx = 0; dx < times; ++dx) {
                    const int from = (i / 4 * times + dx) * 4 + i % 4;
                    sum += static_cast<int>(full.row(y * times + dy)[from]);
                }
            }
            small.row(y)[i] = static_cast<std::byte>(sum / (times * times));
        }
    }
    return small;
}

/// Mean absolute difference of the green channel in some rows, where `b` is shifted; pixels that
/// only one of them has are left out.
double difference(const Raster& a, const Raster& b, int firstRow, int rows, int dx, int dy) {
    long sum = 0;
    long count = 0;
    for (int y = firstRow; y < firstRow + rows; ++y) {
        if (y + dy < 0 || y + dy >= heightOf(b.bounds)) continue;
        for (int x = std::max(0, -dx); x < widthOf(a.bounds) - std::max(0, dx); ++x) {
            sum += std::abs(static_cast<int>(a.row(y)[4 * x + 1]) -
                            static_cast<int>(b.row(y + dy)[4 * (x + dx) + 1]));
            ++count;
        }
    }
    return count > 0 ? double(sum) / double(count) : 0.0;
}

struct Agreement {
    double difference = 0.0;  ///< Of the whole picture, of 255.
    int shiftedBands = 0;     ///< Bands that fit clearly better further left or right.
    int bands = 0;
    int verticalShift = 0;  ///< Of the picture, where one fits clearly better, in pixels.
};

/// Shifts up to this one are the rounding of displacements, in pixels.
constexpr int kRounding = 1;
/// A larger shift fits clearly better if it leaves less than this part of the difference.
constexpr double kClearlyBetter = 0.5;
/// Rows with less difference are alike, of 255.
constexpr double kNoticed = 3.0;

/// The shift, from -kMostShift to kMostShift, that fits clearly better than all up to kRounding; 0
/// if none does. `differenceAt` gives the difference for a shift.
int betterShift(const std::function<double(int)>& differenceAt) {
    double small = differenceAt(0);
    for (int shift = 1; shift <= kRounding; ++shift) {
        small = std::min({small, differenceAt(shift), differenceAt(-shift)});
    }
    int best = 0;
    double least = small > kNoticed ? kClearlyBetter * small : 0.0;
    for (int shift = -kMostShift; shift <= kMostShift; ++shift) {
        const double shifted = differenceAt(shift);
        if (std::abs(shift) <= kRounding || shifted >= least) continue;
        least = shifted;
        best = shift;
    }
    return best;
}

Agreement agreementOf(const Raster& a, const Raster& b) {
    Agreement result;
    const int height = heightOf(a.bounds);
    result.difference = difference(a, b, 0, height, 0, 0);
    for (int y = 0; y + kBand <= height; y += kBand) {
        const auto inBand = [&](int dx) { return difference(a, b, y, kBand, dx, 0); };
        result.shiftedBands += betterShift(inBand) != 0;
        ++result.bands;
    }
    result.verticalShift = betterShift([&](int dy) { return difference(a, b, 0, height, 0, dy); });
    return result;
}

/// One displacement at its full size, and nothing else.
struct GeometryCase {
    const char* name;
    std::vector<std::pair<const char*, double>> values;
};

std::vector<GeometryCase> geometryCases() {
    return {{"tears", {{"edgeDistortionMax", 60.0}, {"edgeThreshold", 0.0}}},
            {"ghosts", {{"ghostingDistanceMax", 80.0}, {"ghostingThreshold", 0.0}}},
            {"offset", {{"vertOffsetMax", 50.0}, {"vertOffsetThreshold", 0.0}}},
            {"roll", {{"vertRollSpeedMax", 200.0}, {"vertRollThreshold", 0.0}}},
            {"guns", {{"gunAlignGreenX", 24.0}, {"gunAlignGreenY", -16.0}}},
            {"lens", {{"fishEye", 1.0}, {"fishEyeRadius", 150.0}, {"fishEyePower", 60.0}}}};
}

ClipSetup marksClip() {
    ClipSetup clip;
    clip.regionOfDefinition = OfxRectD{0.0, 0.0, kFullWidth, kFullHeight};
    clip.picture = [](double, const OfxPointD& scale) -> std::optional<Raster> {
        return madeSmaller(marks(), static_cast<int>(std::lround(1.0 / scale.x)));
    };
    return clip;
}

Raster scaledFrame(const GeometryCase& geometry, int times, bool wrongFrame) {
    BuiltInstance built(marksClip());
    built.choosePreset("Clean");
    built.instance.set("masterBreakup", 100.0);
    built.instance.set("breakupVariation", 0.0);
    for (const char* none :
         {"snowMax", "shashAmountMax", "colourDegradeMax", "edgeDistortionMax",
          "ghostingDistanceMax", "vertOffsetMax", "vertRollSpeedMax", "lineSpeedMax"}) {
        built.instance.set(none, 0.0);
    }
    built.instance.set("lineThreshold", 100.0);
    built.instance.set("edgeJaggedness", 0.2);
    for (const auto& [name, value] : geometry.values) built.instance.set(name, value);
    if (wrongFrame) {
        built.instance.set("frameWidth", kFullWidth / times);
        built.instance.set("frameHeight", kFullHeight / times);
    }
    RenderArgs args;
    args.time = kScaleTime;
    args.scale = {1.0 / times, 1.0 / times};
    const RenderResult result = built.instance.render(args);
    EXPECT_EQ(result.status, kOfxStatOK);
    return result.output;
}

Agreement agreementAt(const GeometryCase& geometry, int times, bool wrongFrame) {
    const Raster full = scaledFrame(geometry, 1, false);
    EXPECT_NE(full.bytes, marks().bytes) << geometry.name << " displaces something";
    const Agreement agreement =
        agreementOf(madeSmaller(full, times), scaledFrame(geometry, times, wrongFrame));
    std::printf("%-7s 1/%d%s: difference %.2f, shifted bands %d of %d, vertical shift %d\n",
                geometry.name, times, wrongFrame ? " wrong frame" : "", agreement.difference,
                agreement.shiftedBands, agreement.bands, agreement.verticalShift);
    return agreement;
}

constexpr double kMostDifference = 8.0;  // of 255

TEST(Scale, SmallRendersHaveTheGeometryOfTheFullOne) {
    for (const GeometryCase& geometry : geometryCases()) {
        for (const int times : {2, 4}) {
            const Agreement agreement = agreementAt(geometry, times, false);
            EXPECT_LE(agreement.difference, kMostDifference) << geometry.name;
            EXPECT_EQ(agreement.shiftedBands, 0) << geometry.name;
            EXPECT_EQ(agreement.verticalShift, 0) << geometry.name;
        }
    }
}

/// A part of a picture as a picture of its own, from (0, 0).
Raster cutOut(const Raster& raster, const OfxRectI& rect) {
    Raster part = raster.part(rect);
    part.bounds = {0, 0, widthOf(rect), heightOf(rect)};
    return part;
}

TEST(Scale, TheMeasureFindsShiftsBeyondTheRounding) {
    const Raster small = madeSmaller(marks(), 4);
    const int width = widthOf(small.bounds);
    const int height = heightOf(small.bounds);
    for (const int shift : {1, 2, 5}) {
        const Agreement across = agreementOf(cutOut(small, {0, 0, width - shift, height}),
                                             cutOut(small, {shift, 0, width, height}));
        const Agreement upwards = agreementOf(cutOut(small, {0, shift, width, height}),
                                              cutOut(small, {0, 0, width, height - shift}));
        const bool found = shift > kRounding;
        EXPECT_EQ(upwards.verticalShift, found ? shift : 0);
        // Some bands have marks with little contrast.
        const int least = across.bands * 3 / 4;
        EXPECT_TRUE(found ? across.shiftedBands >= least : across.shiftedBands == 0) << shift;
    }
}

TEST(Scale, TheMeasureFindsAFrameThatIsScaledWithThePicture) {
    for (const GeometryCase& geometry : geometryCases()) {
        for (const int times : {2, 4}) {
            const Agreement agreement = agreementAt(geometry, times, true);
            EXPECT_GT(agreement.difference, 2.0 * kMostDifference) << geometry.name;
        }
    }
}

}  // namespace
}  // namespace ruvex::ofxhost::test
