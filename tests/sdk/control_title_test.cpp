#include "sdk/controls/control_title.h"

#include <gtest/gtest.h>

namespace ruvex {
namespace {

using Class = DSControlTitle::Class;

TEST(ControlTitle, DescribesANumber) {
    const auto title =
        DSControlTitle::parse(L"Seed;class=dsnewnumberctrl;min=0;max=10000;decimals=0");
    ASSERT_TRUE(title);
    EXPECT_EQ(title->label, "Seed");
    EXPECT_EQ(title->kind, Class::Number);
    EXPECT_EQ(title->low, 0.0);
    EXPECT_EQ(title->high, 10000.0);
    EXPECT_EQ(title->decimals, 0);
    EXPECT_FALSE(title->automatic);
}

TEST(ControlTitle, DescribesAColourChip) {
    const auto title = DSControlTitle::parse(L";class=dsnewcolorchipctrl;auto=1");
    ASSERT_TRUE(title);
    EXPECT_EQ(title->label, "");
    EXPECT_EQ(title->kind, Class::ColourChip);
    EXPECT_TRUE(title->automatic);
    EXPECT_FALSE(title->low || title->high || title->decimals);
}

TEST(ControlTitle, TakesItsFieldsInAnyOrder) {
    const auto title = DSControlTitle::parse(L"TV Contrast;max=100;min=-100;class=dsnewnumberctrl");
    ASSERT_TRUE(title);
    EXPECT_EQ(title->low, -100.0);
    EXPECT_EQ(title->high, 100.0);
    EXPECT_EQ(title->decimals, std::nullopt);
}

TEST(ControlTitle, IgnoresUnknownFields) {
    const auto title =
        DSControlTitle::parse(L"a;unit=%;;=;min;class=dsnewnumberctrl;max=1;Max=2;min=0=1;");
    ASSERT_TRUE(title);
    EXPECT_EQ(title->label, "a");
    EXPECT_EQ(title->low, std::nullopt) << "\"0=1\" is no number";
    EXPECT_EQ(title->high, 1.0);
}

TEST(ControlTitle, ANumberThatCannotBeReadIsNoLimit) {
    for (const wchar_t* number : {L"", L"abc", L"1x", L"inf", L"nan", L"1e999"}) {
        const auto title =
            DSControlTitle::parse(L"a;class=dsnewnumberctrl;max=5;min=" + std::wstring(number));
        ASSERT_TRUE(title);
        EXPECT_EQ(title->low, std::nullopt);
        EXPECT_EQ(title->high, 5.0);
    }
    for (const wchar_t* decimals : {L"-1", L"16", L"1.5", L"x", L"1e9"}) {
        const auto title =
            DSControlTitle::parse(L"a;class=dsnewnumberctrl;decimals=" + std::wstring(decimals));
        ASSERT_TRUE(title);
        EXPECT_EQ(title->decimals, std::nullopt);
    }
}

TEST(ControlTitle, OrdinaryTextsAreNone) {
    for (const wchar_t* text : {L"", L"Reset", L"one; two; three", L"a;class=button", L"a;class=",
                                L"class=dsnewnumberctrl", L"a;min=0;max=1"}) {
        EXPECT_FALSE(DSControlTitle::parse(text));
    }
}

TEST(ControlTitle, LabelsAreUtf8) {
    const auto title = DSControlTitle::parse(L"Gr\u00FCn;class=dsnewnumberctrl");
    ASSERT_TRUE(title);
    EXPECT_EQ(title->label, "Gr\xC3\xBCn");
}

}  // namespace
}  // namespace ruvex
