#include "media/pixels/orientation.h"

#include <fstream>
#include <gtest/gtest.h>

#include "media/frame.h"
#include "media/frame_reader.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::media {
namespace {

/// A picture of 3x2 pixels with the letters a to f, row by row from the top left, in red.
template <class Value>
Frame lettered(Depth depth) {
    Frame frame({3, 2}, depth);
    for (int line = 0; line < 2; ++line) {
        auto* row = reinterpret_cast<Value*>(frame.row(chainRowOfLine(line, 2)));
        for (int x = 0; x < 3; ++x) {
            row[x * kChannels] = static_cast<Value>('a' + line * 3 + x);
        }
    }
    return frame;
}

template <class Value>
std::string letters(const Frame& frame) {
    std::string text;
    for (int line = 0; line < frame.height(); ++line) {
        const auto* row =
            reinterpret_cast<const Value*>(frame.row(chainRowOfLine(line, frame.height())));
        for (int x = 0; x < frame.width(); ++x) {
            text += static_cast<char>(row[x * kChannels]);
        }
        text += line + 1 < frame.height() ? "/" : "";
    }
    return text;
}

struct Turn {
    std::int32_t a, b, c, d;  ///< x' = a x + c y, y' = b x + d y; y downwards.
    const char* shown;        ///< The picture abc/def as it is shown.
};

constexpr Turn kTurns[] = {
    {1, 0, 0, 1, "abc/def"},   {-1, 0, 0, -1, "fed/cba"},  {0, 1, -1, 0, "da/eb/fc"},
    {0, -1, 1, 0, "cf/be/ad"}, {-1, 0, 0, 1, "cba/fed"},   {1, 0, 0, -1, "def/abc"},
    {0, 1, 1, 0, "ad/be/cf"},  {0, -1, -1, 0, "fc/eb/da"},
};

Orientation orientationOf(const Turn& turn) {
    const std::int32_t one = 1 << 16;
    const std::int32_t matrix[] = {
        turn.a * one, turn.b * one, 0, turn.c * one, turn.d * one, 0, 0, 0, 1 << 30};
    return media::orientationOf(matrix);
}

TEST(Orientation, TurnsAsTheMatrixSays) {
    for (const Turn& turn : kTurns) {
        const Orientation orientation = orientationOf(turn);
        EXPECT_EQ(
            letters<std::uint8_t>(setUpright(lettered<std::uint8_t>(Depth::Bits8), orientation)),
            turn.shown);
        EXPECT_EQ(
            letters<std::int16_t>(setUpright(lettered<std::int16_t>(Depth::S214), orientation)),
            turn.shown);
    }
}

TEST(Orientation, PicturesThatStandAskewAreLeftAlone) {
    const std::int32_t matrix[] = {46341, 46341, 0, -46341, 46341, 0, 0, 0, 1 << 30};
    EXPECT_TRUE(media::orientationOf(matrix).upright());
}

TEST(Orientation, TurnsSizesAndPixelsToo) {
    const Orientation side{true, true, false};
    const Orientation head{false, true, true};
    EXPECT_EQ(setUpright(FrameSize{5, 3}, side), (FrameSize{3, 5}));
    EXPECT_EQ(setUpright(FrameSize{5, 3}, head), (FrameSize{5, 3}));
    EXPECT_EQ(setUpright(Rational{16, 15}, side), (Rational{15, 16}));
    EXPECT_EQ(setUpright(Rational{16, 15}, head), (Rational{16, 15}));
}

TEST(Orientation, TheFirstFieldStaysTheFirst) {
    constexpr auto kTop = FieldOrder::TopFirst;
    constexpr auto kBottom = FieldOrder::BottomFirst;
    EXPECT_EQ(setUpright(kTop, 576, {false, true, false}), kTop);
    EXPECT_EQ(setUpright(kTop, 576, {false, true, true}), kBottom);
    EXPECT_EQ(setUpright(kBottom, 576, {false, false, true}), kTop);
    EXPECT_EQ(setUpright(kTop, 575, {false, false, true}), kTop);
    EXPECT_EQ(setUpright(kTop, 576, {true, false, true}), FieldOrder::Progressive);
    EXPECT_EQ(setUpright(FieldOrder::Progressive, 576, {false, true, true}),
              FieldOrder::Progressive);
}

/// The first frame of a video or still.
Frame firstOf(const std::filesystem::path& file) {
    const auto reader = openReader(file);
    Frame frame;
    EXPECT_TRUE(reader->read(0, frame));
    EXPECT_EQ(frame.size(), reader->info().size);
    return frame;
}

TEST(Orientation, OfVideoIsThatOfItsContainer) {
    files::TempFolder folder;
    runFfmpeg(movingPicture("64x48", "25", 0.2) + " -c:v libx264 -aspect 64:45",
              folder.file("a.mp4"));
    runFfmpeg("-i " + quoted(folder.file("a.mp4")) + " -c copy -metadata:s:v rotate=90",
              folder.file("b.mp4"));
    const Frame plain = firstOf(folder.file("a.mp4"));
    const Frame turned = firstOf(folder.file("b.mp4"));
    ASSERT_EQ(turned.size(), (FrameSize{48, 64}));
    EXPECT_EQ(openReader(folder.file("a.mp4"))->info().pixelAspect, (Rational{16, 15}));
    EXPECT_EQ(openReader(folder.file("b.mp4"))->info().pixelAspect, (Rational{15, 16}));
    // A quarter turn counter-clockwise: the last column becomes the first line.
    EXPECT_EQ(turned, setUpright(plain, {true, false, true}));
    EXPECT_EQ(turned.row8(chainRowOfLine(0, 64))[0], plain.row8(chainRowOfLine(0, 48))[63 * 4]);
}

/// Inserts an Exif orientation, 1 to 8, behind the first two bytes of a JPEG file.
void markJpeg(const std::filesystem::path& from, char mark, const std::filesystem::path& to) {
    std::ifstream file(from, std::ios::binary);
    std::string bytes(std::istreambuf_iterator<char>(file), {});
    const std::string tag =
        std::string("\x12\x01\x03\x00\x01\x00\x00\x00", 8) + mark + std::string(3, '\0');
    const std::string exif =
        std::string("Exif\0\0II*\0\x08\0\0\0\x01\0", 16) + tag + std::string(4, '\0');
    const std::string length{'\0', static_cast<char>(exif.size() + 2)};
    bytes.insert(2, "\xFF\xE1" + length + exif);
    std::ofstream(to, std::ios::binary) << bytes;
}

TEST(Orientation, OfJpegsIsThatOfTheirMark) {
    files::TempFolder folder;
    runFfmpeg(movingPicture("32x24", "25", 0.04) + " -frames:v 1 -update 1", folder.file("a.jpg"));
    const Frame plain = firstOf(folder.file("a.jpg"));
    const Orientation kMarks[] = {{false, false, false}, {false, true, false}, {false, true, true},
                                  {false, false, true},  {true, false, false}, {true, true, false},
                                  {true, true, true},    {true, false, true}};
    for (char mark = 1; mark <= 8; ++mark) {
        markJpeg(folder.file("a.jpg"), mark, folder.file("b.jpg"));
        EXPECT_EQ(firstOf(folder.file("b.jpg")), setUpright(plain, kMarks[mark - 1]))
            << static_cast<int>(mark);
    }
}

}  // namespace
}  // namespace ruvex::media
