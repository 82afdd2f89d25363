#include "sdk/images/memory_image.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <limits>

namespace {

TEST(MemoryImage, OwnsUnpaddedZeroes) {
    const auto image = CDSMemoryImage::create(3, 5, MFIF_RGBA_S2_14);
    ASSERT_TRUE(image);
    LONG width = 0;
    LONG height = 0;
    GUID format{};
    EXPECT_EQ(image->GetSize(&width, &height), S_OK);
    EXPECT_EQ(width, 3);
    EXPECT_EQ(height, 5);
    EXPECT_EQ(image->GetFormat(&format), S_OK);
    EXPECT_EQ(format, MFIF_RGBA_S2_14);
    EXPECT_EQ(image->byteCount(), 3u * 5u * 8u);
    EXPECT_EQ(image->GetPixels(), image->bytes());
    EXPECT_TRUE(std::all_of(image->bytes(), image->bytes() + image->byteCount(),
                            [](std::byte b) { return b == std::byte{0}; }));
}

TEST(MemoryImage, KnowsTheBytesOfEachFormat) {
    EXPECT_EQ(CDSMemoryImage::create(2, 2, MFIF_RGBA_RAW_32)->byteCount(), 16u);
    EXPECT_EQ(CDSMemoryImage::create(2, 2, MFIF_RGBA_S2_14)->byteCount(), 32u);
    EXPECT_EQ(CDSMemoryImage::create(2, 2, MFIF_A_RAW_8)->byteCount(), 4u);
    EXPECT_EQ(DSBytesPerPixel(IID_IDSImage), 0);
}

TEST(MemoryImage, IsNotMadeOfNothing) {
    EXPECT_FALSE(CDSMemoryImage::create(0, 5, MFIF_RGBA_RAW_32));
    EXPECT_FALSE(CDSMemoryImage::create(5, 0, MFIF_RGBA_RAW_32));
    EXPECT_FALSE(CDSMemoryImage::create(-1, 5, MFIF_RGBA_RAW_32));
    EXPECT_FALSE(CDSMemoryImage::create(5, 5, IID_IDSImage));
}

TEST(MemoryImage, StartsAtTheOriginOfTheWorldAndCanBeMoved) {
    const auto image = CDSMemoryImage::create(4, 2, MFIF_RGBA_RAW_32);
    DSFloatPair size{};
    DSFloatPair origin{1.0f, 1.0f};
    EXPECT_EQ(image->GetWorldSize(&size), S_OK);
    EXPECT_EQ(image->GetWorldOrigin(&origin), S_OK);
    EXPECT_EQ(size, (DSFloatPair{4.0f, 2.0f}));
    EXPECT_EQ(origin, (DSFloatPair{0.0f, 0.0f}));
    image->setWorldSize({720.0f, 540.0f});
    image->setWorldOrigin({-10.0f, 20.0f});
    image->GetWorldSize(&size);
    image->GetWorldOrigin(&origin);
    EXPECT_EQ(size, (DSFloatPair{720.0f, 540.0f}));
    EXPECT_EQ(origin, (DSFloatPair{-10.0f, 20.0f}));
}

TEST(MemoryImage, ReadinessIsSettable) {
    const auto image = CDSMemoryImage::create(1, 1, MFIF_RGBA_RAW_32);
    EXPECT_EQ(image->GetStatus(), S_OK);
    image->setStatus(E_FAIL);
    EXPECT_EQ(image->GetStatus(), E_FAIL);
}

TEST(MemoryImage, AnswersToItsTwoInterfaces) {
    const auto image = CDSMemoryImage::create(1, 1, MFIF_RGBA_RAW_32);
    EXPECT_TRUE(image.query<IDSImage>());
    EXPECT_TRUE(image.query<IUnknown>());
    void* out = &out;
    EXPECT_EQ(image->QueryInterface(IID_IClassFactory, &out), E_NOINTERFACE);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(image->QueryInterface(IID_IDSImage, nullptr), E_POINTER);
    EXPECT_EQ(image->GetSize(nullptr, nullptr), E_POINTER);
    EXPECT_EQ(image->GetFormat(nullptr), E_POINTER);
}

}  // namespace
