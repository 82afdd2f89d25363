#include <cmath>
#include <cstring>
#include <fstream>
#include <gtest/gtest.h>

#include "media/frame_reader.h"
#include "media/frame_writer.h"
#include "media/media_error.h"
#include "media/pixels/frame_convert.h"
#include "media/stills/raw_frame.h"
#include "media/stills/still_file.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::media {
namespace {

template <typename T>
std::vector<T> valuesOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    const std::vector<char> bytes((std::istreambuf_iterator<char>(stream)), {});
    std::vector<T> values(bytes.size() / sizeof(T));
    std::memcpy(values.data(), bytes.data(), values.size() * sizeof(T));
    return values;
}

class ExactStills : public testing::TestWithParam<const char*> {};

TEST_P(ExactStills, EightBitsComeBackExactly) {
    files::TempFolder folder;
    for (const FrameSize size : kStillSizes) {
        const Frame frame = noiseFrame(size, Depth::Bits8, 3);
        writeStill(folder.file(GetParam()), frame);
        const Still back = readStill(folder.file(GetParam()));
        EXPECT_EQ(back.frame, frame) << toText(size);
        EXPECT_TRUE(back.hasAlpha);
    }
}

TEST_P(ExactStills, SixteenBitsComeBackExactlyFromBlackToWhite) {
    files::TempFolder folder;
    for (const FrameSize size : kStillSizes) {
        const Frame frame = noiseFrame(size, Depth::S214, 4, true);
        writeStill(folder.file(GetParam()), frame);
        EXPECT_EQ(readStill(folder.file(GetParam())).frame, frame) << toText(size);
    }
}

// 16-bit values written by another program are rounded to the nearest S2.14 value.
TEST_P(ExactStills, SixteenBitsAreRoundedToTheNearest) {
    files::TempFolder folder;
    runFfmpeg(
        "-f lavfi -i nullsrc=size=256x256,format=rgb48le,"
        "geq=r=Y*256+X:g=65535-Y*256-X:b=X*256+Y -frames:v 1",
        folder.file(GetParam()));
    const Still still = readStill(folder.file(GetParam()));
    ASSERT_EQ(still.frame.depth(), Depth::S214);
    runFfmpeg("-i " + quoted(folder.file(GetParam())) + " -vf vflip -pix_fmt rgb48le -f rawvideo",
              folder.file("words"));
    const auto words = valuesOf<std::uint16_t>(folder.file("words"));
    ASSERT_EQ(words.size(), 256u * 256 * 3);
    const std::int16_t* values = still.frame.row16(0);
    int worst = 0;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const double exact = words[i] / 65535.0 * kWhiteS214;
        worst = std::max<int>(worst, std::abs(values[i / 3 * 4 + i % 3] - exact) > 0.5);
    }
    EXPECT_EQ(worst, 0);
    EXPECT_EQ(values[3], kWhiteS214);
}

TEST_P(ExactStills, KeepThePixelAspect) {
    files::TempFolder folder;
    writeStill(folder.file(GetParam()), noiseFrame({4, 4}, Depth::Bits8, 6),
               {.pixelAspect = {2, 1}});
    EXPECT_EQ(readStill(folder.file(GetParam())).pixelAspect, (Rational{2, 1}));
}

TEST_P(ExactStills, PremultipliedColoursAreDivided) {
    files::TempFolder folder;
    Frame frame({3, 1}, Depth::Bits8);
    const std::uint8_t stored[] = {50, 25, 100, 100, 7, 8, 9, 0, 255, 10, 0, 255};
    std::copy(std::begin(stored), std::end(stored), frame.row8(0));
    writeStill(folder.file(GetParam()), frame, {.alpha = AlphaForm::Straight});
    const Frame back = readStill(folder.file(GetParam()), AlphaForm::Premultiplied).frame;
    const std::vector<int> expected = {128, 64, 255, 100, 7, 8, 9, 0, 255, 10, 0, 255};
    EXPECT_EQ(std::vector<int>(back.row8(0), back.row8(0) + 12), expected);
    writeStill(folder.file(GetParam()), back, {.alpha = AlphaForm::Premultiplied});
    const Frame again = readStill(folder.file(GetParam()), AlphaForm::Straight).frame;
    EXPECT_EQ(again, frame);
}

INSTANTIATE_TEST_SUITE_P(Kinds, ExactStills, testing::Values("a.png", "a.tif", "a.tiff", "a.dpx"));

TEST(Exr, HoldsEveryWordWithAlphaOfEitherForm) {
    files::TempFolder folder;
    for (const AlphaForm form : {AlphaForm::Straight, AlphaForm::Premultiplied}) {
        for (const FrameSize size : kStillSizes) {
            const Frame frame = noiseFrame(size, Depth::S214, 9);
            writeStill(folder.file("a.exr"), frame, {.alpha = form});
            EXPECT_EQ(readStill(folder.file("a.exr"), form).frame, frame) << toText(size);
        }
    }
}

