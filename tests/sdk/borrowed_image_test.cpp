#include "sdk/images/borrowed_image.h"

#include <array>
#include <gtest/gtest.h>

namespace {

TEST(BorrowedImage, ShowsTheMemoryThatIsAttached) {
    std::array<std::byte, 3 * 5 * 8> first{}, second{};
    const auto image = CDSBorrowedImage::create(3, 5, MFIF_RGBA_S2_14);
    ASSERT_TRUE(image);
    EXPECT_EQ(image->byteCount(), first.size());
    image->attach(first.data());
    EXPECT_EQ(image->GetStatus(), S_OK);
    EXPECT_EQ(image->GetPixels(), first.data());
    image->attach(second.data());
    EXPECT_EQ(image->GetPixels(), second.data());
}

TEST(BorrowedImage, WithoutMemoryIsNotReady) {
    std::array<std::byte, 4> pixel{};
    const auto image = CDSBorrowedImage::create(1, 1, MFIF_RGBA_RAW_32);
    EXPECT_EQ(image->GetStatus(), E_FAIL);
    EXPECT_EQ(image->GetPixels(), nullptr);
    image->attach(pixel.data());
    image->detach();
    EXPECT_EQ(image->GetStatus(), E_FAIL);
    EXPECT_EQ(image->GetPixels(), nullptr);
    LONG width = 0, height = 0;
    EXPECT_EQ(image->GetSize(&width, &height), S_OK);
    EXPECT_EQ(width, 1);
}

TEST(BorrowedImage, IsNotMadeOfNothing) {
    EXPECT_FALSE(CDSBorrowedImage::create(0, 5, MFIF_RGBA_RAW_32));
    EXPECT_FALSE(CDSBorrowedImage::create(5, 0, MFIF_RGBA_RAW_32));
    EXPECT_FALSE(CDSBorrowedImage::create(5, 5, IID_IDSImage));
}

TEST(BorrowedImage, AnswersToItsInterface) {
    const auto image = CDSBorrowedImage::create(1, 1, MFIF_A_RAW_8);
    EXPECT_TRUE(image.query<IDSImage>());
    EXPECT_FALSE(image.query<IClassFactory>(IID_IClassFactory));
}

}  // namespace
