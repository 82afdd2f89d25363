#include "sdk/com/guid.h"

#include <gtest/gtest.h>
#include <map>
#include <unordered_set>

namespace ruvex {
namespace {

constexpr GUID kEffect = guidFromText("A41E7F12-37AB-48B5-99C9-C4B83402C0FC");

TEST(Guid, FieldsAreReadInTheOrderOfTheText) {
    EXPECT_EQ(kEffect.Data1, 0xA41E7F12u);
    EXPECT_EQ(kEffect.Data2, 0x37AB);
    EXPECT_EQ(kEffect.Data3, 0x48B5);
    EXPECT_EQ(kEffect.Data4[0], 0x99);
    EXPECT_EQ(kEffect.Data4[7], 0xFC);
    EXPECT_EQ(sizeof(GUID), 16u);
}

TEST(Guid, TextIsUpperCaseAndReadsBack) {
    EXPECT_EQ(toText(kEffect), "A41E7F12-37AB-48B5-99C9-C4B83402C0FC");
    EXPECT_EQ(parseGuid("a41e7f12-37ab-48b5-99c9-c4b83402c0fc"), kEffect);
    EXPECT_EQ(toText(GUID{}), "00000000-0000-0000-0000-000000000000");
}

TEST(Guid, AnythingElseIsRefused) {
    for (const char* text :
         {"", "A41E7F12", "{A41E7F12-37AB-48B5-99C9-C4B83402C0FC}",
          "A41E7F12-37AB-48B5-99C9-C4B83402C0F", "A41E7F12-37AB-48B5-99C9-C4B83402C0FCC",
          "A41E7F12-37AB-48B5-99C9-C4B83402C0FG", "A41E7F1-237AB-48B5-99C9-C4B83402C0FC",
          "A41E7F12 37AB 48B5 99C9 C4B83402C0FC"}) {
        EXPECT_EQ(parseGuid(text), std::nullopt) << text;
    }
}

TEST(Guid, OrderIsThatOfTheTexts) {
    constexpr GUID kSmall = guidFromText("00000001-0000-0000-0000-000000000000");
    constexpr GUID kLarge = guidFromText("01000000-0000-0000-0000-000000000000");
    EXPECT_TRUE(GuidLess{}(kSmall, kLarge));
    EXPECT_FALSE(GuidLess{}(kLarge, kSmall));
    EXPECT_FALSE(GuidLess{}(kLarge, kLarge));
    const std::map<GUID, int, GuidLess> map{{kEffect, 1}, {kSmall, 2}};
    EXPECT_EQ(map.at(kEffect), 1);
}

TEST(Guid, IdentifiersOfOneBlockHashApart) {
    std::unordered_set<GUID, GuidHash> block;
    std::unordered_set<std::size_t> hashes;
    GUID guid = kEffect;
    for (int i = 0; i < 256; ++i, ++guid.Data1) {
        block.insert(guid);
        hashes.insert(GuidHash{}(guid));
    }
    EXPECT_EQ(block.size(), 256u);
    EXPECT_EQ(hashes.size(), 256u);
}

}  // namespace
}  // namespace ruvex
