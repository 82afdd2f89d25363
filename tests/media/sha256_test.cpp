#include "media/sha256.h"

#include <gtest/gtest.h>

namespace ruvex::media {
namespace {

std::string digestOf(std::initializer_list<std::string_view> texts) {
    Sha256 digest;
    for (const std::string_view text : texts) digest.add(text);
    return digest.finish();
}

// The second digest is that of the command sha256sum for the length and the letters:
// printf '\0\0\0\0\0\0\0\3abc' | sha256sum
TEST(Sha256, IsOfLengthsAndBytes) {
    EXPECT_EQ(digestOf({}), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
    EXPECT_EQ(digestOf({"abc"}),
              "c3494ca1a2cf8eeb8a11ded316fb55b83c3bbbedb6313cd50415251e5d09e12f");
}

TEST(Sha256, TellsHowTheBytesAreDivided) {
    EXPECT_NE(digestOf({"ab", "c"}), digestOf({"abc"}));
    EXPECT_NE(digestOf({"ab", "c"}), digestOf({"a", "bc"}));
    EXPECT_NE(digestOf({"abc", ""}), digestOf({"abc"}));
    EXPECT_EQ(digestOf({"ab", "c"}), digestOf({"ab", "c"}));
}

}  // namespace
}  // namespace ruvex::media
