#include "media/pixels/fields.h"

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>

#include "media/frame.h"
#include "media/frame_reader.h"
#include "media/frame_writer.h"
#include "media/stills/raw_frame.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::media {
namespace {

constexpr FieldOrder kOrders[] = {FieldOrder::TopFirst, FieldOrder::BottomFirst};

/// A frame whose lines hold their numbers, counted from the top.
Frame numberedLines(FrameSize size, Depth depth) {
    Frame frame(size, depth);
    for (int line = 0; line < size.height; ++line) {
        std::byte* row = frame.row(chainRowOfLine(line, size.height));
        std::fill_n(row, frame.rowBytes(), static_cast<std::byte>(line));
    }
    return frame;
}

/// The numbers in a picture's lines, from the top.
std::vector<int> linesOf(const Frame& picture) {
    std::vector<int> lines;
    for (int line = 0; line < picture.height(); ++line) {
        lines.push_back(static_cast<int>(*picture.row(chainRowOfLine(line, picture.height()))));
    }
    return lines;
}

TEST(Field, HasEverySecondLineOfItsFrame) {
    for (const Depth depth : {Depth::Bits8, Depth::S214}) {
        Frame picture;
        takeField(numberedLines({3, 5}, depth), Field::Top, picture);
        EXPECT_EQ(linesOf(picture), (std::vector{0, 2, 4}));
        takeField(numberedLines({3, 5}, depth), Field::Bottom, picture);
        EXPECT_EQ(linesOf(picture), (std::vector{1, 3}));
        takeField(numberedLines({3, 4}, depth), Field::Top, picture);
        EXPECT_EQ(linesOf(picture), (std::vector{0, 2}));
        EXPECT_EQ(picture.depth(), depth);
        takeField(numberedLines({3, 4}, depth), Field::Bottom, picture);
        EXPECT_EQ(linesOf(picture), (std::vector{1, 3}));
    }
}

TEST(Field, BothMakeTheFrameAgain) {
    for (int height = 2; height < 12; ++height) {
        const Frame frame = noiseFrame({5, height}, Depth::S214, 3);
        Frame woven({5, height}, Depth::S214);
        for (const Field field : {Field::Bottom, Field::Top}) {
            Frame picture;
            takeField(frame, field, picture);
            EXPECT_EQ(picture.height(), fieldHeight(height, field));
            putField(picture, field, woven);
        }
        EXPECT_EQ(woven, frame) << height;
    }
}

TEST(Field, OfAFrameOfOneLineIsTheTopOne) {
    EXPECT_EQ(fieldHeight(1, Field::Top), 1);
    EXPECT_EQ(fieldHeight(1, Field::Bottom), 0);
}

TEST(Field, FirstAndSecondAreAsTheOrderSays) {
    EXPECT_EQ(firstField(FieldOrder::TopFirst), Field::Top);
    EXPECT_EQ(secondField(FieldOrder::TopFirst), Field::Bottom);
    EXPECT_EQ(firstField(FieldOrder::BottomFirst), Field::Bottom);
    EXPECT_EQ(secondField(FieldOrder::BottomFirst), Field::Top);
}

/// A 4:2:0 picture of 8x8 with constant luma and the given chroma lines.
std::string y4mWithColours(const std::string& tags, const std::vector<int>& blue,
                           const std::vector<int>& red) {
    std::string text = "YUV4MPEG2 W8 H8 F25:1 " + tags + " C420mpeg2\nFRAME\n" +
                       std::string(64, static_cast<char>(126));
    for (const auto& plane : {blue, red}) {
        for (const int value : plane) {
            text += std::string(4, static_cast<char>(value));
        }
    }
    return text;
}

Frame firstFrame(const std::filesystem::path& file, const ReadOptions& options = {}) {
    Frame frame;
    openReader(file, options)->read(0, frame);
    return frame;
}

/// Whether all pixels of the picture are equal.
bool isPlain(const Frame& picture) {
    for (std::size_t i = 4; i < picture.bytes().size(); ++i) {
        if (picture.bytes()[i] != picture.bytes()[i % 4]) return false;
    }
    return true;
}

// A red field and a blue one: only an interlaced conversion keeps them apart.
TEST(FieldColours, DoNotRunIntoTheOtherField) {
    files::TempFolder folder;
    const std::vector<int> low{90, 170, 90, 170};
    const std::vector<int> high{170, 90, 170, 90};
    for (const auto& [tags, options, apart] :
         {std::tuple<std::string, ReadOptions, bool>{"It", {}, true},
          {"Ib", {}, true},
          {"Ip", {}, false},
          {"", {}, false},
          {"It", {.fields = FieldOrder::Progressive}, false},
          {"Ip", {.fields = FieldOrder::BottomFirst}, true}}) {
        std::ofstream(folder.file("a.y4m")) << y4mWithColours(tags, low, high);
        Frame top, bottom;
        const Frame frame = firstFrame(folder.file("a.y4m"), options);
        takeField(frame, Field::Top, top);
        takeField(frame, Field::Bottom, bottom);
        EXPECT_EQ(isPlain(top) && isPlain(bottom), apart) << tags;
        EXPECT_NE(top, bottom) << tags;
        EXPECT_GT(top.row8(3)[0], bottom.row8(3)[0]) << "red is the top field's, " << tags;
    }
}

TEST(FieldColours, AreWrittenApart) {
    files::TempFolder folder;
    std::ofstream(folder.file("a.y4m"))
        << y4mWithColours("It", {90, 170, 90, 170}, {170, 90, 170, 90});
    const Frame frame = firstFrame(folder.file("a.y4m"));
    for (const FieldOrder order : kOrders) {
        const auto writer = openWriter(folder.file("b.y4m"), {.size = {8, 8}, .fields = order});
        writer->write(0, frame);
        writer->finish();
        const Frame back = firstFrame(folder.file("b.y4m"));
        for (std::size_t i = 0; i < frame.bytes().size(); ++i) {
            EXPECT_NEAR(static_cast<int>(back.bytes()[i]), static_cast<int>(frame.bytes()[i]), 2);
        }
    }
}

/// The mean difference of the components of two 8-bit pictures of one size.
double meanDifference(const Frame& a, const Frame& b) {
    double sum = 0;
    for (std::size_t i = 0; i < a.bytes().size(); ++i) {
        sum += std::abs(static_cast<int>(a.bytes()[i]) - static_cast<int>(b.bytes()[i]));
    }
    return sum / static_cast<double>(a.bytes().size());
}

// Compared with the libraries' own filter for interlaced pictures, which sites chroma at a quarter
// and at three quarters of the distance between the lines of a field. It is not exact.
TEST(FieldColours, LieWhereTheyDoInTheirField) {
    files::TempFolder folder;
    runFfmpeg(movingPicture("64x48", "25", 0.04) +
                  " -vf setfield=tff -pix_fmt yuv420p -strict -1 -f yuv4mpegpipe",
              folder.file("a.y4m"));
    runFfmpeg("-i " + quoted(folder.file("a.y4m")) +
                  " -vf \"vflip,vflip,scale=64:48:interl=1:in_color_matrix=bt601:in_range=tv:"
                  "in_h_chr_pos=128:"
                  "flags=bicubic+accurate_rnd+bitexact+full_chroma_int+full_chroma_inp,format=rgba,"
                  "vflip\" -f rawvideo",
              folder.file("b.rgba8"));
    const Frame frame = firstFrame(folder.file("a.y4m"), {.fields = FieldOrder::TopFirst});
    const Frame theirs = readRawFrame(folder.file("b.rgba8"), {64, 48}, Depth::Bits8);
    EXPECT_LT(meanDifference(frame, theirs), 0.05);
    const Frame progressive = firstFrame(folder.file("a.y4m"), {.fields = FieldOrder::Progressive});
    EXPECT_GT(meanDifference(progressive, theirs), 0.5);
}

// Six lines have three chroma lines, which two fields cannot share evenly.
TEST(FieldColours, OfHeightsThatCannotBeSharedOutAreThoseOfTheWholePicture) {
    files::TempFolder folder;
    for (const std::string size : {"8x6", "8x7", "9x5"}) {
        runFfmpeg(movingPicture("32x32", "25", 0.04) + " -s " + size +
                      " -pix_fmt yuv420p -strict -1 -f yuv4mpegpipe",
                  folder.file("a.y4m"));
        EXPECT_EQ(firstFrame(folder.file("a.y4m"), {.fields = FieldOrder::TopFirst}),
                  firstFrame(folder.file("a.y4m")))
            << size;
    }
}

struct Coding {
    const char* file;
    const char* codec;
};

class FieldMarks : public testing::TestWithParam<Coding> {};

TEST_P(FieldMarks, AreWrittenAndReadAgain) {
    files::TempFolder folder;
    const auto file = folder.file(GetParam().file);
    for (const FieldOrder order : kOrders) {
        const auto writer =
            openWriter(file, {.size = {96, 64}, .codec = GetParam().codec, .fields = order});
        EXPECT_TRUE(writer->remarks().empty());
        for (unsigned k = 0; k < 3; ++k) {
            writer->write(k, noiseFrame({96, 64}, Depth::Bits8, k));
        }
        writer->finish();
        EXPECT_EQ(probe(file, "stream=field_order"),
                  order == FieldOrder::TopFirst ? "field_order=tt\n" : "field_order=bb\n");
        EXPECT_EQ(openReader(file)->info().fields, order);
    }
}

INSTANTIATE_TEST_SUITE_P(Codings, FieldMarks,
                         testing::Values(Coding{"a.mkv", "ffv1"}, Coding{"a.mov", "prores"},
                                         Coding{"a.mkv", "prores"}, Coding{"a.mp4", "h264"},
                                         Coding{"a.mov", "h264"}, Coding{"a.mkv", "h264"}));

TEST(FieldMarks, ThatCannotBeWrittenAreSaid) {
    files::TempFolder folder;
    for (const auto& [codec, height] : {std::pair{"h265", 64}, {"h264", 66}, {"h264", 65}}) {
        const auto writer =
            openWriter(folder.file("a.mp4"),
                       {.size = {96, height}, .codec = codec, .fields = FieldOrder::TopFirst});
        ASSERT_EQ(writer->remarks().size(), 1u) << codec << height;
        EXPECT_NE(writer->remarks()[0].find("not marked as interlaced"), std::string::npos);
        writer->write(0, noiseFrame({96, height}, Depth::Bits8, 1));
        writer->finish();
        EXPECT_EQ(openReader(folder.file("a.mp4"))->info().fields, FieldOrder::Progressive);
    }
}

// Codecs without a field order, in a container that has one.
TEST(FieldMarks, OfTheContainerCount) {
    files::TempFolder folder;
    runFfmpeg(movingPicture("96x64", "25", 0.2) + " -vf setfield=bff -c:v png -field_order bb",
              folder.file("a.mov"));
    ASSERT_EQ(probe(folder.file("a.mov"), "stream=field_order"), "field_order=bb\n");
    EXPECT_EQ(openReader(folder.file("a.mov"))->info().fields, FieldOrder::BottomFirst);
    EXPECT_EQ(openReader(folder.file("a.mov"), {.fields = FieldOrder::TopFirst})->info().fields,
              FieldOrder::TopFirst);
}

}  // namespace
}  // namespace ruvex::media