// The extreme colours with every alpha: rounding the product must not change a restored value.
TEST(Exr, ThePremultipliedFormIsExactBesideEveryAlpha) {
    files::TempFolder folder;
    Frame frame({256, 256}, Depth::S214);
    std::int16_t* pixel = frame.row16(0);
    for (int alpha = -32768; alpha < 32768; ++alpha, pixel += kChannels) {
        pixel[0] = static_cast<std::int16_t>(alpha % 2 == 0 ? 32767 : -32768);
        pixel[1] = static_cast<std::int16_t>(32749 - alpha % 5);
        pixel[2] = static_cast<std::int16_t>(alpha * 7919);
        pixel[3] = static_cast<std::int16_t>(alpha);
    }
    writeStill(folder.file("a.exr"), frame);
    EXPECT_EQ(readStill(folder.file("a.exr")).frame, frame);
}

/// The floats that another program reads from an EXR, in chain row order.
std::vector<float> floatsOf(const files::TempFolder& folder, const std::string& name,
                            FrameSize size) {
    runFfmpeg("-i " + quoted(folder.file(name)) + " -vf vflip -pix_fmt gbrapf32le -f rawvideo",
              folder.file("floats"));
    const auto planes = valuesOf<float>(folder.file("floats"));
    const auto pixels =
        static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height);
    EXPECT_EQ(planes.size(), pixels * 4);
    std::vector<float> floats;
    for (std::size_t i = 0; i < pixels; ++i) {
        for (const std::size_t plane : {2, 0, 1, 3}) {
            floats.push_back(planes.at(plane * pixels + i));
        }
    }
    return floats;
}

TEST(Exr, AComponentIsItsValueOver16384) {
    files::TempFolder folder;
    Frame frame = noiseFrame({33, 17}, Depth::S214, 10);
    for (std::size_t i = 3; i < 33 * 17 * 4; i += 4) {
        frame.row16(0)[i] = kWhiteS214;
    }
    writeStill(folder.file("a.exr"), frame);
    const auto floats = floatsOf(folder, "a.exr", frame.size());
    for (std::size_t i = 0; i < floats.size(); ++i) {
        ASSERT_EQ(floats[i], static_cast<float>(frame.row16(0)[i]) / 16384) << i;
    }
}

TEST(Exr, HalvesAndFloatsOfOthersAreRead) {
    files::TempFolder folder;
    const std::string source =
        "-f lavfi -i nullsrc=size=64x32,format=gbrapf32le,"
        "geq=r='X/32-1':g='Y/8':b='0.3':a='(X+1)/64' -frames:v 1 -c:v exr -format ";
    for (const std::string kind : {"half -compression zip16", "half -compression none",
                                   "float -compression rle", "float -compression zip1"}) {
        runFfmpeg(source + kind, folder.file("a.exr"));
        const auto floats = floatsOf(folder, "a.exr", {64, 32});
        const Frame frame = readStill(folder.file("a.exr"), AlphaForm::Straight).frame;
        const Frame divided = readStill(folder.file("a.exr")).frame;
        for (std::size_t i = 0; i < floats.size(); ++i) {
            const double value = std::min(floats[i] * 16384.0, 32767.0);
            ASSERT_NEAR(frame.row16(0)[i], value, 0.5) << kind << " " << i;
            const double over = i % 4 == 3 ? value : value / floats[i | 3];
            const double exact = i % 4 == 3 ? value : floats[i] * 16384.0 / floats[i | 3];
            ASSERT_NEAR(divided.row16(0)[i], std::clamp(exact, -32768.0, 32767.0), 0.5)
                << kind << " " << i << " " << over;
        }
    }
}

TEST(Exr, EightBitFramesAreStoredAtTheirDepthInS214) {
    files::TempFolder folder;
    const Frame frame = noiseFrame({5, 4}, Depth::Bits8, 2);
    writeStill(folder.file("a.exr"), frame);
    EXPECT_EQ(readStill(folder.file("a.exr")).frame, convertDepth(frame, Depth::S214));
}

TEST(Jpeg, IsNearAndKeepsItsSizeAndWhite) {
    files::TempFolder folder;
    for (const FrameSize size : {FrameSize{1, 1}, {33, 17}, {64, 800}}) {
        for (const int grey : {0, 64, 128, 255}) {
            Frame frame(size, Depth::Bits8);
            std::fill(frame.bytes().begin(), frame.bytes().end(), static_cast<std::byte>(grey));
            writeStill(folder.file("a.jpg"), frame);
            const Still back = readStill(folder.file("a.jpg"));
            EXPECT_EQ(back.frame.size(), size);
            EXPECT_FALSE(back.hasAlpha);
            EXPECT_NEAR(back.frame.row8(0)[1], grey, 1);
            EXPECT_EQ(back.frame.row8(0)[3], 255);
        }
    }
}

