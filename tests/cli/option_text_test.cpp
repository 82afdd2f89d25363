#include "cli/option_text.h"

#include <gtest/gtest.h>

#include "cli/usage_error.h"

namespace ruvex::cli {
namespace {

TEST(OptionText, Sizes) {
    EXPECT_EQ(parseSize("--size", "720x576"), (media::FrameSize{720, 576}));
    EXPECT_EQ(parseSize("--size", "1x1"), (media::FrameSize{1, 1}));
    for (const char* text : {"", "0x5", "5x0", "-1x5", "5", "5x", "x5", "5x5x5", "5X5", " 5x5",
                             "5x5 ", "2147483648x1", "-0x5", "5.0x5", "axb"}) {
        EXPECT_THROW(parseSize("--size", text), UsageError) << text;
    }
}

TEST(OptionText, FramesEndBelowWhatSinglePrecisionCounts) {
    EXPECT_EQ(parseFrames("--frames", "7-9").first, 7);
    EXPECT_EQ(parseFrames("--frames", "7-9").last, 9);
    EXPECT_EQ(parseFrames("--frames", "7").last, 7);
    EXPECT_EQ(parseFrames("--frames", "0-16777215").last, 16777215);
    for (const char* text : {"", "-", "9-7", "7-", "-7", "1-2-3", "a-b", "16777216", "0-16777216",
                             "99999999999999999999", "1 - 2"}) {
        EXPECT_THROW(parseFrames("--frames", text), UsageError) << text;
    }
}

TEST(OptionText, Regions) {
    const jobs::Region region = parseRegion("--region", "1,2,3,4");
    EXPECT_EQ(region.x, 1);
    EXPECT_EQ(region.y, 2);
    EXPECT_EQ(region.width, 3);
    EXPECT_EQ(region.height, 4);
    for (const char* text : {"", "1,2,3", "1,2,3,4,5", "1,2,0,4", "1,2,3,0", "-1,2,3,4", "a,b,c,d",
                             "1, 2,3,4", "-0,2,3,4", "1,2,3,4,"}) {
        EXPECT_THROW(parseRegion("--region", text), UsageError) << text;
    }
}

TEST(OptionText, FractionsAndWholeNumbers) {
    EXPECT_EQ(parseFraction("--rate", "30000/1001"), (media::Rational{30000, 1001}));
    EXPECT_THROW(parseFraction("--rate", "0"), UsageError);
    EXPECT_EQ(parseWhole("--workers", "3", 1, 8), 3);
    for (const char* text : {"0", "9", "", "x", "3.0", "-3", "3 "}) {
        EXPECT_THROW(parseWhole("--workers", text, 1, 8), UsageError) << text;
    }
}

TEST(OptionText, SecondsMayBeNegative) {
    EXPECT_EQ(parseSeconds("--key-offset", "12.5"), 12.5);
    EXPECT_EQ(parseSeconds("--key-offset", "-0.4"), -0.4);
    for (const char* text : {"", "-", "--1", "1s", "inf", "-inf", "nan", "1e999", " 1", "1:00"}) {
        EXPECT_THROW(parseSeconds("--key-offset", text), UsageError) << text;
    }
}

TEST(OptionText, ComplaintsNameTheOptionAndTheText) {
    try {
        parseSize("--project-size", "7by5");
        FAIL();
    } catch (const UsageError& error) {
        const std::string said = error.what();
        EXPECT_NE(said.find("--project-size"), std::string::npos) << said;
        EXPECT_NE(said.find("7by5"), std::string::npos) << said;
    }
}

}  // namespace
}  // namespace ruvex::cli
