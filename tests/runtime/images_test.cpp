#include "runtime/images.h"

#include <gtest/gtest.h>

#include "runtime/error.h"

namespace ruvex::runtime {
namespace {

TEST(Images, ACopyHasItsOwnPixels) {
    const auto image = makeImage(2, 2, MFIF_RGBA_RAW_32);
    image->bytes()[5] = std::byte{7};
    image->setWorldSize({10.0f, 20.0f});
    image->setWorldOrigin({1.0f, 2.0f});
    const auto copy = copyImage(*image);
    image->bytes()[5] = std::byte{8};
    EXPECT_EQ(copy->bytes()[5], std::byte{7});
    EXPECT_EQ(copy->format(), MFIF_RGBA_RAW_32);
    DSFloatPair pair{};
    copy->GetWorldSize(&pair);
    EXPECT_EQ(pair, (DSFloatPair{10.0f, 20.0f}));
    copy->GetWorldOrigin(&pair);
    EXPECT_EQ(pair, (DSFloatPair{1.0f, 2.0f}));
}

TEST(Images, AProjectImageFillsTheProjectFrame) {
    const auto image = makeProjectImage({720, 576, 1.25, 25.0}, 36, 24, MFIF_RGBA_S2_14);
    DSFloatPair size{};
    image->GetWorldSize(&size);
    EXPECT_EQ(size, (DSFloatPair{720.0f, 460.8f}));
    EXPECT_EQ(image->width(), 36);
}

TEST(Images, WhatCannotBeMadeIsAnError) {
    EXPECT_THROW(makeImage(0, 1, MFIF_RGBA_RAW_32), Error);
    EXPECT_THROW(makeImage(1, 1, IID_IDSImage), Error);
    const auto image = makeImage(1, 1, MFIF_RGBA_RAW_32);
    image->setStatus(S_FALSE);
    EXPECT_THROW(copyImage(*image), StatusError);
}

}  // namespace
}  // namespace ruvex::runtime
