#include <cstdint>
#include <gtest/gtest.h>

#include "sdk/resources/dialog_template.h"
#include "tests/resources/resource_bytes.h"

namespace ruvex {
namespace {

using resource_test::append16;
using resource_test::append32;
using resource_test::Bytes;
using resource_test::fileOf;

/// A bitmap of 3 x 2 pixels, whose rows are padded from 9 to 12 bytes.
struct BitmapBytes {
    std::uint32_t headerSize = 40;
    std::uint32_t width = 3;
    std::uint32_t height = 2;
    std::uint16_t planes = 1;
    std::uint16_t bitsPerPixel = 24;
    std::uint32_t compression = 0;
    std::uint32_t paletteColours = 0;
    std::size_t pixelBytes = 24;

    Bytes file() const {
        Bytes data;
        append32(data, headerSize);
        append32(data, width);
        append32(data, height);
        append16(data, planes);
        append16(data, bitsPerPixel);
        append32(data, compression);
        for (int i = 0; i < 3; ++i) append32(data, 0);  // size of the pixels, resolution
        append32(data, paletteColours);
        append32(data, 0);
        for (std::size_t i = 0; i < pixelBytes; ++i) data.push_back(static_cast<unsigned char>(i));
        return fileOf(ResourceType::Bitmap, 5, data);
    }
    bool isRead() const {
        const Bytes bytes = file();
        return readBitmap(ResourceFile(bytes), 5).has_value();
    }
};

TEST(ResourceBitmap, HasItsSizeAndPixels) {
    const Bytes bytes = BitmapBytes{}.file();
    const auto bitmap = readBitmap(ResourceFile(bytes), 5);
    ASSERT_TRUE(bitmap);
    EXPECT_EQ(bitmap->width, 3);
    EXPECT_EQ(bitmap->height, 2);
    ASSERT_EQ(bitmap->pixels.size(), 24u);
    EXPECT_EQ(bitmap->pixels[0], 0);
    EXPECT_EQ(bitmap->pixels[23], 23);
}

TEST(ResourceBitmap, BytesBehindThePixelsAreIgnored) {
    const Bytes bytes = BitmapBytes{.pixelBytes = 30}.file();
    EXPECT_EQ(readBitmap(ResourceFile(bytes), 5)->pixels.size(), 24u);
}

TEST(ResourceBitmap, UnknownNumbersGiveNothing) {
    const Bytes bytes = BitmapBytes{}.file();
    EXPECT_FALSE(readBitmap(ResourceFile(bytes), 4));
}

TEST(ResourceBitmap, OtherFormsGiveNothing) {
    EXPECT_FALSE(BitmapBytes{.headerSize = 12}.isRead());
    EXPECT_FALSE(BitmapBytes{.planes = 2}.isRead());
    EXPECT_FALSE(BitmapBytes{.bitsPerPixel = 32}.isRead());
    EXPECT_FALSE(BitmapBytes{.bitsPerPixel = 8}.isRead());
    EXPECT_FALSE(BitmapBytes{.compression = 1}.isRead());
    EXPECT_FALSE(BitmapBytes{.paletteColours = 2}.isRead());
}

TEST(ResourceBitmap, SizesThatThePixelsDoNotFillGiveNothing) {
    EXPECT_FALSE(BitmapBytes{.width = 0}.isRead());
    EXPECT_FALSE(BitmapBytes{.height = 0}.isRead());
    EXPECT_FALSE(BitmapBytes{.height = 3}.isRead());
    EXPECT_FALSE(BitmapBytes{.width = 5}.isRead());
    EXPECT_TRUE((BitmapBytes{.width = 4}.isRead()));
    EXPECT_FALSE(BitmapBytes{.width = 0xFFFFFFFD}.isRead());
    EXPECT_FALSE(BitmapBytes{.height = 0xFFFFFFFE}.isRead());  // -2: the top row first
    EXPECT_FALSE((BitmapBytes{.width = 0x80000000, .height = 0x80000000}.isRead()));
}

TEST(ResourceBitmap, ABitmapThatIsCutOffGivesNothing) {
    const Bytes bytes = BitmapBytes{}.file();
    resource_test::forEachCut(bytes, [&](const Bytes& cut) {
        EXPECT_EQ(readBitmap(ResourceFile(cut), 5).has_value(), cut.size() == bytes.size());
    });
}

}  // namespace
}  // namespace ruvex
