#include "media/stills/contact_sheet.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>

#include "media/frame.h"
#include "media/pixels/frame_convert.h"
#include "media/stills/text_label.h"
#include "tests/media/test_clips.h"

namespace ruvex::media {
namespace {

/// The number of pixels that differ from the background.
int inked(const Frame& label) {
    int count = 0;
    for (int y = 0; y < label.height(); ++y) {
        for (int x = 0; x < label.width(); ++x) {
            const std::uint8_t* pixel = label.row8(y) + x * kChannels;
            EXPECT_EQ(pixel[3], 255);
            count += pixel[0] != 0x18;
        }
    }
    return count;
}

/// The lowest row, counted from the bottom, that has text.
int foot(const Frame& label) {
    for (int y = 0; y < label.height(); ++y) {
        for (int x = 0; x < label.width(); ++x) {
            if (label.row8(y)[x * kChannels] > 128) return y;
        }
    }
    return -1;
}

TEST(TextLabel, DrawsWhatItIsGiven) {
    constexpr FrameSize kSize{200, 32};
    const Frame nothing = textLabel("", kSize, {});
    EXPECT_EQ(nothing.size(), kSize);
    EXPECT_EQ(inked(nothing), 0);
    EXPECT_GT(inked(textLabel("Good TV", kSize, {})), 100);
    EXPECT_FALSE(textLabel("Good TV", kSize, {}) == textLabel("Goud TV", kSize, {}));
    EXPECT_EQ(textLabel("Good TV", kSize, {}), textLabel("Good TV", kSize, {}));
}

TEST(TextLabel, NoCharacterHasAMeaningOfItsOwn) {
    std::set<std::string> pictures;
    const std::vector<std::string> texts = {"a",   "%{pts}", "a:b", "a'b", "a\\b",
                                            "a,b", "[a]",    "a;b", "B&W", "100 %"};
    for (const std::string& text : texts) {
        const Frame label = textLabel(text, {160, 28}, {});
        EXPECT_GT(inked(label), 0) << text;
        const auto& bytes = label.bytes();
        pictures.emplace(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    }
    EXPECT_EQ(pictures.size(), texts.size());
}

TEST(TextLabel, LettersStandOnOneLineAndInTheMiddle) {
    constexpr FrameSize kSize{200, 40};
    EXPECT_EQ(foot(textLabel("Hx", kSize, {})), foot(textLabel("xi", kSize, {})));
    EXPECT_GT(foot(textLabel("Hx", kSize, {})), foot(textLabel("Hy", kSize, {})));
    const Frame label = textLabel("HIH", kSize, {});
    int left = 0;
    int right = 0;
    for (int y = 0; y < kSize.height; ++y) {
        for (int x = 0; x < kSize.width; ++x) {
            const bool ink = label.row8(y)[x * kChannels] > 128;
            (x < kSize.width / 2 ? left : right) += ink;
        }
    }
    EXPECT_NEAR(left, right, 12);
}

TEST(TextLabel, WhatDoesNotFitIsCutOff) {
    EXPECT_EQ(textLabel("Security Camera", {10, 8}, {}).size(), (FrameSize{10, 8}));
    EXPECT_EQ(textLabel("W", {1, 1}, {.fontSize = 40}).size(), (FrameSize{1, 1}));
}

TEST(FitInto, FitsTheLongerSide) {
    EXPECT_EQ(fitInto({720, 576}, 720), (FrameSize{720, 576}));
    EXPECT_EQ(fitInto({1920, 1080}, 720), (FrameSize{720, 405}));
    EXPECT_EQ(fitInto({1080, 1920}, 720), (FrameSize{405, 720}));
    EXPECT_EQ(fitInto({5000, 1}, 720), (FrameSize{720, 1}));
    EXPECT_EQ(fitInto({1, 1}, 720), (FrameSize{1, 1}));
}

TEST(ContactSheet, PicturesStandInRowsWithTheirLabels) {
    constexpr FrameSize kSize{180, 20};
    std::vector<LabelledPicture> pictures;
    for (unsigned i = 0; i < 5; ++i) {
        pictures.push_back({"Look " + std::to_string(i), noiseFrame(kSize, Depth::Bits8, i)});
    }
    const Frame sheet = contactSheet(pictures, 2);
    const SheetLayout layout(kSize, 5, 2);
    ASSERT_EQ(sheet.size(), layout.sheet);
    EXPECT_EQ(layout.top(0), layout.top(1));
    EXPECT_EQ(layout.left(0, kSize), layout.left(4, kSize));
    EXPECT_GE(layout.left(1, kSize), layout.left(0, kSize) + kSize.width);
    EXPECT_GE(layout.top(2), layout.top(0) + kSize.height + layout.labelHeight);
    for (int i = 0; i < 5; ++i) {
        const int top = chainRowOfLine(layout.top(i), sheet.height());
        const std::uint8_t* shown = sheet.row8(top) + layout.left(i, kSize) * kChannels;
        const std::uint8_t* wanted =
            pictures[static_cast<std::size_t>(i)].picture.row8(kSize.height - 1);
        EXPECT_EQ(shown[0], wanted[0]);
        EXPECT_EQ(shown[1], wanted[1]);
        EXPECT_EQ(shown[3], 255);
    }
}

TEST(ContactSheet, SmallPicturesHaveRoomForTheirLabels) {
    const std::vector<LabelledPicture> pictures = {
        {"Security Camera", noiseFrame({1, 1}, Depth::Bits8, 1)}};
    EXPECT_GE(contactSheet(pictures, 3).width(), 160);
}

}  // namespace
}  // namespace ruvex::media
