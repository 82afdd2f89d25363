#include "adapters/common/picture_rows.h"

#include <gtest/gtest.h>
#include <numeric>
#include <vector>

namespace ruvex::adapters {
namespace {

using Bytes = std::vector<std::uint8_t>;

/// Two rows of two pixels, bottom row first, each byte with its own value.
Bytes twoRows() {
    Bytes bytes(16);
    std::iota(bytes.begin(), bytes.end(), std::uint8_t{1});
    return bytes;
}

TEST(PictureRows, TopDownPicturesAreTurned) {
    const Bytes host = twoRows();
    Bytes pixels(16);
    readStraight(topDownRows(host.data(), 2, 2), pixels.data());
    EXPECT_EQ(pixels, (Bytes{9, 10, 11, 12, 13, 14, 15, 16, 1, 2, 3, 4, 5, 6, 7, 8}));
    Bytes back(16);
    writeStraight(pixels.data(), topDownRows(back.data(), 2, 2));
    EXPECT_EQ(back, host);
}

TEST(PictureRows, PaddingIsNeitherReadNorWritten) {
    const std::ptrdiff_t stride = 11;
    Bytes host(2 * stride, 200);
    const Bytes pixels = twoRows();
    writeStraight(pixels.data(), {host.data(), stride, 2, 2});
    EXPECT_EQ(host[8], 200);
    EXPECT_EQ(host[10], 200);
    EXPECT_EQ(host[stride], 9);
    Bytes back(16);
    readStraight({host.data(), stride, 2, 2}, back.data());
    EXPECT_EQ(back, pixels);
}

TEST(PictureRows, PremultipliedColoursAreDividedAndMultiplied) {
    const Bytes host = {50, 100, 25, 100, 0, 9, 0, 0, 255, 1, 0, 255, 20, 0, 0, 10};
    Bytes pixels(16);
    readStraight({host.data(), 16, 4, 1, HostAlpha::Premultiplied}, pixels.data());
    EXPECT_EQ(pixels, (Bytes{128, 255, 64, 100, 0, 0, 0, 0, 255, 1, 0, 255, 255, 0, 0, 10}));
    Bytes back(16);
    writeStraight(pixels.data(), {back.data(), 16, 4, 1, HostAlpha::Premultiplied});
    EXPECT_EQ(back, (Bytes{50, 100, 25, 100, 0, 0, 0, 0, 255, 1, 0, 255, 10, 0, 0, 10}));
}

TEST(PictureRows, EveryPremultipliedPixelComesBack) {
    for (unsigned alpha = 0; alpha < 256; ++alpha) {
        for (unsigned colour = 0; colour <= alpha; ++colour) {
            const auto c = static_cast<std::uint8_t>(colour);
            const Bytes host = {c, c, c, static_cast<std::uint8_t>(alpha)};
            Bytes pixels(4);
            Bytes back(4);
            readStraight({host.data(), 4, 1, 1, HostAlpha::Premultiplied}, pixels.data());
            writeStraight(pixels.data(), {back.data(), 4, 1, 1, HostAlpha::Premultiplied});
            ASSERT_EQ(back, host);
        }
    }
}

TEST(PictureRows, AlphaAloneIsTaken) {
    const Bytes host = twoRows();
    Bytes pixels(16, 100);
    takeAlpha(topDownRows(host.data(), 2, 2), pixels.data());
    EXPECT_EQ(pixels,
              (Bytes{100, 100, 100, 12, 100, 100, 100, 16, 100, 100, 100, 4, 100, 100, 100, 8}));
}

TEST(PictureRows, APictureIsCopiedOntoItselfOrAnother) {
    Bytes host = twoRows();
    const Bytes before = host;
    copyPicture(topDownRows<const std::uint8_t>(host.data(), 2, 2), topDownRows(host.data(), 2, 2));
    EXPECT_EQ(host, before);
    Bytes turned(16);
    copyPicture(topDownRows<const std::uint8_t>(host.data(), 2, 2), {turned.data(), 8, 2, 2});
    EXPECT_EQ(turned, (Bytes{9, 10, 11, 12, 13, 14, 15, 16, 1, 2, 3, 4, 5, 6, 7, 8}));
}

}  // namespace
}  // namespace ruvex::adapters
