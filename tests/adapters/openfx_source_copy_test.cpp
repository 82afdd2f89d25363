#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "adapters/openfx/source_copy.h"

namespace ruvex::openfx {
namespace {

using adapters::PixelForm;
using adapters::PixelRect;
using adapters::SourcePicture;
using adapters::TargetPicture;
using enum adapters::RenderedLines;

constexpr PixelForm kGrey{.components = adapters::Components::Alpha};

/// A picture of single bytes; its rows lie one after the other.
struct GreyPicture {
    PixelRect bounds;
    std::vector<std::byte> bytes;

    explicit GreyPicture(const PixelRect& pixels, int value = 0) : bounds(pixels) {
        const int count = pixels.width() * pixels.height();
        for (int i = 0; i < count; ++i)
            bytes.push_back(static_cast<std::byte>(value ? value : i + 1));
    }
    SourcePicture source() const { return {bytes.data(), bounds.width(), bounds, kGrey}; }
    TargetPicture target() { return {bytes.data(), bounds.width(), bounds, kGrey}; }
    std::vector<int> values() const {
        std::vector<int> all;
        for (const std::byte byte : bytes) all.push_back(std::to_integer<int>(byte));
        return all;
    }
};

TEST(OpenFxSourceCopy, CopiesTheWindow) {
    const GreyPicture source({0, 0, 3, 3});
    GreyPicture target({0, 0, 3, 3}, 99);
    EXPECT_TRUE(copySource(source.source(), target.target(), {1, 1, 3, 2}, All));
    EXPECT_THAT(target.values(), testing::ElementsAre(99, 99, 99, 99, 5, 6, 99, 99, 99));
}

TEST(OpenFxSourceCopy, WhatTheSourceLacksIsZero) {
    const GreyPicture source({1, 1, 2, 2});
    GreyPicture target({0, 0, 3, 3}, 99);
    EXPECT_TRUE(copySource(source.source(), target.target(), {-100, -100, 100, 100}, All));
    EXPECT_THAT(target.values(), testing::ElementsAre(0, 0, 0, 0, 1, 0, 0, 0, 0));
}

TEST(OpenFxSourceCopy, OtherLinesAreLeft) {
    const GreyPicture source({0, -1, 1, 3});
    GreyPicture target({0, -1, 1, 3}, 99);
    EXPECT_TRUE(copySource(source.source(), target.target(), {0, -1, 1, 3}, LowerField));
    EXPECT_THAT(target.values(), testing::ElementsAre(99, 2, 99, 4));
    EXPECT_TRUE(copySource(source.source(), target.target(), {0, -1, 1, 3}, UpperField));
    EXPECT_THAT(target.values(), testing::ElementsAre(1, 2, 3, 4));
}

TEST(OpenFxSourceCopy, PixelsOfAnotherFormAreNotCopied) {
    const GreyPicture source({0, 0, 1, 1});
    GreyPicture target({0, 0, 4, 1}, 99);
    TargetPicture colours = target.target();
    colours.form = {};
    colours.bounds = {0, 0, 1, 1};
    EXPECT_FALSE(copySource(source.source(), colours, {0, 0, 1, 1}, All));
    EXPECT_THAT(target.values(), testing::Each(99));
}

}  // namespace
}  // namespace ruvex::openfx
