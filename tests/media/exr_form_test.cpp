// The pixel types and compressions of EXR.

#include <cmath>
#include <gtest/gtest.h>

#include "media/media_error.h"
#include "media/stills/still_file.h"
#include "media/storage_choice.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::media {
namespace {

constexpr ExrCompression kExrCompressions[] = {ExrCompression::None, ExrCompression::Rle,
                                               ExrCompression::Zip1, ExrCompression::Zip16};

/// The nearest half float above 2^-14, by its definition: 11 significant bits, ties to even.
double nearestHalfOf(double value) {
    if (value == 0) return 0;
    const int exponent = std::max(std::ilogb(value), -14);
    const double step = std::ldexp(1.0, exponent - 10);
    return std::nearbyint(value / step) * step;
}

class ExrForms : public testing::TestWithParam<ExrCompression> {};

TEST_P(ExrForms, FloatsAreExact) {
    files::TempFolder folder;
    for (const FrameSize size : kStillSizes) {
        const Frame frame = noiseFrame(size, Depth::S214, 3);
        writeStill(folder.file("a.exr"), frame, {.exr = {ExrPixels::Float, GetParam()}});
        EXPECT_EQ(readStill(folder.file("a.exr")).frame, frame) << toText(size);
    }
}

TEST_P(ExrForms, HalfFloatsAreTheNearest) {
    files::TempFolder folder;
    for (const FrameSize size : kStillSizes) {
        const Frame frame = noiseFrame(size, Depth::S214, 4);
        writeStill(folder.file("a.exr"), frame,
                   {.alpha = AlphaForm::Straight, .exr = {ExrPixels::Half, GetParam()}});
        const Frame back = readStill(folder.file("a.exr"), AlphaForm::Straight).frame;
        ASSERT_EQ(back.size(), size);
        for (int i = 0; i < size.width * size.height * kChannels; ++i) {
            const double exact = frame.row16(0)[i] / static_cast<double>(kWhiteS214);
            const double most = INT16_MAX;
            const double wanted = std::min(nearestHalfOf(exact) * kWhiteS214, most);
            ASSERT_EQ(back.row16(0)[i], wanted) << exact;
        }
    }
}

TEST_P(ExrForms, DamageIsNoticed) {
    files::TempFolder folder;
    for (const ExrPixels pixels : {ExrPixels::Half, ExrPixels::Float}) {
        writeStill(folder.file("a.exr"), noiseFrame({40, 30}, Depth::Bits8, 6),
                   {.exr = {pixels, GetParam()}});
        cutTo(folder.file("a.exr"), 0.7);
        EXPECT_THROW(readStill(folder.file("a.exr")), MediaError);
    }
}

INSTANTIATE_TEST_SUITE_P(Compressions, ExrForms, testing::ValuesIn(kExrCompressions));

// All values of S2.14, and products with alpha down to the smallest half floats.
TEST(HalfFloats, AreTheNearestOfPremultipliedColours) {
    files::TempFolder folder;
    constexpr int kWidth = 1024;
    Frame frame({kWidth, 64}, Depth::S214);
    for (int i = 0; i < kWidth * 64; ++i) {
        std::int16_t* pixel = frame.row16(0) + i * kChannels;
        pixel[0] = static_cast<std::int16_t>(i - 32768);
        pixel[1] = 1;
        pixel[2] = 16383;
        pixel[kAlpha] = static_cast<std::int16_t>(i % 300 + 1);
    }
    writeStill(folder.file("a.exr"), frame, {.exr = {.pixels = ExrPixels::Half}});
    const Frame stored = readStill(folder.file("a.exr"), AlphaForm::Straight).frame;
    for (int i = 0; i < kWidth * 64; ++i) {
        const std::int16_t* pixel = frame.row16(0) + i * kChannels;
        const double alpha = pixel[kAlpha] / static_cast<double>(kWhiteS214);
        const double exact = static_cast<float>(alpha * pixel[0] / kWhiteS214);
        ASSERT_EQ(stored.row16(0)[i * kChannels], std::lrint(nearestHalfOf(exact) * kWhiteS214));
    }
}

TEST(ExrForm, MakesFilesSmaller) {
    files::TempFolder folder;
    const Frame frame(FrameSize{200, 100}, Depth::S214);
    const auto sizeOf = [&](ExrPixels pixels, ExrCompression compression) {
        writeStill(folder.file("a.exr"), frame, {.exr = {pixels, compression}});
        return std::filesystem::file_size(folder.file("a.exr"));
    };
    using enum ExrCompression;
    EXPECT_LT(sizeOf(ExrPixels::Half, None), sizeOf(ExrPixels::Float, None));
    EXPECT_LT(sizeOf(ExrPixels::Float, Rle), sizeOf(ExrPixels::Float, None));
    EXPECT_LT(sizeOf(ExrPixels::Float, Zip1), sizeOf(ExrPixels::Float, Rle));
    EXPECT_LT(sizeOf(ExrPixels::Float, Zip16), sizeOf(ExrPixels::Float, Zip1));
}

TEST(ExrForm, IsOfExrFilesOnly) {
    EXPECT_EQ(storageFault("a.exr", {.exrPixels = ExrPixels::Half}), "");
    EXPECT_EQ(storageFault("a.%d.exr", {.exrCompression = ExrCompression::Rle}), "");
    EXPECT_NE(storageFault("a.png", {.exrPixels = ExrPixels::Half}), "");
    EXPECT_NE(storageFault("a.mov", {.exrCompression = ExrCompression::None}), "");
}

}  // namespace
}  // namespace ruvex::media
