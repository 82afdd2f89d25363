#include "media/clip_tags.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "media/frame_reader.h"
#include "media/frame_writer.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::media {
namespace {

using ::testing::UnorderedElementsAre;

// One hour at 29.97 frames a second drops 108 labels: two in each minute but the tenth.
TEST(Timecode, IsCountedOn) {
    constexpr Rational kNtsc{30000, 1001};
    EXPECT_EQ(timecodeAfter("10:00:00:00", {25, 1}, 0), "10:00:00:00");
    EXPECT_EQ(timecodeAfter("10:00:00:00", {25, 1}, 26), "10:00:01:01");
    EXPECT_EQ(timecodeAfter("09:59:59:24", {25, 1}, 1), "10:00:00:00");
    EXPECT_EQ(timecodeAfter("00:00:59;29", kNtsc, 1), "00:01:00;02");
    EXPECT_EQ(timecodeAfter("00:09:59;29", kNtsc, 1), "00:10:00;00");
    EXPECT_EQ(timecodeAfter("00:00:59:29", kNtsc, 1), "00:01:00:00");
    EXPECT_EQ(timecodeAfter("00:00:00;00", kNtsc, 107892), "01:00:00;00");
}

TEST(Timecode, WhatIsNoneStaysNone) {
    EXPECT_EQ(timecodeAfter("", {25, 1}, 5), "");
    EXPECT_EQ(timecodeAfter("ten o'clock", {25, 1}, 5), "");
}

class Tags : public testing::TestWithParam<const char*> {};

TEST_P(Tags, AreWrittenAndReadAgain) {
    files::TempFolder folder;
    const auto file = folder.file(std::string("a") + GetParam());
    const ClipTags tags{"10:20:30:04", {{"title", "Röhre & Söhne"}, {"comment", "one; two=2"}}};
    const auto writer = openWriter(file, {.size = {64, 64}, .tags = tags});
    for (unsigned k = 0; k < 3; ++k) {
        writer->write(k, noiseFrame({64, 64}, Depth::Bits8, k));
    }
    writer->finish();
    const auto reader = openReader(file);
    ClipTags back = reader->info().tags;
    for (auto& word : back.words) {
        std::ranges::transform(word.first, word.first.begin(), ::tolower);
    }
    EXPECT_EQ(back.timecode, tags.timecode);
    EXPECT_THAT(back.words, UnorderedElementsAre(tags.words[0], tags.words[1]));
    EXPECT_EQ(reader->info().last, 2);
    EXPECT_EQ(probe(file, "stream=nb_read_frames"), "nb_read_frames=3\n");
}

INSTANTIATE_TEST_SUITE_P(Containers, Tags, testing::Values(".mp4", ".mov", ".mkv"));

TEST(Tags, OfTheFileItselfAreLeftBehind) {
    files::TempFolder folder;
    runFfmpeg(movingPicture("64x64", "25", 0.2) +
                  " -c:v libx264 -metadata creation_time=2001-01-01 -metadata artist=X",
              folder.file("a.mp4"));
    const ClipTags tags = openReader(folder.file("a.mp4"))->info().tags;
    EXPECT_EQ(tags.timecode, "");
    EXPECT_THAT(tags.words,
                UnorderedElementsAre(std::pair<std::string, std::string>("artist", "X")));
}

}  // namespace
}  // namespace ruvex::media