// The matrix of a tall JPEG is BT.601 too, as other programs expect.
TEST(Jpeg, ColoursAreTheSameForOthers) {
    files::TempFolder folder;
    runFfmpeg("-f lavfi -i color=0xC02040:size=64x800,format=rgb24 -frames:v 1",
              folder.file("a.png"));
    writeStill(folder.file("a.jpg"), readStill(folder.file("a.png")).frame);
    runFfmpeg("-i " + quoted(folder.file("a.jpg")) +
                  " -vf scale=in_color_matrix=bt601:in_range=pc,format=rgb24 -f rawvideo",
              folder.file("a.rgb"));
    const auto other = valuesOf<std::uint8_t>(folder.file("a.rgb"));
    const Frame own = readStill(folder.file("a.jpg")).frame;
    const int expected[] = {0xC0, 0x20, 0x40};
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_NEAR(other.at(i), expected[i], 2);
        EXPECT_NEAR(own.row8(0)[i], expected[i], 2);
    }
}

TEST(Jpeg, ABetterQualityIsNearerAndLarger) {
    files::TempFolder folder;
    const Frame frame = noiseFrame({64, 64}, Depth::Bits8, 3);
    std::uintmax_t smaller = 0;
    for (const int quality : {1, 50, 95, 100}) {
        writeStill(folder.file("a.jpg"), frame, {.quality = quality});
        const auto size = std::filesystem::file_size(folder.file("a.jpg"));
        EXPECT_GT(size, smaller);
        smaller = size;
    }
}

class AnyStill : public testing::TestWithParam<const char*> {};

TEST_P(AnyStill, CutOffAnywhereItIsRefused) {
    files::TempFolder folder;
    const auto file = folder.file(GetParam());
    writeStill(file, noiseFrame({40, 30}, Depth::Bits8, 6));
    const auto whole = std::filesystem::file_size(file);
    for (std::uintmax_t size = whole - 1; size > 0; size = std::min(size - 1, size * 9 / 10)) {
        std::filesystem::resize_file(file, size);
        const std::string said = complaintOf([&] { readStill(file); });
        EXPECT_NE(said.find(GetParam()), std::string::npos) << size << " of " << whole;
    }
}

TEST_P(AnyStill, OtherFilesAreRefused) {
    files::TempFolder folder;
    const auto file = folder.file(GetParam());
    std::ofstream(file) << "not a picture at all, only a line of text";
    EXPECT_NE(complaintOf([&] { readStill(file); }).find(GetParam()), std::string::npos);
    std::ofstream(file, std::ios::trunc).close();
    EXPECT_NE(complaintOf([&] { readStill(file); }).find(GetParam()), std::string::npos);
}

// Reading any bytes returns a picture or throws MediaError.
TEST_P(AnyStill, DamagedBytesDoNoHarm) {
    files::TempFolder folder;
    const auto file = folder.file(GetParam());
    writeStill(file, noiseFrame({40, 30}, Depth::Bits8, 6));
    const auto whole = valuesOf<char>(file);
    for (unsigned seed = 0; seed < 200; ++seed) {
        auto bytes = whole;
        for (unsigned i = 0; i < 4; ++i) {
            const std::size_t reach =
                seed % 2 == 0 ? bytes.size() : std::min<std::size_t>(400, bytes.size());
            bytes[(seed * 7919 + i * 104729) % reach] ^= static_cast<char>(1U << (seed + i) % 8);
        }
        std::ofstream(file, std::ios::binary | std::ios::trunc)
            .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        const std::string said = complaintOf([&] { readStill(file); });
        EXPECT_TRUE(said.empty() || said.find(GetParam()) != std::string::npos) << said;
    }
}

TEST_P(AnyStill, ASequenceIsReadByNumber) {
    files::TempFolder folder;
    const auto pattern =
        folder.file("s.%03d" + std::filesystem::path(GetParam()).extension().string());
    const auto writer = openWriter(pattern, {.size = {16, 8}});
    for (int k = 7; k <= 9; ++k) {
        writer->write(k, noiseFrame({16, 8}, Depth::Bits8, static_cast<unsigned>(k)));
    }
    const auto reader = openReader(pattern, {.depth = Depth::Bits8});
    EXPECT_EQ(reader->info().first, 7);
    EXPECT_EQ(reader->info().last, 9);
    EXPECT_EQ(reader->info().size, (FrameSize{16, 8}));
    Frame frame;
    EXPECT_TRUE(reader->read(8, frame));
    std::filesystem::remove(
        folder.file("s.008" + std::filesystem::path(GetParam()).extension().string()));
    EXPECT_NE(complaintOf([&] { reader->read(8, frame); }).find("s.008"), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(Kinds, AnyStill,
                         testing::Values("a.png", "a.tif", "a.exr", "a.dpx", "a.jpg"));

}  // namespace
}  // namespace ruvex::media
