// MXF: the rates, fields and tags that it keeps.

#include <fstream>
#include <gtest/gtest.h>

#include "media/frame_reader.h"
#include "media/frame_writer.h"
#include "media/storage_choice.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::media {
namespace {

constexpr FrameSize kMxfPicture = {256, 144};

void writeMxf(const std::filesystem::path& file, const WriteOptions& options, int frames = 3) {
    const auto writer = openWriter(file, options);
    for (int k = 0; k < frames; ++k) {
        writer->write(k, noiseFrame(options.size, options.depth, static_cast<unsigned>(k)));
    }
    writer->finish();
}

std::string bytesIn(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

TEST(Mxf, HoldsTheRatesThatAreNotRefused) {
    files::TempFolder folder;
    for (int base = 1; base <= 130; ++base) {
        for (const Rational& rate : {Rational{base, 1}, makeRational(base * 1000, 1001)}) {
            const WriteOptions options{.size = kMxfPicture, .rate = rate};
            if (!pictureFault("a.mxf", options).empty()) continue;
            writeMxf(folder.file("a.mxf"), options);
            const auto reader = openReader(folder.file("a.mxf"));
            EXPECT_EQ(reader->info().rate, rate);
            EXPECT_EQ(reader->info().last, 2);
            EXPECT_FALSE(reader->info().uneven);
        }
    }
}

TEST(Mxf, HoldsOnlySomeRates) {
    const auto fault = [](Rational rate) {
        return pictureFault("a.mxf", {.size = kMxfPicture, .rate = rate});
    };
    for (const Rational& rate : {Rational{24000, 1001},
                                 {24, 1},
                                 {25, 1},
                                 {30000, 1001},
                                 {30, 1},
                                 {50, 1},
                                 {60000, 1001},
                                 {60, 1}}) {
        EXPECT_EQ(fault(rate), "");
    }
    for (const Rational& rate : {Rational{15, 1}, {12, 1}, {2997, 100}, {2997, 25}, {1, 1}}) {
        EXPECT_NE(fault(rate).find(toText(rate)), std::string::npos);
    }
    EXPECT_EQ(pictureFault("a.mov", {.size = kMxfPicture, .rate = {15, 1}}), "");
}

TEST(Mxf, KeepsFieldsPixelAspectAndTimeCode) {
    files::TempFolder folder;
    const auto file = folder.file("a.mxf");
    for (const FieldOrder fields :
         {FieldOrder::Progressive, FieldOrder::TopFirst, FieldOrder::BottomFirst}) {
        WriteOptions options{.size = {128, 96}, .pixelAspect = {16, 15}, .fields = fields};
        options.codec = "prores-422";
        options.tags.timecode = "10:00:00:05";
        writeMxf(file, options);
        const auto reader = openReader(file);
        EXPECT_EQ(reader->info().fields, fields);
        EXPECT_EQ(reader->info().pixelAspect, (Rational{16, 15}));
        EXPECT_EQ(reader->info().tags.timecode, "10:00:00:05");
    }
}

TEST(Mxf, IsTheSameFileForTheSameFrames) {
    files::TempFolder folder;
    for (const char* codec : {"dnxhr-hqx", "prores-422"}) {
        WriteOptions options{.size = kMxfPicture};
        options.codec = codec;
        writeMxf(folder.file("a.mxf"), options);
        writeMxf(folder.file("b.mxf"), options);
        EXPECT_EQ(bytesIn(folder.file("a.mxf")), bytesIn(folder.file("b.mxf"))) << codec;
    }
}

TEST(Mxf, ThatIsCutOffIsRefused) {
    files::TempFolder folder;
    for (const double part : {0.9, 0.6, 0.3}) {
        writeMxf(folder.file("a.mxf"), {.size = kMxfPicture}, 10);
        cutTo(folder.file("a.mxf"), part);
        EXPECT_NE(complaintOf([&] {
                      const auto reader = openReader(folder.file("a.mxf"));
                      Frame frame;
                      for (int k = 0; k < 10; ++k) reader->read(k, frame);
                  }),
                  "")
            << part;
    }
}

}  // namespace
}  // namespace ruvex::media
