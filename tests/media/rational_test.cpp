#include "media/rational.h"

#include <gtest/gtest.h>

namespace ruvex::media {
namespace {

TEST(Rational, ReadsWholeNumbersDecimalsAndFractionsExactly) {
    EXPECT_EQ(parsePositiveRational("25"), (Rational{25, 1}));
    EXPECT_EQ(parsePositiveRational("29.97"), (Rational{2997, 100}));
    EXPECT_EQ(parsePositiveRational("12.50"), (Rational{25, 2}));
    EXPECT_EQ(parsePositiveRational(".5"), (Rational{1, 2}));
    EXPECT_EQ(parsePositiveRational("30000/1001"), (Rational{30000, 1001}));
    EXPECT_EQ(parsePositiveRational("50/2"), (Rational{25, 1}));
}

TEST(Rational, RefusesEverythingElse) {
    for (const char* text : {"", "0", "-25", "+25", "25fps", "1/0", "0/1", "1/-2", "1/2/3", ".",
                             "1.2.3", "1e3", " 25", "25 ", "nan", "99999999999",
                             "9223372036854775807", "92233720368547758079", "0.00000000001"}) {
        EXPECT_FALSE(parsePositiveRational(text)) << text;
    }
}

TEST(Rational, TextsReadBack) {
    EXPECT_EQ(toText(Rational{25, 1}), "25");
    EXPECT_EQ(toText(Rational{30000, 1001}), "30000/1001");
    EXPECT_EQ(makeRational(50, -4), (Rational{-25, 2}));
}

}  // namespace
}  // namespace ruvex::media
