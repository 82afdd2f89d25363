#include "adapters/common/frame_picture.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <limits>

#include "runtime/images.h"
#include "tests/adapters/host_memory.h"

namespace ruvex::adapters {
namespace {

using test::HostMemory;
using test::Layout;

constexpr PixelForm kBytes{};
constexpr PixelForm kFloats{SampleType::Float, Components::Rgba, HostAlpha::Straight};
constexpr int kLeastInt = std::numeric_limits<int>::min();
constexpr int kMostInt = std::numeric_limits<int>::max();

/// A picture each pixel of which has its own bytes: x, y, 7 and 255.
HostMemory numbered(PixelRect bounds, Layout layout = {}) {
    HostMemory memory(bounds, kBytes, layout);
    for (int y = bounds.y1; y < bounds.y2; ++y) {
        for (int x = bounds.x1; x < bounds.x2; ++x) {
            memory.setPixel(x, y, {std::byte(x), std::byte(y), std::byte{7}, std::byte{255}});
        }
    }
    return memory;
}

/// The first two bytes of each pixel of an image, and whether the other two are 7 and 255 or 0.
struct Numbers {
    int x = 0, y = 0;
    bool present = false;
    friend bool operator==(const Numbers&, const Numbers&) = default;
};

Numbers at(CDSMemoryImage& image, int x, int row) {
    const std::byte* pixel = image.bytes() + (std::ptrdiff_t{row} * image.width() + x) * 4;
    const int blue = int(pixel[2]);
    EXPECT_EQ(int(pixel[3]), blue == 0 ? 0 : 255);
    return {static_cast<signed char>(pixel[0]), static_cast<signed char>(pixel[1]), blue == 7};
}

/// Reads `source` as the picture of some rows, and checks each pixel.
void expectRead(PixelRect bounds, const FrameRows& rows, Layout layout) {
    const HostMemory source = numbered(bounds, layout);
    const auto image = runtime::makeImage(rows.frame.width(), rows.count, MFIF_RGBA_RAW_32);
    bool whole = true;
    const bool opaque = readPicture(source.source(), rows, *image);
    for (int row = 0; row < rows.count; ++row) {
        for (int x = rows.frame.x1; x < rows.frame.x2; ++x) {
            const int y = rows.yOf(row);
            const bool has = x >= bounds.x1 && x < bounds.x2 && y >= bounds.y1 && y < bounds.y2;
            const Numbers wanted = has ? Numbers{x, y, true} : Numbers{};
            EXPECT_EQ(at(*image, x - rows.frame.x1, row), wanted) << x << ", " << y;
            whole = whole && has;
        }
    }
    EXPECT_EQ(opaque, whole);
}

TEST(FramePicture, RowsOfFieldsAreEvenAndOdd) {
    const auto rows = [](int y1, int y2, RenderedLines lines) {
        return rowsOf({0, y1, 5, y2}, lines);
    };
    const FrameRows all = rows(-3, 4, RenderedLines::All);
    EXPECT_EQ(all.count, 7);
    EXPECT_EQ(all.yOf(6), 3);
    const FrameRows lower = rows(-3, 4, RenderedLines::LowerField);
    EXPECT_EQ(lower.count, 3);
    EXPECT_EQ(lower.yOf(0), -2);
    EXPECT_EQ(lower.yOf(2), 2);
    const FrameRows upper = rows(-3, 4, RenderedLines::UpperField);
    EXPECT_EQ(upper.count, 4);
    EXPECT_EQ(upper.yOf(0), -3);
    EXPECT_EQ(upper.yOf(3), 3);
    EXPECT_EQ(rows(2, 3, RenderedLines::UpperField).count, 0);
    EXPECT_EQ(rows(2, 3, RenderedLines::LowerField).count, 1);
    EXPECT_EQ(rows(kMostInt - 1, kMostInt, RenderedLines::UpperField).count, 0);
    EXPECT_EQ(rows(kLeastInt, kLeastInt + 3, RenderedLines::UpperField).count, 1);
}

TEST(FramePicture, WhatIsWrittenLiesInWindowAndTarget) {
    const WrittenRows all =
        writtenRows({kLeastInt, kLeastInt, kMostInt, kMostInt}, RenderedLines::All, {-2, 3, 9, 8});
    EXPECT_EQ(all.area, (PixelRect{-2, 3, 9, 8}));
    EXPECT_EQ(all.step, 1);
    const WrittenRows lower = writtenRows({0, 3, 5, 9}, RenderedLines::LowerField, {1, 0, 9, 20});
    EXPECT_EQ(lower.area, (PixelRect{1, 4, 5, 9}));
    EXPECT_EQ(lower.step, 2);
    const WrittenRows none =
        writtenRows({0, kMostInt, 5, kMostInt}, RenderedLines::LowerField, {0, 0, 5, kMostInt});
    EXPECT_TRUE(none.area.empty());
}

TEST(FramePicture, SourcesOfAnyBoundsAreReadAsFarAsTheyGo) {
    const PixelRect frame{-4, -3, 7, 6};
    for (const Layout layout : {Layout{}, Layout{true, 5}}) {
        for (const RenderedLines lines :
             {RenderedLines::All, RenderedLines::LowerField, RenderedLines::UpperField}) {
            const FrameRows rows = rowsOf(frame, lines);
            expectRead(frame, rows, layout);
            expectRead({-1, -2, 3, 4}, rows, layout);
            expectRead({-20, -20, 30, 20}, rows, layout);
            expectRead({2, 3, 30, 20}, rows, layout);
            expectRead({-9, 1, 0, 2}, rows, layout);
            expectRead({7, 0, 9, 3}, rows, layout);
            expectRead({0, 6, 3, 9}, rows, layout);
        }
    }
}

/// Pixels that lie in the window and outside the frame become 0; others keep 0x33.
void expectWritten(PixelRect bounds, PixelRect window, RenderedLines lines, Layout layout) {
    const PixelRect frame{-4, -3, 7, 6};
    const FrameRows rows = rowsOf(frame, lines);
    const auto image = runtime::makeImage(frame.width(), rows.count, MFIF_RGBA_RAW_32);
    readPicture(numbered(frame).source(), rows, *image);
    HostMemory memory(bounds, kBytes, layout, std::byte{0x33});
    writePicture(*image, rows, writtenRows(window, lines, bounds), false, memory.target());
    EXPECT_TRUE(memory.guarded());
    const auto within = [](const PixelRect& rect, int x, int y) {
        return x >= rect.x1 && x < rect.x2 && y >= rect.y1 && y < rect.y2;
    };
    for (int y = bounds.y1; y < bounds.y2; ++y) {
        const bool odd = y % 2 != 0;
        const bool hasLine =
            lines == RenderedLines::All || odd == (lines == RenderedLines::UpperField);
        for (int x = bounds.x1; x < bounds.x2; ++x) {
            std::vector<std::byte> wanted(4, std::byte{0x33});
            if (hasLine && within(window, x, y)) {
                wanted.assign(4, std::byte{});
                if (within(frame, x, y)) {
                    wanted = {std::byte(x), std::byte(y), std::byte{7}, std::byte{255}};
                }
            }
            ASSERT_EQ(memory.pixel(x, y), wanted) << x << ", " << y;
        }
    }
}

TEST(FramePicture, OnlyTheWindowIsWritten) {
    const PixelRect windows[] = {{-4, -3, 7, 6},
                                 {0, 0, 2, 3},
                                 {-10, -10, 20, 20},
                                 {3, 2, 3, 5},
                                 {8, 0, 20, 3},
                                 {0, 7, 5, 9},
                                 {-30, 0, -10, 4},
                                 {-6, -5, 0, 1},
                                 {kLeastInt, 1, kMostInt, 2},
                                 {1, kLeastInt, 2, kMostInt}};
    const PixelRect targets[] = {{-4, -3, 7, 6}, {-9, -8, 12, 11}, {1, 1, 3, 4}, {6, 5, 9, 9}};
    for (const PixelRect& bounds : targets) {
        for (const PixelRect& window : windows) {
            for (const Layout layout : {Layout{}, Layout{true, 3}, Layout{false, 7}}) {
                expectWritten(bounds, window, RenderedLines::All, layout);
                expectWritten(bounds, window, RenderedLines::LowerField, layout);
                expectWritten(bounds, window, RenderedLines::UpperField, layout);
            }
        }
    }
}

TEST(FramePicture, ColumnsWithoutPixelsTakeNoTime) {
    HostMemory memory({0, 0, 2, 2}, kBytes, {}, std::byte{0x33});
    const PixelRect noColumns{5, kLeastInt, 5, kMostInt};
    clearPicture({noColumns, 1}, memory.target());
    EXPECT_EQ(memory.pixels(), std::vector<std::byte>(16, std::byte{0x33}));
}

TEST(FramePicture, OpaqueResultsHaveWhiteAlpha) {
    const PixelRect frame{0, 0, 2, 1};
    const FrameRows rows = rowsOf(frame, RenderedLines::All);
    const auto image = runtime::makeImage(2, 1, MFIF_RGBA_S2_14);
    HostMemory memory({0, 0, 3, 1}, kFloats, {}, std::byte{0x33});
    writePicture(*image, rows, writtenRows({0, 0, 3, 1}, RenderedLines::All, {0, 0, 3, 1}), true,
                 memory.target());
    float values[12];
    const auto bytes = memory.pixels();
    std::memcpy(values, bytes.data(), sizeof values);
    // The last pixel lies outside the frame.
    const float wanted[12] = {0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 0};
    EXPECT_TRUE(std::ranges::equal(values, wanted));
}

}  // namespace
}  // namespace ruvex::adapters
