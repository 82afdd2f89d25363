#include "sdk/com/utf8.h"

#include <gtest/gtest.h>

namespace ruvex {
namespace {

TEST(Utf8, WideTextComesBack) {
    const std::wstring text = L"a\u00FC\u20AC\U0001F4FA\U0010FFFF";
    EXPECT_EQ(toUtf8(text), "a\xC3\xBC\xE2\x82\xAC\xF0\x9F\x93\xBA\xF4\x8F\xBF\xBF");
    EXPECT_EQ(fromUtf8(toUtf8(text)), text);
}

TEST(Utf8, PairsAreOneCharacterAndHalvesAreReplaced) {
    const wchar_t pair[] = {0xD83D, 0xDCFA, 0};
    EXPECT_EQ(toUtf8(pair), "\xF0\x9F\x93\xBA");
    for (const wchar_t half : {wchar_t{0xD83D}, wchar_t{0xDCFA}}) {
        EXPECT_EQ(toUtf8(std::wstring{half, L'x'}), "\xEF\xBF\xBDx");
    }
}

TEST(Utf8, BytesOfNoCharacterAreReplaced) {
    const std::wstring one = L"\uFFFD";
    EXPECT_EQ(fromUtf8("\x80x"), one + L"x");
    EXPECT_EQ(fromUtf8("\xC3"), one);
    EXPECT_EQ(fromUtf8("\xC3("), one + L"(");
    EXPECT_EQ(fromUtf8("\xC0\x80"), one + one) << "longer than it has to be";
    EXPECT_EQ(fromUtf8("\xED\xA0\x80"), one + one + one) << "half of a pair";
    EXPECT_EQ(fromUtf8("\xF4\x90\x80\x80"), one + one + one + one) << "beyond the last";
}

}  // namespace
}  // namespace ruvex
