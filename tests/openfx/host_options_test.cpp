// What the command line of openfx_host accepts, and what it refuses.

#include "tests/openfx/host_options.h"

#include <gmock/gmock.h>
#include <stdexcept>

#include "tests/openfx/picture_file.h"

namespace ruvex::ofxhost::test {
namespace {

HostOptions optionsOf(std::vector<const char*> words) {
    words.insert(words.begin(), {"openfx_host", "bundle"});
    return readOptions(static_cast<int>(words.size()), words.data());
}

/// The message with which a command line is refused; empty if it is accepted.
std::string refusalOf(const std::vector<const char*>& words) {
    try {
        optionsOf(words);
        return {};
    } catch (const std::runtime_error& error) {
        return error.what();
    }
}

TEST(HostOptions, SizesHaveTwoSides) {
    EXPECT_EQ(optionsOf({"--size", "320x240"}).width, 320);
    EXPECT_EQ(optionsOf({"--size", "320x240"}).height, 240);
    for (const char* size : {"320", "0x0", "320x", "x240", "-320x240", "320x-1", "320x240x2",
                             "1.5x3", "9000x10", "99999999999x2", "", "--frames"}) {
        EXPECT_THAT(refusalOf({"--size", size}), testing::StartsWith("--size needs WIDTHxHEIGHT"))
            << size;
    }
    EXPECT_EQ(refusalOf({"--size"}), "--size needs a value");
}

TEST(HostOptions, FramesMayBeNegative) {
    const auto framesOf = [](const char* value) {
        const HostOptions options = optionsOf({"--frames", value});
        return std::pair{options.first, options.last};
    };
    EXPECT_EQ(framesOf("0-9"), std::pair(0, 9));
    EXPECT_EQ(framesOf("7"), std::pair(7, 7));
    EXPECT_EQ(framesOf("-7"), std::pair(-7, -7));
    EXPECT_EQ(framesOf("-5..-1"), std::pair(-5, -1));
    EXPECT_EQ(framesOf("-5--1"), std::pair(-5, -1));
    EXPECT_EQ(framesOf("-5..2"), std::pair(-5, 2));
    for (const char* frames :
         {"5-2", "-1..-5", "a-b", "1-", "..", "1..2..3", "1.5-2", "999999999", ""}) {
        EXPECT_THAT(refusalOf({"--frames", frames}), testing::StartsWith("--frames needs"))
            << frames;
    }
}

TEST(HostOptions, ScalesAreAboveZeroAndAtMostOne) {
    EXPECT_EQ(optionsOf({"--scale", "0.5"}).scale, 0.5);
    for (const char* scale : {"0", "-1", "2", "nan", "inf", "half"}) {
        EXPECT_NE(refusalOf({"--scale", scale}), "") << scale;
    }
}

TEST(HostOptions, AStillHasNoOtherScale) {
    EXPECT_EQ(refusalOf({"--picture", "a.ppm", "--scale", "1"}), "");
    EXPECT_THAT(refusalOf({"--picture", "a.ppm", "--scale", "0.5"}),
                testing::HasSubstr("leave out --scale"));
}

TEST(HostOptions, LeavingNeedsAFrame) {
    EXPECT_TRUE(optionsOf({"--size", "8x8", "--leave"}).leaves);
    EXPECT_NE(refusalOf({"--leave"}), "");
}

TEST(HostOptions, UnknownWordsAreRefused) {
    EXPECT_EQ(refusalOf({"--colour", "red"}), "unknown option --colour");
    EXPECT_EQ(refusalOf({"red"}), "red is neither an option nor NAME=VALUE");
    EXPECT_THAT(refusalOf({"--depth", "half"}), testing::HasSubstr("byte, short or float"));
}

TEST(HostOptions, PicturesThatCannotBeReadAreNamed) {
    const auto refusal = [](const char* file) -> std::string {
        try {
            readPpm(file, kOfxBitDepthByte);
            return {};
        } catch (const std::runtime_error& error) {
            return error.what();
        }
    };
    EXPECT_EQ(refusal("/none/a.ppm"), "cannot open /none/a.ppm");
    EXPECT_THAT(refusal(__FILE__), testing::EndsWith("is no binary PPM file of 8 bits"));
}

}  // namespace
}  // namespace ruvex::ofxhost::test
