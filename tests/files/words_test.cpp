#include "files/words.h"

#include <gtest/gtest.h>

namespace ruvex::files {
namespace {

constexpr std::size_t kAll = 1000;

TEST(Printable, LettersStandAsTheyAre) {
    for (const char* text : {"", "a B~", "Größe", "\u00A0", "\u0800", "\uFFFD", "\U0001F4FA",
                             "\U0010FFFF", "C:\\x1B"}) {
        EXPECT_EQ(printable(text, kAll), text);
    }
}

TEST(Printable, WhatControlsATerminalIsSpelt) {
    EXPECT_EQ(printable("\x1B[2J\n\x7F", kAll), "\\x1B[2J\\x0A\\x7F");
    EXPECT_EQ(printable(std::string_view("a\0b", 3), kAll), "a\\x00b");
    EXPECT_EQ(printable("\u009B2J", kAll), "\\xC2\\x9B2J");
}

TEST(Printable, WhatIsNoUtf8IsSpelt) {
    EXPECT_EQ(printable("\xFF", kAll), "\\xFF");
    EXPECT_EQ(printable("\xC3", kAll), "\\xC3") << "cut off";
    EXPECT_EQ(printable("\xE2\x82z", kAll), "\\xE2\\x82z") << "goes on with another letter";
    EXPECT_EQ(printable("\xC0\xAF", kAll), "\\xC0\\xAF") << "longer than needed";
    EXPECT_EQ(printable("\xE0\x9F\xBF", kAll), "\\xE0\\x9F\\xBF") << "longer than needed";
    EXPECT_EQ(printable("\xED\xA0\x80", kAll), "\\xED\\xA0\\x80") << "half of a pair";
    EXPECT_EQ(printable("\xF4\x90\x80\x80", kAll), "\\xF4\\x90\\x80\\x80") << "beyond the last";
    EXPECT_EQ(printable("\xF0\x9F\x93z", kAll), "\\xF0\\x9F\\x93z");
}

TEST(Printable, IsCutBetweenLetters) {
    EXPECT_EQ(printable("abcd", 4), "abcd");
    EXPECT_EQ(printable("abcde", 4), "abcd...");
    EXPECT_EQ(printable("abc\u00FC", 4), "abc...");
    EXPECT_EQ(printable("ab\n", 4), "ab...");
}

}  // namespace
}  // namespace ruvex::files
